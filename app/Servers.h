// The servers Skelda talks to. They are fixed values of the program: nothing in a file, the
// registry or the environment changes them.
//
// All three are Skelda's gateway (gateway/): a site of the machine's web server on the loopback,
// port 80 of 127.0.0.1, which speaks the program's HTTP/1.0 on one side and today's public sources
// on the other. An address rather than a name, so that nothing has to resolve it and it can't be
// taken for IPv6 (the program's socket is IPv4).
#pragma once

#include "Services.h"

namespace skelda {

// The gateway's address, the same in the request line and in the socket's RemoteHost.
inline const QString GatewayAddress = QStringLiteral("127.0.0.1");

// The METAR station files: one text file per station code under
// /pub/data/observations/metar/stations/, a date line and the report, which the gateway fetches
// from the US National Weather Service's server.
inline ServerAddress ObservationServer() { return {GatewayAddress, 80}; }

// The forecast portal: one HTML page per city under /forecast/<city code>.html, with the text
// forecast between "<!--TEXT FORECAST-->" and "<!--ENDTEXT FORECAST-->" and a table of pictures
// between "-- FORECAST --" and "<!--ENDFC-->", made by the gateway's page maker.
inline ServerAddress ForecastPortal() { return {GatewayAddress, 80}; }

// The news page, /Skelda/promo.html, shown as it comes once per run: a file of the gateway.
inline ServerAddress NewsServer() { return {GatewayAddress, 80}; }

}  // namespace skelda
