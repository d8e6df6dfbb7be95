#pragma once

#include "cli/CTimerAccess.h"
#include "lang/Text.h"
#include "records/CTRecord.h"

#include <QString>
#include <optional>
#include <span>

class CJsonText;

/// One record as it is shown.
struct TimeRow {
    const CTRecord& record;
    std::optional<TimerShown> timer;
};

/// One field of a time record: its name in JSON and for sorting, how it is written, read by people, compared.
struct TimeColumn {
    const char* name;
    Text caption;
    bool isListed;  ///< stands in lists for people; single records show every field
    bool isNumber;  ///< aligned to the right
    void (*json)(CJsonText& json, const TimeRow& row);
    QString (*text)(const TimeRow& row);
    /// Below 0, 0, above 0. What isn't set comes first.
    int (*compare)(const CTRecord& a, const CTRecord& b);
};

/// All fields in the order of the JSON form.
[[nodiscard]] std::span<const TimeColumn> TimeColumns();
[[nodiscard]] const TimeColumn* FindTimeColumn(const QString& name);
/// By date, then by start, then by identity, so that every order is the same each time.
[[nodiscard]] int CompareDays(const CTRecord& a, const CTRecord& b);
/// "2026-11-19"; empty for a date that isn't set.
[[nodiscard]] QString IsoDate(int year, int month, int day);
