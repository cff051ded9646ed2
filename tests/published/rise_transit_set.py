#!/usr/bin/python3
"""Writes rise-transit-set.csv, which is beside this file: rise, transit and set of the bodies by
PyEphem (Debian: python3-ephem), an ephemeris that shares no code with the library.

    tests/published/rise_transit_set.py > tests/published/rise-transit-set.csv

Refraction is 34' as the library takes it, of the Sun and the Moon the upper limb. Days whose events
are within two minutes of midnight are left out, as it is not certain which day they belong to.
"""

import random

import ephem

DUBLIN = 2415020.0  # day 0 of the program's dates
NAMES = ["Sun", "Mercury", "Venus", None, "Mars", "Jupiter", "Saturn", "Uranus", "Neptune", "Pluto", "Moon"]
EDGE = 2.0 / 1440.0


def observer_at(longitude, latitude):
    observer = ephem.Observer()
    observer.lon, observer.lat = str(longitude), str(latitude)
    observer.elevation, observer.pressure, observer.horizon = 0, 0, "-0:34"
    return observer


def minutes_of(find, body, observer, start, **options):
    """Of the day's event [min]; "none", "up", "down"; None when the day cannot be told."""
    observer.date = start - EDGE - DUBLIN
    try:
        moment = float(find(body, **options)) + DUBLIN
    except ephem.AlwaysUpError:
        return "up"
    except ephem.NeverUpError:
        return "down"
    if abs(moment - start) <= EDGE or abs(moment - start - 1.0) <= EDGE:
        return None
    return f"{(moment - start) * 1440.0:.2f}" if moment < start + 1.0 else "none"


def row(number, start, zone, longitude, latitude):
    body = getattr(ephem, NAMES[number])()
    observer = observer_at(longitude, latitude)
    centre = number not in (0, 10)
    rise = minutes_of(observer.next_rising, body, observer, start, use_center=centre)
    transit = minutes_of(observer.next_transit, body, observer, start)
    setting = minutes_of(observer.next_setting, body, observer, start, use_center=centre)
    if rise is None or transit is None or setting is None:
        return None
    if rise in ("up", "down"):
        setting = rise
        if rise == "down":
            transit = "down"
    return f"{number},{start + zone / 24.0:.1f},{zone},{longitude},{latitude},{rise},{transit},{setting}"


def rows():
    choose = random.Random(1900)
    bodies = [0, 10, 1, 10, 2, 10, 4, 0, 5, 10, 6, 0, 7, 10, 8, 9]
    for k in range(480):
        number = bodies[k % len(bodies)]
        local = choose.randrange(2415020, 2488069) + 0.5  # 1900 January 1 to 2099 December 31
        zone = choose.choice([0, 0, 1, -5, 5.5, 9, -10])
        longitude = round(choose.uniform(-180.0, 180.0), 2)
        latitude = choose.choice([-60.0, 60.0, round(choose.uniform(-60.0, 60.0), 2)])
        yield number, local - zone / 24.0, zone, longitude, latitude
    # Two months of the Moon day by day, with the days that have no rise, transit or set.
    for longitude, latitude, local in [(13.4, 52.5, 2460310.5), (-70.67, -33.45, 2435000.5), (18.07, 59.33, 2470000.5)]:
        for k in range(60):
            yield 10, local + k, 0, longitude, latitude
    # What stays up or down.
    for number in (0, 10, 1):
        for local in range(2460310, 2460676, 11):
            yield number, local + 0.5, 0, 18.96, 74.0


def main():
    print("# Rise, transit and set: number of the body (values.h), Julian day at which the civil day begins by its own")
    print("# clock, that clock less universal time [h], longitude east and latitude [deg], then minutes after the")
    print("# day's start, or none on this day, up (stays up), down (stays down).")
    print(f"# By rise_transit_set.py with PyEphem {ephem.__version__} (libastro).")
    for arguments in rows():
        line = row(*arguments)
        if line is not None and (arguments[4] <= 60.0 or ",up" in line or ",down" in line):
            print(line)


main()
