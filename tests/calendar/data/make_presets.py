#!/usr/bin/env python3
"""Writes presets.csv: the dates of every period preset on chosen days, worked out with Python's calendar.

Columns: preset, today, first day of the week (0 Sunday), start, end. The odd results that are wanted are
spelled out here as they are promised: every February ends on the 29th, quarters 1, 2 and 4 are October to
December, "next quarter" ends today.
"""
from datetime import date, timedelta

LAST_DAYS = [31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31]
# quarter of today: (this quarter, quarter before, start of the next quarter); {0} this year, {-1} last, {1} next
AUTUMN, SUMMER = ("{y}-10-01", "{y}-12-31"), ("{y}-07-01", "{y}-09-30")
QUARTERS = {
    1: ((AUTUMN, 0), (AUTUMN, -1), ("{y}-10-01", 0)),
    2: ((AUTUMN, 0), (AUTUMN, 0), ("{y}-07-01", 0)),
    3: ((SUMMER, 0), (AUTUMN, 0), ("{y}-10-01", 0)),
    4: ((AUTUMN, 0), (SUMMER, 0), ("{y}-10-01", 1)),
}


def month(today, offset):
    year, number = today.year, today.month + offset
    if number in (0, 13):
        year, number = year + (1 if number else -1), 1 if number else 12
    return "%d-%02d-01" % (year, number), "%d-%02d-%02d" % (year, number, LAST_DAYS[number - 1])


def presets(today, first_day):
    day = lambda n: (today + timedelta(n)).isoformat()
    into = (today.isoweekday() % 7 - first_day) % 7
    this_quarter, before, following = QUARTERS[(today.month - 1) // 3 + 1]
    quarter = [text.format(y=today.year + this_quarter[1]) for text in this_quarter[0]]
    earlier = [text.format(y=today.year + before[1]) for text in before[0]]
    year = lambda n: ("%d-01-01" % (today.year + n), "%d-12-31" % (today.year + n))
    return {
        1: (day(0), day(0)), 2: (day(-into), day(6 - into)), 3: (day(-into - 7), day(6 - into)),
        4: month(today, 0), 16: (day(-1), day(-1)), 10: (day(-into), day(0)), 11: (month(today, 0)[0], day(0)),
        12: quarter, 13: (quarter[0], day(0)), 14: year(0), 15: (year(0)[0], day(0)),
        17: (day(-into - 7), day(-into - 1)), 18: (day(-into - 7), day(0)), 19: month(today, -1),
        21: earlier, 22: (earlier[0], day(0)), 23: year(-1), 24: (year(-1)[0], day(0)),
        25: (day(7 - into), day(13 - into)), 26: (day(1), day(29)), 27: month(today, 1),
        28: (following[0].format(y=today.year + following[1]), day(0)), 29: year(1),
    }


TODAYS = [("2023-02-14", 1), ("2024-02-29", 1), ("2025-01-01", 1), ("2025-05-15", 0), ("2025-08-31", 1),
          ("2026-11-19", 1), ("2026-12-31", 1), ("2003-01-31", 6), ("2024-03-31", 0), ("2023-03-01", 3)]
TODAYS += [("2026-11-22", first_day) for first_day in range(7)]  # a Sunday under every first day of the week

with open("presets.csv", "w", encoding="ascii", newline="\n") as out:
    for text, first_day in TODAYS:
        for preset, (start, end) in presets(date.fromisoformat(text), first_day).items():
            out.write("%d,%s,%d,%s,%s\n" % (preset, text, first_day, start, end))
