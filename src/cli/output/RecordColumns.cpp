#include "cli/output/RecordColumns.h"

#include "cli/output/CJsonText.h"
#include "cli/output/FieldOutput.h"
#include "fields/FieldTable.h"
#include "lang/FormatText.h"
#include "timers/TimerTexts.h"
#include "timers/TrueTime.h"

#include <algorithm>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What stands beside the fields.
struct OtherColumn {
    const char* name;
    Text caption;
};
constexpr OtherColumn kIdentity = {"id", Text::CliIdentity};
constexpr OtherColumn kTimer = {"timer", Text::CliTimer};

const OtherColumn& OtherOf(ColumnContent content) {
    return content == ColumnContent::Identity ? kIdentity : kTimer;
}

void WriteTimer(CJsonText& json, const std::optional<TimerShown>& timer) {
    if (!timer) return json.Null();
    json.BeginObject();
    json.Key("state");
    json.Text(timer->isRunning ? u"running"_s : u"paused"_s);
    json.Key("seconds");
    json.Integer(timer->seconds);
    json.EndObject();
}

QString TimerWords(const std::optional<TimerShown>& timer) {
    if (!timer) return {};
    const QString count = TimerCountText(timer->seconds);
    QString words =
        timer->isRunning ? FormatText<Text::CliTimerRuns>(count) : FormatText<Text::CliTimerPaused>(count);
    const auto difference = DifferenceOf(timer->seconds, timer->trueSeconds);
    if (!difference) return words;
    return FormatText<Text::CliTimerWithTrueTime>(words, TimerCountText(difference->passed));
}

int CompareDates(const CVORec& a, const CVORec& b) {
    static const FieldRow& kDay = *FieldOfColumn(Column::kDate);
    static const FieldRow& kExpenseDay = *FieldOfColumn(Column::kExpenseDate);
    return CompareFields(a, b, a.Kind() == RecordKind::Time ? kDay : kExpenseDay);
}

/// Only time records have timers.
std::vector<RecordColumn> MakeColumns(RecordKind kind) {
    std::vector<RecordColumn> columns{RecordColumn(ColumnContent::Identity)};
    for (const FieldRow& field : FieldsOf(kind)) columns.emplace_back(ColumnContent::Field, &field);
    if (kind == RecordKind::Time) columns.emplace_back(ColumnContent::Timer);
    return columns;
}

}  // namespace

const char* RecordColumn::Name() const {
    return m_field ? m_field->name : OtherOf(m_content).name;
}

QString RecordColumn::Caption() const {
    if (!m_field) return LoadText(OtherOf(m_content).caption);
    return LoadText(m_field->consoleCaption != Text{} ? m_field->consoleCaption : m_field->caption);
}

bool RecordColumn::IsListed() const {
    return !m_field || m_field->isListed;
}

bool RecordColumn::IsNumber() const {
    return m_field && IsNumeric(m_field->form);
}

void RecordColumn::WriteJson(CJsonText& json, const RecordRow& row) const {
    switch (m_content) {
        case ColumnContent::Identity:
            return row.isStored ? json.Text(row.record.GetId()) : json.Null();
        case ColumnContent::Field:
            return WriteFieldJson(json, row.record, *m_field);
        case ColumnContent::Timer:
            return WriteTimer(json, row.timer);
    }
}

QString RecordColumn::TextOf(const RecordRow& row) const {
    switch (m_content) {
        case ColumnContent::Identity:
            return row.record.GetId();
        case ColumnContent::Field:
            return FieldWords(row.record, *m_field);
        case ColumnContent::Timer:
            break;
    }
    return TimerWords(row.timer);
}

int RecordColumn::Compare(const CVORec& a, const CVORec& b) const {
    return m_field ? CompareFields(a, b, *m_field) : a.GetId().compare(b.GetId());
}

std::span<const RecordColumn> RecordColumns(RecordKind kind) {
    static const std::vector<RecordColumn> kTimes = MakeColumns(RecordKind::Time);
    static const std::vector<RecordColumn> kExpenses = MakeColumns(RecordKind::Expense);
    return kind == RecordKind::Time ? kTimes : kExpenses;
}

const RecordColumn* FindRecordColumn(RecordKind kind, const QString& name) {
    const std::span<const RecordColumn> columns = RecordColumns(kind);
    const auto found = std::ranges::find_if(
        columns, [&](const RecordColumn& column) { return name == QLatin1String(column.Name()); });
    return found == columns.end() ? nullptr : &*found;
}

bool AreOfOneDay(const CVORec& a, const CVORec& b) {
    return CompareDates(a, b) == 0;
}

int CompareDays(const CVORec& a, const CVORec& b) {
    static const FieldRow& kStart = *FieldOfColumn(Column::kStart);
    const bool isTime = a.Kind() == RecordKind::Time;
    if (const int days = CompareDates(a, b); days != 0) return days;
    if (const int starts = isTime ? CompareFields(a, b, kStart) : 0; starts != 0) return starts;
    return a.GetId().compare(b.GetId());
}
