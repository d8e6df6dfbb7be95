#pragma once

#include "cli/output/CJsonText.h"
#include "cli/output/RecordColumns.h"
#include "lang/LoadText.h"
#include "records/FieldValues.h"

#include <tuple>

/// What the columns of both kinds of records are made of: for each form of field how it is written, read and
/// compared. The class of the record follows from the member that a part is made for.
namespace ColumnParts {

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

template <class Member>
struct OwnerOf;
template <class Owner, class Value>
struct OwnerOf<Value Owner::*> {
    using Record = Owner;
};

/// The record as the class that has this member.
template <auto Member>
const auto& As(const CVORec& record) {
    return static_cast<const typename OwnerOf<decltype(Member)>::Record&>(record);
}

// --- Texts: capitals and small letters count only between texts that are equal otherwise

template <auto Field>
void TextJson(CJsonText& json, const RecordRow& row) {
    json.Text(As<Field>(row.record).*Field);
}
template <auto Field>
QString PlainText(const RecordRow& row) {
    return As<Field>(row.record).*Field;
}
template <auto Field>
int CompareTexts(const CVORec& a, const CVORec& b) {
    const QString &first = As<Field>(a).*Field, &second = As<Field>(b).*Field;
    const int folded = first.compare(second, Qt::CaseInsensitive);
    return folded != 0 ? folded : first.compare(second);
}

// --- Flags

template <auto Field>
void FlagJson(CJsonText& json, const RecordRow& row) {
    json.Flag(As<Field>(row.record).*Field);
}
template <auto Field>
QString FlagText(const RecordRow& row) {
    return As<Field>(row.record).*Field ? LoadText(Text::YesWord) : QString();
}
template <auto Field>
int CompareFlags(const CVORec& a, const CVORec& b) {
    return Order(As<Field>(a).*Field, As<Field>(b).*Field);
}

// --- Money: Get tells whether there is any

template <auto Get, auto Field>
void MoneyJson(CJsonText& json, const RecordRow& row) {
    const auto& record = As<Field>(row.record);
    float value = 0.0F;
    (record.*Get)(value) ? json.Number(double{value}, (record.*Field).precision) : json.Null();
}
template <auto GetText>
QString MoneyText(const RecordRow& row) {
    return (As<GetText>(row.record).*GetText)();
}
template <auto Get>
int CompareMoney(const CVORec& a, const CVORec& b) {
    float first = 0.0F, second = 0.0F;
    const bool hasFirst = (As<Get>(a).*Get)(first), hasSecond = (As<Get>(b).*Get)(second);
    return hasFirst != hasSecond ? Order(hasFirst, hasSecond) : Order(first, second);
}

// --- Identity and date

inline void IdJson(CJsonText& json, const RecordRow& row) {
    json.Text(row.record.GetId());
}
inline QString IdText(const RecordRow& row) {
    return row.record.GetId();
}
inline int CompareIds(const CVORec& a, const CVORec& b) {
    return a.GetId().compare(b.GetId());
}

template <auto Date>
QString DateText(const RecordRow& row) {
    const RecordDate& date = As<Date>(row.record).*Date;
    return date.IsSet() ? IsoDate(date.year, date.month, date.day) : QString();
}
template <auto Date>
void DateJson(CJsonText& json, const RecordRow& row) {
    json.TextOrNull(DateText<Date>(row));
}
template <auto Date>
int CompareDates(const CVORec& a, const CVORec& b) {
    const RecordDate &first = As<Date>(a).*Date, &second = As<Date>(b).*Date;
    return Order(std::tie(first.year, first.month, first.day),
                 std::tie(second.year, second.month, second.day));
}

}  // namespace ColumnParts
