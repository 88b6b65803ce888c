// What the main window asks of the forecast, whose window and procedures stand above it: the
// place written at the top of the forecast window, and the fetch of a city's forecast page.
#pragma once

#include <QString>

namespace skelda {

class ForecastWindow {
public:
    virtual ~ForecastWindow() = default;
    // The caption of the window's heading label, "city - airport". Asking for the window loads
    // it, without showing it.
    virtual void SetNomvilleaeroport(const QString& text) = 0;
    // Fetches the portal's page of the city Code (blocking) and pours its text into the window;
    // see ChargerPrevision. Its failures reach the caller.
    virtual void ChargerPrevision(QString& Code) = 0;
};

}  // namespace skelda
