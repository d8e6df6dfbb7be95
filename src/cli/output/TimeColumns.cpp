#include "cli/output/TimeColumns.h"

#include "calendar/CalendarMath.h"
#include "calendar/NumberText.h"
#include "cli/output/ColumnParts.h"
#include "lang/FormatText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CTRecord.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using namespace ColumnParts;

const CTRecord& TimeOf(const CVORec& record) {
    return static_cast<const CTRecord&>(record);
}

/// A number with zeros in front.
QString Digits(int number, qsizetype width) {
    return QString::number(number).rightJustified(width, u'0');
}

// --- Times of day: minutes since midnight, -1 without one

using GetTime = bool (CTRecord::*)(int&, int&, bool&) const;

template <GetTime Get>
int MinuteOf(const CVORec& record) {
    int hour = 0, minute = 0;
    bool isPm = false;
    return (TimeOf(record).*Get)(hour, minute, isPm) ? Hour24Of(hour, isPm) * 60 + minute : -1;
}

template <GetTime Get>
void TimeJson(CJsonText& json, const RecordRow& row) {
    const int minute = MinuteOf<Get>(row.record);
    minute < 0 ? json.Null() : json.Text(Digits(minute / 60, 2) + u':' + Digits(minute % 60, 2));
}

template <GetTime Get>
QString TimeText(const RecordRow& row) {
    int hour = 0, minute = 0;
    bool isPm = false;
    if (!(TimeOf(row.record).*Get)(hour, minute, isPm)) return {};
    return FormatTimeOfDay(TheRegion(), hour, minute, isPm);
}

template <GetTime Get>
int CompareTimes(const CVORec& a, const CVORec& b) {
    return Order(MinuteOf<Get>(a), MinuteOf<Get>(b));
}

// --- Spans: whole minutes, -1 without one

template <SpanField SpanSet::*Span>
qint64 MinutesOf(const CVORec& record) {
    const SpanField& span = TimeOf(record).spans.*Span;
    return span.IsSet() ? qint64{span.hours} * 60 + span.minutes : -1;
}

template <SpanField SpanSet::*Span>
void SpanJson(CJsonText& json, const RecordRow& row) {
    const qint64 minutes = MinutesOf<Span>(row.record);
    minutes < 0 ? json.Null() : json.Integer(minutes);
}

template <SpanField SpanSet::*Span>
QString SpanText(const RecordRow& row) {
    const SpanField& span = TimeOf(row.record).spans.*Span;
    return span.IsSet() ? span.clockText : QString();
}

template <SpanField SpanSet::*Span>
int CompareSpans(const CVORec& a, const CVORec& b) {
    return Order(MinutesOf<Span>(a), MinutesOf<Span>(b));
}

// --- Timer

void TimerJson(CJsonText& json, const RecordRow& row) {
    if (!row.timer) return json.Null();
    json.BeginObject();
    json.Key("state");
    json.Text(row.timer->isRunning ? u"running"_s : u"paused"_s);
    json.Key("seconds");
    json.Integer(row.timer->seconds);
    json.EndObject();
}

QString TimerText(const RecordRow& row) {
    if (!row.timer) return {};
    const int seconds = static_cast<int>(row.timer->seconds);
    const QString count = FormatText<Text::TimerCount>(seconds / 3600, seconds / 60 % 60, seconds % 60);
    return row.timer->isRunning ? FormatText<Text::CliTimerRuns>(count)
                                : FormatText<Text::CliTimerPaused>(count);
}

constexpr RecordColumn kColumns[] = {
    {"id", Text::CliIdentity, true, false, IdJson, IdText, CompareIds},
    {"date", Text::ColumnCaptionDate, true, false, DateJson<&CTRecord::date>, DateText<&CTRecord::date>,
     CompareDates<&CTRecord::date>},
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
     MoneyText<&CTRecord::GetRateText>, CompareMoney<&CTRecord::GetRate>},
    {"amount", Text::FieldAmount, true, true, MoneyJson<&CTRecord::GetAmount, &CTRecord::amount>,
     MoneyText<&CTRecord::GetAmountText>, CompareMoney<&CTRecord::GetAmount>},
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

std::span<const RecordColumn> TimeColumns() {
    return kColumns;
}

int CompareTimeDays(const CVORec& a, const CVORec& b) {
    if (const int dates = CompareDates<&CTRecord::date>(a, b); dates != 0) return dates;
    if (const int starts = CompareTimes<&CTRecord::GetStart>(a, b); starts != 0) return starts;
    return CompareIds(a, b);
}
