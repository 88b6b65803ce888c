#!/usr/bin/env python3
"""Writes the source replies that the page maker's tests read, in the format of MET Norway's
Locationforecast 2.0 compact: hourly steps for 60 hours from the hour under way, then six-hourly
steps at 00, 06, 12 and 18 UTC up to nine days.

    cd tests/gateway/replies && python3 makereplies.py

Each scenario gives, for the six periods of the page in the place's local time (days 06:00 to
18:00, nights 18:00 to 06:00) and then a mild default, the period's extreme temperature (the
high of a day, the low of a night: one step holds it exactly, the others are 0.5 to 6 degrees
short of it), its cloud cover, its wind (the step nearest the peak blows at the high speed, the
others at the low one, all from one direction), its symbol and its precipitation an hour. So the
tests can write out what each block must say.
"""

import datetime as dt
import json
import zoneinfo

UTC = dt.timezone.utc

# extreme C, cloud %, wind low m/s, wind high m/s, from degrees, symbol (None: from the cloud), mm an hour
DEFAULT = (15.0, 50, 3.0, 3.0, 270, None, 0.0)

SCENARIOS = {
    "paris-summer": dict(lat=49.0167, lon=2.5333, zone="Europe/Paris", now="2024-07-10T10:20:00Z", periods=[
        (23.9, 40, 3.0, 5.0, 225, None, 0.0),
        (12.2, 10, 1.0, 2.0, 270, None, 0.0),
        (26.7, 70, 4.0, 8.0, 180, "rainshowers", 1.0),
        (15.0, 90, 3.0, 4.0, 225, "lightrain", 0.3),
        (22.2, 20, 2.0, 4.0, 315, None, 0.0),
        (16.1, 0, 0.0, 0.5, 0, None, 0.0),
    ]),
    "paris-winter": dict(lat=49.0167, lon=2.5333, zone="Europe/Paris", now="2024-01-17T20:20:00Z", periods=[
        (-2.8, 100, 0.0, 1.0, 90, "fog", 0.0),
        (-0.6, 100, 4.0, 7.0, 90, "rain", 0.8),
        (-3.9, 100, 3.0, 5.0, 45, "lightsnow", 0.2),
        (2.2, 95, 5.0, 9.0, 0, "sleet", 0.5),
        (-1.1, 50, 2.0, 3.0, 0, None, 0.0),
        (3.9, 30, 2.0, 4.0, 270, None, 0.0),
    ]),
    "winnipeg-cold": dict(lat=49.9000, lon=-97.2333, zone="America/Winnipeg", now="2024-01-10T14:20:00Z", periods=[
        (-15.0, 0, 5.0, 8.0, 315, None, 0.0),
        (-30.0, 0, 0.0, 0.5, 0, None, 0.0),
        (-20.6, 80, 2.0, 4.0, 0, "lightsnowshowers", 0.1),
        (-23.3, 10, 1.0, 2.0, 315, None, 0.0),
        (-12.2, 40, 3.0, 6.0, 180, None, 0.0),
        (-17.8, 60, 2.0, 3.0, 180, None, 0.0),
    ]),
    "phoenix-hot": dict(lat=33.4333, lon=-112.0167, zone="America/Phoenix", now="2024-07-17T19:20:00Z", periods=[
        (45.0, 0, 3.0, 6.0, 270, None, 0.0),
        (32.2, 5, 2.0, 3.0, 90, None, 0.0),
        (37.8, 50, 4.0, 12.0, 135, "rainshowersandthunder", 2.0),
        (29.4, 30, 2.0, 4.0, 90, None, 0.0),
        (37.2, 10, 3.0, 5.0, 270, None, 0.0),
        (27.8, 0, 1.0, 2.0, 90, None, 0.0),
    ]),
    "london-storm": dict(lat=51.4833, lon=-0.4500, zone="Europe/London", now="2024-02-14T07:20:00Z", periods=[
        (11.1, 100, 25.0, 32.0, 225, "heavyrain", 4.0),
        (7.2, 100, 20.0, 28.0, 270, "heavyrainshowers", 1.5),
        (8.3, 70, 7.0, 10.0, 315, "lightrainshowers", 0.2),
        (3.3, 30, 4.0, 6.0, 315, None, 0.0),
        (9.4, 60, 3.0, 5.0, 270, None, 0.0),
        (4.4, 90, 3.0, 5.0, 225, "cloudy", 0.0),
    ]),
    "singapore-calm": dict(lat=1.3667, lon=103.9833, zone="Asia/Singapore", now="2024-03-06T01:20:00Z", periods=[
        (31.1, 60, 0.0, 0.8, 180, None, 0.0),
        (25.0, 40, 0.0, 0.5, 180, None, 0.0),
        (32.2, 70, 0.2, 1.0, 90, "rainshowersandthunder", 3.0),
        (25.6, 50, 0.0, 0.6, 90, None, 0.0),
        (31.7, 40, 0.3, 1.1, 45, None, 0.0),
        (24.4, 30, 0.0, 0.4, 45, None, 0.0),
    ]),
    "sydney-winter": dict(lat=-33.9500, lon=151.1833, zone="Australia/Sydney", now="2024-07-09T22:20:00Z", periods=[
        (17.2, 20, 3.0, 6.0, 270, None, 0.0),
        (7.8, 0, 1.0, 2.0, 270, None, 0.0),
        (16.1, 80, 4.0, 7.0, 180, "lightrain", 0.4),
        (8.9, 60, 3.0, 4.0, 180, None, 0.0),
        (18.3, 10, 2.0, 5.0, 315, None, 0.0),
        (9.4, 20, 1.0, 3.0, 315, None, 0.0),
    ]),
    # 17:55 in Kathmandu (UTC+5:45): "Today" holds one step, the hour under way.
    "kathmandu-evening": dict(lat=27.7000, lon=85.3667, zone="Asia/Kathmandu", now="2024-07-10T12:10:00Z", periods=[
        (28.9, 90, 1.0, 2.0, 135, "rain", 1.2),
        (20.0, 100, 0.5, 1.5, 135, "rain", 2.0),
        (27.2, 80, 1.0, 3.0, 225, "rainshowers", 0.8),
        (20.6, 90, 0.5, 1.0, 225, None, 0.0),
        (26.1, 70, 1.0, 3.0, 270, None, 0.0),
        (19.4, 80, 0.5, 1.0, 270, "lightrain", 0.2),
    ]),
}

