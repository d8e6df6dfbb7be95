#include "viewmodel/list/CellText.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
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

bool IsTime(const CVORec& record) {
    return record.Kind() == RecordKind::Time;
}
const CTRecord& TimeOf(const CVORec& record) {
    return static_cast<const CTRecord&>(record);
}
const CERecord& ExpenseOf(const CVORec& record) {
    return static_cast<const CERecord&>(record);
}

}  // namespace

// --- Flags

bool FlagOf(const CTRecord& record, int column) {
    switch (column) {
        case Column::kBillable:
            return record.isBillable;
        case Column::kBilled:
            return record.isBilled;
        case Column::kExported:
            return record.isExported;
        case Column::kNotes:
            return !record.notes.isEmpty();
        default:
            return false;
    }
}

bool FlagOf(const CERecord& record, int column) {
    switch (column) {
        case Column::kIsDistance:
            return record.isDistance;
        case Column::kFlag1:
            return record.flag1;
        case Column::kFlag2:
            return record.flag2;
        case Column::kFlag3:
            return record.flag3;
        case Column::kFlag4:
            return record.flag4;
        case Column::kFlag5:
            return record.flag5;
        case Column::kExpenseExported:
            return record.isExported;
        case Column::kExpenseNotes:
            return !record.notes.isEmpty();
        default:
            return false;
    }
}

bool FlagOf(const CVORec& record, int column) {
    return IsTime(record) ? FlagOf(TimeOf(record), column) : FlagOf(ExpenseOf(record), column);
}

QString FlagInWords(const CVORec& record, int column, const CCfgStore& settings) {
    const QString caption = settings.ListColumns().EntryAt(column).caption;
    return FlagOf(record, column) ? FormatText<Text::FlagSet>(caption) : FormatText<Text::FlagClear>(caption);
}

// --- Texts

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

QString ItemText(const CERecord& record, int column) {
    switch (column) {
        case Column::kExpenseItem1:
            return record.item1;
        case Column::kExpenseItem2:
            return record.item2;
        case Column::kExpenseItem3:
            return record.item3;
        case Column::kExpenseItem4:
            return record.item4;
        case Column::kExpenseItem5:
            return record.item5;
        case Column::kDistance:
            return record.distance.text;
        case Column::kExpenseRate:
            return record.GetRateText();
        case Column::kExpenseAmount:
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

QString ExpenseCellText(const CERecord& record, int column, const Settings& settings) {
    switch (column) {
        case Column::kExpenseDate:
            return DateText(record.date, settings.yearDisplayFormat);
        case Column::kExpenseNotes:
            return record.notes;
        default:
            return ItemText(record, column);
    }
}

QString CellText(const CVORec& record, int column, const Settings& settings, const ActiveTimerSet& timers) {
    return IsTime(record) ? TimeCellText(TimeOf(record), column, settings, timers)
                          : ExpenseCellText(ExpenseOf(record), column, settings);
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
