// The servers Skelda talks to. They are fixed values of the program: nothing in a file, the
// registry or the environment changes them.
#pragma once

#include "Services.h"

namespace skelda {

// The US National Weather Service's server of the METAR station files: one text file per station
// code under /pub/data/observations/metar/stations/, a date line and the report. The same name
// stands in the request line and in the socket's RemoteHost.
inline ServerAddress ObservationServer() { return {QStringLiteral("tgftp.nws.noaa.gov"), 80}; }

// The forecast portal: one HTML page per city under /forecast/<city code>.html, the city codes
// being those of table Aéroports (FRXX0076 for Paris), with the text forecast between
// "<!--TEXT FORECAST-->" and "<!--ENDTEXT FORECAST-->" and a table of pictures between
// "-- FORECAST --" and "<!--ENDFC-->". The portal is Skelda's own.
inline ServerAddress ForecastPortal() { return {QStringLiteral("forecast.skelda.invalid"), 80}; }

// The news server: one small page, /Skelda/promo.html, shown as it comes once per run.
inline ServerAddress NewsServer() { return {QStringLiteral("news.skelda.invalid"), 80}; }

}  // namespace skelda
