#pragma once

#include "fields/FieldRow.h"

#include <optional>

/// The value of a field in a record of its kind. Value is the type of the member by the field's form.
template <class Value>
[[nodiscard]] const Value& ValueOf(const CVORec& record, const FieldRow& field) {
    if (const auto* member = std::get_if<Value CTRecord::*>(&field.member))
        return static_cast<const CTRecord&>(record).**member;
    return static_cast<const CERecord&>(record).*std::get<Value CERecord::*>(field.member);
}

/// Of a span.
[[nodiscard]] inline const SpanField& SpanOf(const CVORec& record, const FieldRow& field) {
    return static_cast<const CTRecord&>(record).spans.*std::get<SpanField SpanSet::*>(field.member);
}

/// A time of day as a record holds it.
struct ClockTime {
    int hour = 0;  ///< 1 to 12
    int minute = 0;
    bool isPm = false;
    [[nodiscard]] bool operator==(const ClockTime&) const = default;
};
/// Nothing where there is none.
[[nodiscard]] std::optional<ClockTime> TimeOf(const CVORec& record, const FieldRow& field);

/// Whether a flag is set or notes are there; false for all other forms.
[[nodiscard]] bool FlagOf(const CVORec& record, const FieldRow& field);

/// What is stored or shown of a field as one text whatever the settings: texts, money, the distance. Empty
/// for all other forms.
[[nodiscard]] QString TextOf(const CVORec& record, const FieldRow& field);

/// Of a time of day: "--:--" without one.
[[nodiscard]] QString TimeTextOf(const CVORec& record, const FieldRow& field);

/// Whether two records of the field's kind hold the same in it: numbers as they are shown, a distance as it
/// is stored.
[[nodiscard]] bool HaveSame(const FieldRow& field, const CVORec& one, const CVORec& other);

/// Gives a record what another one of the same kind holds in a field; the fields bound to it aren't computed
/// anew.
void CopyField(const FieldRow& field, CVORec& to, const CVORec& from);
