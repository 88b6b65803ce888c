#!/usr/bin/env python3
"""Makes places.csv, the forecast page maker's table of places, from Debian's weather-util-data.

    python3 gateway/makeplaces.py [STATIONS_GZ] > gateway/places.csv

run from the top of the tree (STATIONS_GZ defaults to /usr/share/weather-util/stations.gz, from
the package weather-util-data). One row per delivered airport of data/airports.csv that the
package places, under its station code, and one per forecast code that earlier databases hold
(FRXX0076 and the like), under that code with the place of its airport:

    code;latitude;longitude;zone;name

Latitude and longitude in degrees with four decimals (the package gives radians), zone an IANA
time zone, name the airport's name, or the city's for an earlier code, in plain ASCII.

The coordinates come from weather-util-data, (c) 2006-2023 Jeremy Stanley, under the ISC licence,
made from public-domain NOAA and OurAirports data. An airport the package doesn't place is left
out, and so has no forecast code: the script says which on standard error.

The time zone: the seed's numeric offset knows no summer time, so each station gets an IANA zone,
by the country its ICAO prefix names, or, in the countries and territories with more than one
zone, by the station itself (STATION_ZONES). The script refuses a station it has no zone for, and
warns where the zone's standard offset differs from the seed's number.
"""

import configparser
import datetime
import gzip
import math
import sys
import unicodedata
import zoneinfo

SEED = "data/airports.csv"

# The package's notice, which goes with every copy of its data.
ISC_NOTICE = """
Copyright (c) 2006-2023 Jeremy Stanley <fungi@yuggoth.org>

Permission to use, copy, modify, and distribute this software for any
purpose with or without fee is hereby granted, provided that the above
copyright notice and this permission notice appear in all copies.

The software is provided "as is" and the author disclaims all warranties
with regard to this software including all implied warranties of
merchantability and fitness. In no event shall the author be liable for
any special, direct, indirect, or consequential damages or any damages
whatsoever resulting from loss of use, data or profits, whether in an
action of contract, negligence or other tortious action, arising out of
or in connection with the use or performance of this software.
"""

# The codes of the old portal, held by databases made before the station codes, each with the
# airport whose place answers it.
EARLIER_CODES = {
    "FRXX0076": "LFPG",  # Paris
    "FRXX0055": "LFLL",  # Lyon
    "FRXX0059": "LFML",  # Marseille
    "FRXX0073": "LFMN",  # Nice
    "UKXX0085": "EGLL",  # London
}

