// What the tray's menu asks of the two windows it opens besides the main window: to be loaded at
// the first touch and shown. Forms::Widget<MonthWindow>() gives the monthly statistics' window,
// Forms::Widget<AirportsWindow>() the choice of the active airports, without the tray naming
// either form.
#pragma once

#include <cstdint>

namespace skelda {

// The window of one airport's month (StatistiqueMensuelle). Nobody asks it for more than to be
// there.
class MonthWindow {
public:
    virtual ~MonthWindow() = default;
};

// The choice of the active and the preferred airports (AeroportsConfig). The add form, which that
// form opens, reads the idx of its list's first line.
class AirportsWindow {
public:
    virtual ~AirportsWindow() = default;
    // The idx (ItemData) of List1's first line; "Subscript out of range" (9) for an empty list.
    virtual int32_t IdxPremiereLigne() const = 0;
};

}  // namespace skelda
