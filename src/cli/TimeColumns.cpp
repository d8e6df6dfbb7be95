#include "cli/TimeColumns.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "cli/CJsonText.h"
#include "lang/FormatText.h"
#include "platform/CRegionalInfo.h"

#include <algorithm>
#include <tuple>

using namespace Qt::Literals::StringLiterals;

namespace {

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

int OrderTexts(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded : a.compare(b);
}

/// A number with zeros in front.
QString Digits(int number, qsizetype width) {
    return QString::number(number).rightJustified(width, u'0');
}

QString YesOrNothing(bool flag) {
    return flag ? LoadText(Text::YesWord) : QString();
}

// --- Times of day: minutes since midnight, -1 without one

using GetTime = bool (CTRecord::*)(int&, int&, bool&) const;

template <GetTime Get>
int MinuteOf(const CTRecord& record) {
    int hour = 0, minute = 0;
    bool isPm = false;
    return (record.*Get)(hour, minute, isPm) ? Hour24Of(hour, isPm) * 60 + minute : -1;
}

template <GetTime Get>
void TimeJson(CJsonText& json, const TimeRow& row) {
    const int minute = MinuteOf<Get>(row.record);
    minute < 0 ? json.Null() : json.Text(Digits(minute / 60, 2) + u':' + Digits(minute % 60, 2));
}

template <GetTime Get>
QString TimeText(const TimeRow& row) {
    int hour = 0, minute = 0;
    bool isPm = false;
    if (!(row.record.*Get)(hour, minute, isPm)) return {};
    return FormatTimeOfDay(TheRegion(), hour, minute, isPm);
}

template <GetTime Get>
int CompareTimes(const CTRecord& a, const CTRecord& b) {
    return Order(MinuteOf<Get>(a), MinuteOf<Get>(b));
}

// --- Spans: whole minutes, -1 without one

template <SpanField SpanSet::*Span>
qint64 MinutesOf(const CTRecord& record) {
    const SpanField& span = record.spans.*Span;
    return span.IsSet() ? qint64{span.hours} * 60 + span.minutes : -1;
}

template <SpanField SpanSet::*Span>
void SpanJson(CJsonText& json, const TimeRow& row) {
    const qint64 minutes = MinutesOf<Span>(row.record);
    minutes < 0 ? json.Null() : json.Integer(minutes);
}

template <SpanField SpanSet::*Span>
QString SpanText(const TimeRow& row) {
    const SpanField& span = row.record.spans.*Span;
    return span.IsSet() ? span.clockText : QString();
}

template <SpanField SpanSet::*Span>
int CompareSpans(const CTRecord& a, const CTRecord& b) {
    return Order(MinutesOf<Span>(a), MinutesOf<Span>(b));
}

// --- Texts, money, flags

template <QString CTRecord::*Field>
void TextJson(CJsonText& json, const TimeRow& row) {
    json.Text(row.record.*Field);
}
template <QString CTRecord::*Field>
QString PlainText(const TimeRow& row) {
    return row.record.*Field;
}
template <QString CTRecord::*Field>
int CompareTexts(const CTRecord& a, const CTRecord& b) {
    return OrderTexts(a.*Field, b.*Field);
}

using GetMoney = bool (CTRecord::*)(float&) const;

template <GetMoney Get, DecimalField CTRecord::*Field>
void MoneyJson(CJsonText& json, const TimeRow& row) {
    float value = 0.0F;
    (row.record.*Get)(value) ? json.Number(double{value}, (row.record.*Field).precision) : json.Null();
}
template <GetMoney Get>
int CompareMoney(const CTRecord& a, const CTRecord& b) {
    float first = 0.0F, second = 0.0F;
    const bool hasFirst = (a.*Get)(first), hasSecond = (b.*Get)(second);
    return hasFirst != hasSecond ? Order(hasFirst, hasSecond) : Order(first, second);
}

template <bool CTRecord::*Field>
void FlagJson(CJsonText& json, const TimeRow& row) {
    json.Flag(row.record.*Field);
}
template <bool CTRecord::*Field>
QString FlagText(const TimeRow& row) {
    return YesOrNothing(row.record.*Field);
}
template <bool CTRecord::*Field>
int CompareFlags(const CTRecord& a, const CTRecord& b) {
    return Order(a.*Field, b.*Field);
}

// --- Identity, date, timer

int CompareIds(const CTRecord& a, const CTRecord& b) {
    return a.GetId().compare(b.GetId());
}

int CompareDates(const CTRecord& a, const CTRecord& b) {
    return Order(std::tuple(a.date.year, a.date.month, a.date.day),
                 std::tuple(b.date.year, b.date.month, b.date.day));
}

QString DateOf(const CTRecord& record) {
    return record.date.IsSet() ? IsoDate(record.date.year, record.date.month, record.date.day) : QString();
}

void TimerJson(CJsonText& json, const TimeRow& row) {
    if (!row.timer) return json.Null();
    json.BeginObject();
    json.Key("state");
    json.Text(row.timer->isRunning ? u"running"_s : u"paused"_s);
    json.Key("seconds");
    json.Integer(row.timer->seconds);
    json.EndObject();
}

QString TimerText(const TimeRow& row) {
    if (!row.timer) return {};
    const int seconds = static_cast<int>(row.timer->seconds);
    const QString count = FormatText<Text::TimerCount>(seconds / 3600, seconds / 60 % 60, seconds % 60);
    return row.timer->isRunning ? FormatText<Text::CliTimerRuns>(count)
                                : FormatText<Text::CliTimerPaused>(count);
}

constexpr TimeColumn kColumns[] = {
    {"id", Text::CliIdentity, true, false,
     [](CJsonText& json, const TimeRow& row) { json.Text(row.record.GetId()); },
     [](const TimeRow& row) { return row.record.GetId(); }, CompareIds},
    {"date", Text::ColumnCaptionDate, true, false,
     [](CJsonText& json, const TimeRow& row) { json.TextOrNull(DateOf(row.record)); },
     [](const TimeRow& row) { return DateOf(row.record); }, CompareDates},
    {"start", Text::ColumnCaptionStart, true, true, TimeJson<&CTRecord::GetStart>,
     TimeText<&CTRecord::GetStart>, CompareTimes<&CTRecord::GetStart>},
    {"end", Text::ColumnCaptionEnd, true, true, TimeJson<&CTRecord::GetEnd>, TimeText<&CTRecord::GetEnd>,
     CompareTimes<&CTRecord::GetEnd>},
    {"duration", Text::ColumnCaptionDuration, false, true, SpanJson<&SpanSet::duration>,
     SpanText<&SpanSet::duration>, CompareSpans<&SpanSet::duration>},
    {"break", Text::ColumnCaptionBreak, false, true, SpanJson<&SpanSet::breakTime>,
     SpanText<&SpanSet::breakTime>, CompareSpans<&SpanSet::breakTime>},
    {"effective", Text::ColumnCaptionEffective, true, true, SpanJson<&SpanSet::effective>,
     SpanText<&SpanSet::effective>, CompareSpans<&SpanSet::effective>},
    {"item1", Text::FieldClient, true, false, TextJson<&CTRecord::item1>, PlainText<&CTRecord::item1>,
     CompareTexts<&CTRecord::item1>},
    {"item2", Text::FieldProject, true, false, TextJson<&CTRecord::item2>, PlainText<&CTRecord::item2>,
     CompareTexts<&CTRecord::item2>},
    {"item3", Text::FieldActivity, true, false, TextJson<&CTRecord::item3>, PlainText<&CTRecord::item3>,
     CompareTexts<&CTRecord::item3>},
    {"item4", Text::FieldCostCentre, false, false, TextJson<&CTRecord::item4>, PlainText<&CTRecord::item4>,
     CompareTexts<&CTRecord::item4>},
    {"item5", Text::FieldCurrency, true, false, TextJson<&CTRecord::item5>, PlainText<&CTRecord::item5>,
     CompareTexts<&CTRecord::item5>},
    {"rate", Text::FieldRate, false, true, MoneyJson<&CTRecord::GetRate, &CTRecord::rate>,
     [](const TimeRow& row) { return row.record.GetRateText(); }, CompareMoney<&CTRecord::GetRate>},
    {"amount", Text::FieldAmount, true, true, MoneyJson<&CTRecord::GetAmount, &CTRecord::amount>,
     [](const TimeRow& row) { return row.record.GetAmountText(); }, CompareMoney<&CTRecord::GetAmount>},
    {"isBillable", Text::ColumnCaptionBillable, false, false, FlagJson<&CTRecord::isBillable>,
     FlagText<&CTRecord::isBillable>, CompareFlags<&CTRecord::isBillable>},
    {"isBilled", Text::ColumnCaptionBilled, true, false, FlagJson<&CTRecord::isBilled>,
     FlagText<&CTRecord::isBilled>, CompareFlags<&CTRecord::isBilled>},
    {"isExported", Text::ColumnCaptionExported, false, false, FlagJson<&CTRecord::isExported>,
     FlagText<&CTRecord::isExported>, CompareFlags<&CTRecord::isExported>},
    {"notes", Text::ColumnCaptionNotes, false, false, TextJson<&CTRecord::notes>, PlainText<&CTRecord::notes>,
     CompareTexts<&CTRecord::notes>},
    {"timer", Text::CliTimer, true, false, TimerJson, TimerText, nullptr},
};

}  // namespace

std::span<const TimeColumn> TimeColumns() {
    return kColumns;
}

const TimeColumn* FindTimeColumn(const QString& name) {
    const auto found = std::find_if(std::begin(kColumns), std::end(kColumns), [&](const TimeColumn& column) {
        return name == QLatin1String(column.name);
    });
    return found == std::end(kColumns) ? nullptr : found;
}

int CompareDays(const CTRecord& a, const CTRecord& b) {
    if (const int dates = CompareDates(a, b); dates != 0) return dates;
    if (const int starts = CompareTimes<&CTRecord::GetStart>(a, b); starts != 0) return starts;
    return CompareIds(a, b);
}

QString IsoDate(int year, int month, int day) {
    return Digits(year, 4) + u'-' + Digits(month, 2) + u'-' + Digits(day, 2);
}