# The symbols the source writes with a _day, _night or _polartwilight ending.
WITH_TIME_OF_DAY = ("clearsky", "fair", "partlycloudy")


def sky_symbol(cloud):
    if cloud < 12.5:
        return "clearsky"
    if cloud < 37.5:
        return "fair"
    if cloud < 87.5:
        return "partlycloudy"
    return "cloudy"


def full_symbol(base, day):
    if base in WITH_TIME_OF_DAY or "showers" in base:
        return base + ("_day" if day else "_night")
    return base


def step_times(now):
    first = now.replace(minute=0, second=0)
    times = [first + dt.timedelta(hours=h) for h in range(60)]
    t = times[-1] + dt.timedelta(hours=1)
    while t.hour % 6:
        t += dt.timedelta(hours=1)
    while t < first + dt.timedelta(days=9):
        times.append(t)
        t += dt.timedelta(hours=6)
    return times


def period_key(t, zone):
    """The local period a time falls in: (date the period starts, is it a day), and its peak."""
    local = t.astimezone(zone)
    if 6 <= local.hour < 18:
        start = local.replace(hour=6, minute=0, second=0)
        return (local.date(), True), start + dt.timedelta(hours=9)
    date = local.date() if local.hour >= 18 else local.date() - dt.timedelta(days=1)
    start = dt.datetime.combine(date, dt.time(18), zone)
    return (date, False), start + dt.timedelta(hours=11)


def make(scenario):
    zone = zoneinfo.ZoneInfo(scenario["zone"])
    now = dt.datetime.fromisoformat(scenario["now"].replace("Z", "+00:00"))
    times = step_times(now)
    groups = {}
    for t in times:
        key, peak = period_key(t, zone)
        groups.setdefault(key, (peak, []))[1].append(t)
    series = []
    for index, (key, (peak, members)) in enumerate(groups.items()):
        values = scenario["periods"][index] if index < len(scenario["periods"]) else DEFAULT
        extreme, cloud, low, high, direction, symbol, rate = values
        day = key[1]
        nearest = min(members, key=lambda t: abs((t - peak).total_seconds()))
        base = symbol or sky_symbol(cloud)
        for t in members:
            hours_off = abs((t - peak).total_seconds()) / 3600
            short = 0 if t == nearest else 0.5 + min(5.5, 0.5 * hours_off)
            temperature = extreme - short if day else extreme + short
            wet = rate if symbol and symbol not in ("fog", "cloudy") else 0.0
            code = full_symbol(base, day)
            data = {
                "instant": {"details": {
                    "air_pressure_at_sea_level": 1013.2,
                    "air_temperature": round(temperature, 1),
                    "cloud_area_fraction": float(cloud),
                    "relative_humidity": 70.0,
                    "wind_from_direction": float(direction),
                    "wind_speed": high if t == nearest else low,
                }},
                "next_12_hours": {"summary": {"symbol_code": code}, "details": {}},
                "next_6_hours": {"summary": {"symbol_code": code}, "details": {"precipitation_amount": round(6 * wet, 1)}},
            }
            hourly = t < times[0] + dt.timedelta(hours=60)
            if hourly:
                data["next_1_hours"] = {"summary": {"symbol_code": code},
                                        "details": {"precipitation_amount": round(wet, 1)}}
            series.append({"time": t.strftime("%Y-%m-%dT%H:%M:%SZ"), "data": data})
    return {
        "type": "Feature",
        "geometry": {"type": "Point", "coordinates": [scenario["lon"], scenario["lat"], 100]},
        "properties": {
            "meta": {
                "updated_at": (now - dt.timedelta(minutes=35)).strftime("%Y-%m-%dT%H:%M:%SZ"),
                "units": {"air_pressure_at_sea_level": "hPa", "air_temperature": "celsius",
                          "cloud_area_fraction": "%", "precipitation_amount": "mm",
                          "relative_humidity": "%", "wind_from_direction": "degrees", "wind_speed": "m/s"},
            },
            "timeseries": series,
        },
    }


def main():
    for name, scenario in SCENARIOS.items():
        with open(name + ".json", "w") as f:
            json.dump(make(scenario), f, separators=(",", ":"))
            f.write("\n")
    # The summer reply cut in its middle, as a dropped connection leaves it.
    with open("paris-summer.json") as f:
        whole = f.read()
    with open("paris-cut.json", "w") as f:
        f.write(whole[: len(whole) // 2])
    # The summer reply with nonsense: 1000 degrees in the afternoon, and a step without its wind.
    reply = make(SCENARIOS["paris-summer"])
    series = reply["properties"]["timeseries"]
    series[3]["data"]["instant"]["details"]["air_temperature"] = 1000.0
    del series[20]["data"]["instant"]["details"]["wind_speed"]
    with open("paris-nonsense.json", "w") as f:
        json.dump(reply, f, separators=(",", ":"))
        f.write("\n")


if __name__ == "__main__":
    main()
