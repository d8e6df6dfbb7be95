#pragma once

#include "cli/output/TimerShown.h"
#include "lang/Text.h"
#include "records/CVORec.h"

#include <QString>
#include <optional>
#include <span>

class CJsonText;

/// One record as it is shown.
struct RecordRow {
    const CVORec& record;
    std::optional<TimerShown> timer = {};
};

/// One field of a kind of records: its name in JSON and for sorting, how it is written, read by people,
/// compared. The functions take records of that kind only.
struct RecordColumn {
    const char* name;
    Text caption;
    bool isListed;  ///< stands in lists for people; single records show every field
    bool isNumber;  ///< aligned to the right
    void (*json)(CJsonText& json, const RecordRow& row);
    QString (*text)(const RecordRow& row);
    /// Below 0, 0, above 0. What isn't set comes first.
    int (*compare)(const CVORec& a, const CVORec& b);
};

/// All fields of a kind (time or expense) in the order of the JSON form.
[[nodiscard]] std::span<const RecordColumn> RecordColumns(RecordKind kind);
[[nodiscard]] const RecordColumn* FindRecordColumn(RecordKind kind, const QString& name);
/// By date, then by start where there is one, then by identity, so that every order is the same each time.
[[nodiscard]] int CompareDays(const CVORec& a, const CVORec& b);
/// "2026-11-19"; empty for a date that isn't set.
[[nodiscard]] QString IsoDate(int year, int month, int day);
