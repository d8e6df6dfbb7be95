#pragma once

#include "calendar/DateTimeVal.h"

#include <QString>

/// Days in tests are written "2026-11-19", times "11:45 PM".

[[nodiscard]] inline DateTimeVal DayOf(const QString& iso) {
    DateTimeVal value;
    value.SetDate(iso.section(u'-', 1, 1).toInt(), iso.section(u'-', 2, 2).toInt(),
                  iso.section(u'-', 0, 0).toInt());
    return value;
}

[[nodiscard]] inline QString IsoOf(const DateTimeVal& value) {
    return QString::asprintf("%04d-%02d-%02d", value.year, value.month, value.day);
}

[[nodiscard]] inline DateTimeVal TimeOf(const QString& text) {
    DateTimeVal value;
    value.SetTime(text.section(u':', 0, 0).toInt(), text.section(u':', 1, 1).left(2).toInt(),
                  text.endsWith(QStringLiteral("PM")));
    return value;
}

[[nodiscard]] inline QString TimeTextOf(const DateTimeVal& value) {
    return QString::asprintf("%d:%02d %s", value.hour12, value.minute, value.isPm != 0 ? "PM" : "AM");
}
