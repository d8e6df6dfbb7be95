#include "viewmodel/list/CellText.h"

#include "calendar/PassedTime.h"
#include "config/CCfgStore.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "lang/FormatText.h"
#include "timers/ActiveTimerSet.h"
#include "timers/TimerTexts.h"
#include "viewmodel/list/TimeNote.h"

#include <QStringList>

namespace {

QString DateText(const RecordDate& date, int yearDisplayFormat) {
    switch (yearDisplayFormat) {
        case 0:
            return date.longText;
        case 2:
            return date.dayText;
        default:
            return date.shortText;
    }
}

QString SpanText(const SpanField& span, const Settings& settings) {
    if (!span.IsSet()) return LoadText(Text::NoTime);
    return settings.spanDisplayFormat == 0 ? span.decimal.text : span.clockText;
}

/// While a timer runs or is paused, its count takes the place of the duration.
QString DurationText(const CTRecord& record, const Settings& settings, const ActiveTimerSet& timers) {
    const ActiveTimer* timer = timers.Find(record.GetId());
    const QString text = timer ? TimerCountText(*timer) : SpanText(record.spans.duration, settings);
    return TimeNote(record, timer, LocalZone()).isEmpty() ? text : FormatText<Text::MarkedSpan>(text);
}

QString CellSpanText(const CVORec& record, const FieldRow& field, const Settings& settings,
                     const ActiveTimerSet& timers) {
    if (field.id == FieldId::Duration)
        return DurationText(static_cast<const CTRecord&>(record), settings, timers);
    return SpanText(SpanOf(record, field), settings);
}

/// Null for a column of the other kind of records.
const FieldRow* FieldOf(const CVORec& record, int column) {
    const FieldRow* field = FieldOfColumn(column);
    return field && KindOf(*field) == record.Kind() ? field : nullptr;
}

}  // namespace

bool FlagOf(const CVORec& record, int column) {
    const FieldRow* field = FieldOf(record, column);
    return field && FlagOf(record, *field);
}

QString FlagInWords(const CVORec& record, int column, const CCfgStore& settings) {
    const QString caption = settings.ListColumns().EntryAt(column).caption;
    return FlagOf(record, column) ? FormatText<Text::FlagSet>(caption) : FormatText<Text::FlagClear>(caption);
}

QString CellText(const CVORec& record, int column, const Settings& settings, const ActiveTimerSet& timers) {
    const FieldRow* field = FieldOf(record, column);
    if (!field) return {};
    switch (field->form) {
        case FieldForm::Date:
            return DateText(ValueOf<RecordDate>(record, *field), settings.yearDisplayFormat);
        case FieldForm::Span:
            return CellSpanText(record, *field, settings, timers);
        case FieldForm::TimeOfDay:
            return TimeTextOf(record, *field);
        default:
            return TextOf(record, *field);
    }
}

QString CellNote(const CVORec& record, int column, const ActiveTimerSet& timers) {
    const FieldRow* field = FieldOf(record, column);
    if (!field || field->id != FieldId::Duration) return {};
    return TimeNote(static_cast<const CTRecord&>(record), timers.Find(record.GetId()), LocalZone());
}

QString RecordInWords(const CVORec& record, const CCfgStore& settings, const ActiveTimerSet& timers) {
    const CColSet& columns = settings.ListColumns();
    QStringList words;
    for (const int column : columns.Order(HalfOf(record.Kind()))) {
        if (IsImageColumn(column)) {
            words.append(FlagInWords(record, column, settings));
            continue;
        }
        const QString text = CellText(record, column, settings, timers);
        if (!text.isEmpty())
            words.append(FormatText<Text::RecordInWords>(columns.EntryAt(column).caption, text));
    }
    return words.join(QStringLiteral(", "));
}
