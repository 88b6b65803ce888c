// The forecast page maker's one request: the forecast of a place from the gateway's caching
// proxy of MET Norway's Locationforecast, on the loopback. The proxy adds the User-Agent, keeps the
// replies and asks the source at most once at a time, so this side does none of that.
#pragma once

#include "Places.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace skelda {

// GET http://<Address><SourcePath> (Places.h), Address being the proxy's "127.0.0.1:857", 5 s in all
// at most (Skelda's window waits on the page). The body of a 200 or 203 reply, at most 8 MB;
// nullopt when the proxy can't be reached, the time runs out, or the reply is anything else.
std::optional<QByteArray> FetchFromSource(const QString& address, const Place& place);

}  // namespace skelda
