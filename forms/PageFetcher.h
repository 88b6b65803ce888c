// What the forecast and the news ask of the main window: the fetch of a web page with its
// page-fetch control (Inet1), whose text lands in the window's hidden text field (wwwsource).
#pragma once

#include <QString>

namespace skelda {

class PageFetcher {
public:
    virtual ~PageFetcher() = default;
    // Fetches Url, blocking the window meanwhile, puts the page's text into the hidden field and
    // gives what the field holds. A failed fetch (no network, an unknown host, a refused
    // connection, a time-out) reaches the caller, and the field keeps what it held.
    virtual QString Recevoir(const QString& Url) = 0;
};

}  // namespace skelda
