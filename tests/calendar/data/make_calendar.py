#!/usr/bin/env python3
"""Writes calendar-1980-2100.txt: what Python's calendar says about every day from 1980 to 2100.

One line per year: the year, the Julian day number of 1 January, then seven digits per day, from 1 January on:
weekday (0 Sunday), ISO 8601 week, week counted from the first Sunday, week counted from the first Monday. A
week counted from the first Sunday (Monday) is strftime's %U (%W), and one more in years whose first days
before that weekday form a week of their own. In a year that starts on a Sunday the days before the first
Monday, a lone Sunday, belong to the week after them: there %W stands, and 1 for the lone day.
"""
from datetime import date, timedelta

JULIAN_DAY_OF_ORDINAL_0 = 1721425  # 1 January 2000 is ordinal 730120 and Julian day 2451545


def digits(day, first):
    sunday_week = int(day.strftime("%U")) + (0 if first.isoweekday() == 7 else 1)
    monday_week = int(day.strftime("%W")) + (0 if first.isoweekday() in (1, 7) else 1)
    return "%d%02d%02d%02d" % (day.isoweekday() % 7, day.isocalendar()[1], sunday_week, max(monday_week, 1))


with open("calendar-1980-2100.txt", "w", encoding="ascii", newline="\n") as out:
    for year in range(1980, 2101):
        first = date(year, 1, 1)
        length = (date(year + 1, 1, 1) - first).days
        days = "".join(digits(first + timedelta(i), first) for i in range(length))
        out.write("%d %d %s\n" % (year, first.toordinal() + JULIAN_DAY_OF_ORDINAL_0, days))