# Countries of one time zone, by the first two letters of the ICAO code (one letter for China).
PREFIX_ZONES = {
    "AY": "Pacific/Port_Moresby", "BI": "Atlantic/Reykjavik", "DA": "Africa/Algiers",
    "DB": "Africa/Porto-Novo", "DF": "Africa/Ouagadougou", "DG": "Africa/Accra",
    "DI": "Africa/Abidjan", "DN": "Africa/Lagos", "DR": "Africa/Niamey", "DT": "Africa/Tunis",
    "DX": "Africa/Lome", "EB": "Europe/Brussels", "ED": "Europe/Berlin", "EE": "Europe/Tallinn",
    "EF": "Europe/Helsinki", "EG": "Europe/London", "EH": "Europe/Amsterdam", "EI": "Europe/Dublin",
    "EK": "Europe/Copenhagen", "EL": "Europe/Luxembourg", "EN": "Europe/Oslo", "EP": "Europe/Warsaw",
    "ES": "Europe/Stockholm", "EV": "Europe/Riga", "EY": "Europe/Vilnius", "FA": "Africa/Johannesburg",
    "FC": "Africa/Brazzaville", "FI": "Indian/Mauritius", "FK": "Africa/Douala", "FO": "Africa/Libreville",
    "GA": "Africa/Bamako", "GC": "Atlantic/Canary", "GM": "Africa/Casablanca", "GO": "Africa/Dakar",
    "HA": "Africa/Addis_Ababa", "HD": "Africa/Djibouti", "HE": "Africa/Cairo", "HK": "Africa/Nairobi",
    "HT": "Africa/Dar_es_Salaam", "LB": "Europe/Sofia", "LC": "Asia/Nicosia", "LD": "Europe/Zagreb",
    "LG": "Europe/Athens", "LH": "Europe/Budapest", "LI": "Europe/Rome", "LJ": "Europe/Ljubljana",
    "LK": "Europe/Prague", "LL": "Asia/Jerusalem", "LM": "Europe/Malta", "LO": "Europe/Vienna",
    "LR": "Europe/Bucharest", "LS": "Europe/Zurich", "LT": "Europe/Istanbul", "LY": "Europe/Belgrade",
    "LZ": "Europe/Bratislava", "MD": "America/Santo_Domingo", "MK": "America/Jamaica",
    "MP": "America/Panama", "MR": "America/Costa_Rica", "MU": "America/Havana", "NC": "Pacific/Rarotonga",
    "NF": "Pacific/Fiji", "NS": "Pacific/Pago_Pago", "NT": "Pacific/Tahiti", "NV": "Pacific/Efate",
    "NW": "Pacific/Noumea", "NZ": "Pacific/Auckland", "OB": "Asia/Bahrain", "OE": "Asia/Riyadh",
    "OI": "Asia/Tehran", "OK": "Asia/Kuwait", "OL": "Asia/Beirut", "OM": "Asia/Dubai", "OO": "Asia/Muscat",
    "OP": "Asia/Karachi", "OT": "Asia/Qatar", "PG": "Pacific/Guam", "RC": "Asia/Taipei", "RJ": "Asia/Tokyo",
    "RK": "Asia/Seoul", "RP": "Asia/Manila", "SA": "America/Argentina/Buenos_Aires", "SC": "America/Santiago",
    "SE": "America/Guayaquil", "SK": "America/Bogota", "SL": "America/La_Paz", "SO": "America/Cayenne",
    "SP": "America/Lima", "SU": "America/Montevideo", "SV": "America/Caracas", "TJ": "America/Puerto_Rico",
    "UB": "Asia/Baku", "UD": "Asia/Yerevan", "UG": "Asia/Tbilisi", "UL": "Europe/Moscow", "UT": "Asia/Tashkent",
    "UU": "Europe/Moscow", "VA": "Asia/Kolkata", "VC": "Asia/Colombo", "VE": "Asia/Kolkata",
    "VG": "Asia/Dhaka", "VH": "Asia/Hong_Kong", "VI": "Asia/Kolkata", "VM": "Asia/Macau",
    "VN": "Asia/Kathmandu", "VO": "Asia/Kolkata", "VT": "Asia/Bangkok", "VV": "Asia/Ho_Chi_Minh",
    "WM": "Asia/Kuala_Lumpur", "WS": "Asia/Singapore", "Z": "Asia/Shanghai",
    # Metropolitan France: its overseas airports, also LF or not, are in STATION_ZONES.
    "LF": "Europe/Paris",
    # Mainland Portugal and Spain; the Azores, Madeira and the Canaries are zones of their own.
    "LP": "Europe/Lisbon", "LE": "Europe/Madrid",
}

# Stations of the countries and territories that have several zones (the United States, Canada,
# Mexico, Brazil, Australia, Indonesia, France and its overseas, Madagascar's neighbours).
STATION_ZONES = {
    "KATL": "America/New_York", "KBOS": "America/New_York", "KDCA": "America/New_York",
    "KDTW": "America/Detroit", "KEWR": "America/New_York", "KIAD": "America/New_York",
    "KJFK": "America/New_York", "KLGA": "America/New_York", "KMCO": "America/New_York",
    "KMIA": "America/New_York", "KPHL": "America/New_York", "KDFW": "America/Chicago",
    "KIAH": "America/Chicago", "KMSP": "America/Chicago", "KMSY": "America/Chicago",
    "KORD": "America/Chicago", "KDEN": "America/Denver", "KSLC": "America/Denver",
    "KPHX": "America/Phoenix", "KLAS": "America/Los_Angeles", "KLAX": "America/Los_Angeles",
    "KPDX": "America/Los_Angeles", "KSAN": "America/Los_Angeles", "KSEA": "America/Los_Angeles",
    "KSFO": "America/Los_Angeles", "PANC": "America/Anchorage", "PHNL": "Pacific/Honolulu",
    "CYHZ": "America/Halifax", "CYOW": "America/Toronto", "CYQB": "America/Toronto",
    "CYUL": "America/Toronto", "CYYZ": "America/Toronto", "CYWG": "America/Winnipeg",
    "CYEG": "America/Edmonton", "CYYC": "America/Edmonton", "CYVR": "America/Vancouver",
    "MMGL": "America/Mexico_City", "MMMX": "America/Mexico_City", "MMUN": "America/Cancun",
    "SBBR": "America/Sao_Paulo", "SBGL": "America/Sao_Paulo", "SBGR": "America/Sao_Paulo",
    "SBSP": "America/Sao_Paulo", "SBSV": "America/Bahia", "SBRF": "America/Recife",
    "SBEG": "America/Manaus", "YBBN": "Australia/Brisbane", "YBCS": "Australia/Brisbane",
    "YMHB": "Australia/Hobart", "YMML": "Australia/Melbourne", "YPAD": "Australia/Adelaide",
    "YPDN": "Australia/Darwin", "YPPH": "Australia/Perth", "YSCB": "Australia/Sydney",
    "YSSY": "Australia/Sydney", "WIII": "Asia/Jakarta", "WADD": "Asia/Makassar",
    "FZAA": "Africa/Kinshasa", "FMEE": "Indian/Reunion", "FMCZ": "Indian/Mayotte",
    "FMMI": "Indian/Antananarivo", "TFFF": "America/Martinique", "TFFR": "America/Guadeloupe",
    "LFVP": "America/Miquelon",
}


