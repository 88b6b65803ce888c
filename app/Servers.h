// The servers Skelda talks to. They are fixed values of the program: nothing in a file, the
// registry or the environment changes them.
#pragma once

#include "Services.h"

namespace skelda {

// The US National Weather Service's server of the METAR station files: one text file per station
// code under /pub/data/observations/metar/stations/, a date line and the report. The same name
// stands in the request line and in the socket's RemoteHost.
inline ServerAddress ObservationServer() { return {QStringLiteral("tgftp.nws.noaa.gov"), 80}; }

// The forecast portal and the news server are used by the forecast and news forms, which come
// later; their hosts are chosen with those forms. Until then nothing reaches them.
inline ServerAddress ForecastPortal() { return {QString(), 80}; }
inline ServerAddress NewsServer() { return {QString(), 80}; }

}  // namespace skelda
