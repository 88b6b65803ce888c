// What the airport forms ask of the main window: its poll timer T, which stays off while table
// Aéroports is being changed, and its airport list List1, refilled (with TableIDA) once the change
// is stored. The poll cycle reads both, so they change together, with no poll running.
#pragma once

namespace skelda {

class PollingForm {
public:
    virtual ~PollingForm() = default;
    // Enabled of T. Enabling it starts a full second before the next tick.
    virtual bool TEnabled() const = 0;
    virtual void SetTEnabled(bool enabled) = 0;
    // ChargerAeroports with List1: the active airports by city, TableIDA rebuilt, the preferred
    // airport selected (which redraws the window). Failures of the database, and the 102nd active
    // airport that TableIDA has no room for, reach the caller.
    virtual void ChargerAeroportsList1() = 0;
};

}  // namespace skelda
