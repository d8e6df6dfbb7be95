#include "shell/core/CellText.h"

#include "config/ColumnTable.h"
#include "config/Settings.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "timers/ActiveTimerSet.h"

#include <QStringList>

namespace {

constexpr int kWhichStart = 3;
constexpr int kWhichEnd = 4;

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

QString DurationText(const CTRecord& record, const Settings& settings, const ActiveTimerSet& timers) {
    int hours = 0, minutes = 0, seconds = 0;
    if (timers.GetElapsed(record.GetId(), hours, minutes, seconds))
        return FormatText<Text::TimerCount>(hours, minutes, seconds);
    return SpanText(record.spans.duration, settings);
}

}  // namespace

bool FlagOf(const CTRecord& record, int column) {
    switch (column) {
        case Column::kBillable:
            return record.isBillable;
        case Column::kBilled:
            return record.isBilled;
        case Column::kExported:
            return record.isExported;
        default:
            return !record.notes.isEmpty();
    }
}

QString FlagInWords(const CTRecord& record, int column) {
    const QString& caption = LoadText(ColumnTable()[static_cast<std::size_t>(column)].caption);
    return FlagOf(record, column) ? FormatText<Text::FlagSet>(caption) : FormatText<Text::FlagClear>(caption);
}

QString ItemText(const CTRecord& record, int column) {
    switch (column) {
        case Column::kItem1:
            return record.item1;
        case Column::kItem2:
            return record.item2;
        case Column::kItem3:
            return record.item3;
        case Column::kItem4:
            return record.item4;
        case Column::kItem5:
            return record.item5;
        case Column::kRate:
            return record.GetRateText();
        case Column::kAmount:
            return record.GetAmountText();
        default:
            return {};
    }
}

QString TimeCellText(const CTRecord& record, int column, const Settings& settings,
                     const ActiveTimerSet& timers) {
    switch (column) {
        case Column::kDate:
            return DateText(record.date, settings.yearDisplayFormat);
        case Column::kDuration:
            return DurationText(record, settings, timers);
        case Column::kBreak:
            return SpanText(record.spans.breakTime, settings);
        case Column::kEffective:
            return SpanText(record.spans.effective, settings);
        case Column::kStart:
            return TimeTextOfRecord(record, kWhichStart);
        case Column::kEnd:
            return TimeTextOfRecord(record, kWhichEnd);
        case Column::kNotes:
            return record.notes;
        default:
            return ItemText(record, column);
    }
}

QString RecordInWords(const CTRecord& record, const Settings& settings, const ActiveTimerSet& timers) {
    QStringList words;
    for (const int column : VisibleTimeColumns()) {
        if (IsImageColumn(column)) {
            words.append(FlagInWords(record, column));
            continue;
        }
        const QString& caption = LoadText(ColumnTable()[static_cast<std::size_t>(column)].caption);
        const QString text = TimeCellText(record, column, settings, timers);
        if (!text.isEmpty()) words.append(FormatText<Text::RecordInWords>(caption, text));
    }
    return words.join(QStringLiteral(", "));
}
