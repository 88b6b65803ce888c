// What the other forms ask of the main window. The airport forms: its poll timer T, which stays
// off while table Aéroports is being changed, and its airport list List1, refilled (with
// TableIDA) once the change is stored; the poll cycle reads both, so they change together, with
// no poll running. The start form: T, the first poll, and the Tag that marks the window as asked
// for. The window itself is Forms::Widget<PollingForm>().
#pragma once

#include <QString>

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
    // Starts one poll of the airport selected in List1, as a double click in the list does.
    virtual void Connect() = 0;
    // The window's Tag: "VISIBLE" marks it as asked for, and the next tick of T protects itself.
    virtual void SetTag(const QString& tag) = 0;
};

}  // namespace skelda