def zone_of(code):
    if code in STATION_ZONES:
        return STATION_ZONES[code]
    for prefix in (code[:2], code[:1]):
        if prefix in PREFIX_ZONES:
            return PREFIX_ZONES[prefix]
    sys.exit(f"makeplaces: no time zone for {code}: add it to PREFIX_ZONES or STATION_ZONES")


def standard_hours(zone):
    """The zone's offset from UTC without summer time, in hours, as it stands today: the smaller of
    January's and July's, in either hemisphere (Ireland's "winter time" counts as a summer time in
    reverse, so its dst() is no help)."""
    tz = zoneinfo.ZoneInfo(zone)
    year = datetime.date.today().year
    offsets = [datetime.datetime(year, month, 15, 12, tzinfo=tz).utcoffset() for month in (1, 7)]
    return min(offsets).total_seconds() / 3600


def ascii_name(text):
    folded = unicodedata.normalize("NFKD", text)
    folded = "".join(c for c in folded if not unicodedata.combining(c))
    for wide, plain in (("œ", "oe"), ("Œ", "OE"), ("æ", "ae"), ("ß", "ss"), ("đ", "d"), ("Đ", "D"), ("ł", "l"),
                        ("Ł", "L"), ("ø", "o"), ("Ø", "O"), ("ı", "i"), ("’", "'")):
        folded = folded.replace(wide, plain)
    if not folded.isascii() or ";" in folded:
        sys.exit(f"makeplaces: the name {text!r} has no plain ASCII form")
    return folded


def main():
    stations_path = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/weather-util/stations.gz"
    stations = configparser.ConfigParser(interpolation=None)
    with gzip.open(stations_path, "rt", encoding="utf-8") as f:
        stations.read_file(f)

    with open(SEED, encoding="utf-8-sig") as f:
        lines = [line.rstrip("\r\n") for line in f if line.strip()]
    header = [name.lower() for name in lines[0].split(";")]
    airports = [dict(zip(header, line.split(";"))) for line in lines[1:]]

    places = {}
    rows = []
    for airport in airports:
        code = airport["ida"].upper()
        section = code.lower()
        location = stations[section].get("location", "None") if section in stations else "None"
        if location == "None":
            print(f"makeplaces: {code} isn't placed by {stations_path}: left without a code", file=sys.stderr)
            continue
        latitude, longitude = (math.degrees(float(v)) for v in location.strip("()").split(","))
        zone = zone_of(code)
        seed_hours = float(airport["timezone"])
        if standard_hours(zone) != seed_hours:
            print(f"makeplaces: {code}: {zone} is UTC{standard_hours(zone):+g} in winter, "
                  f"the seed says {seed_hours:+g}", file=sys.stderr)
        place = (f"{latitude:.4f}", f"{longitude:.4f}", zone)
        places[code] = (place, airport)
        rows.append((code, *place, ascii_name(airport["aéroport"])))
    for earlier, code in EARLIER_CODES.items():
        place, airport = places[code]
        rows.append((earlier, *place, ascii_name(airport["ville"])))

    out = sys.stdout
    out.write("# Made by gateway/makeplaces.py from Debian's weather-util-data: do not edit by hand.\n")
    out.write("# The coordinates come from that package, made from public-domain NOAA and OurAirports\n")
    out.write("# data, under its licence (ISC):\n#\n")
    for line in ISC_NOTICE.strip("\n").split("\n"):
        out.write(("# " + line).rstrip() + "\n")
    out.write("code;latitude;longitude;zone;name\n")
    for row in rows:
        out.write(";".join(row) + "\n")


if __name__ == "__main__":
    main()
