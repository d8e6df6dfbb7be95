#pragma once

#include <QString>

class CJsonText;
class CVORec;
struct FieldRow;

/// The value of a field as JSON; null for what isn't set.
void WriteFieldJson(CJsonText& json, const CVORec& record, const FieldRow& field);
/// The value as people read it; empty for what isn't set and for a flag that is clear.
[[nodiscard]] QString FieldWords(const CVORec& record, const FieldRow& field);
/// Below 0, 0, above 0. What isn't set comes first. Capitals and small letters count only between texts that
/// are equal otherwise.
[[nodiscard]] int CompareFields(const CVORec& a, const CVORec& b, const FieldRow& field);
/// Of a time of day: minutes since midnight, -1 without one.
[[nodiscard]] int MinuteOf(const CVORec& record, const FieldRow& field);
/// "2026-11-19".
[[nodiscard]] QString IsoDate(int year, int month, int day);
