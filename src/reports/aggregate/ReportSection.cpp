#include "reports/aggregate/ReportSection.h"

#include "app/CFieldCatalogue.h"
#include "config/Settings.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

template <class Column, class... Places>
void Append(ReportSection& section, Text caption, Places... places) {
    section.columns.push_back(std::make_unique<Column>(LoadText(caption), places...));
}

/// What each section of times has.
ReportSection TimeTemplate(const Settings& settings) {
    ReportSection section{QString()};
    Append<ColEntries>(section, Text::SummaryEntries);
    Append<ColDuration>(section, Text::SummaryDuration, settings.precisionDuration);
    Append<ColBreak>(section, Text::SummaryBreak, settings.precisionDuration);
    Append<ColEffective>(section, Text::SummaryEffective, settings.precisionDuration);
    Append<ColAmount>(section, Text::SummaryAmount, settings.precisionAmount);
    return section;
}

ReportSection ExpenseTemplate(const Settings& settings) {
    ReportSection section{QString()};
    Append<ColEntries>(section, Text::SummaryEntries);
    Append<ColEntriesExpense>(section, Text::SummaryExpense);
    Append<ColEntriesMileage>(section, Text::SummaryMileage);
    Append<ColAmount>(section, Text::SummaryAmount, settings.precisionAmount);
    Append<ColAmountExpense>(section, Text::SummaryExpense, settings.precisionAmount);
    Append<ColAmountMileage>(section, Text::SummaryMileage, settings.precisionAmount);
    return section;
}

/// Which of the sections in front of the others take the record; times have one of them.
std::array<bool, 2> FlagsOf(const CVORec& record) {
    if (record.Kind() == RecordKind::Time) return {static_cast<const CTRecord&>(record).isBillable, false};
    const auto& expense = static_cast<const CERecord&>(record);
    return {expense.flag1, expense.flag3};
}

}  // namespace

std::unique_ptr<ReportSection> ReportSection::Clone() const {
    auto copy = std::make_unique<ReportSection>(caption);
    for (const auto& column : columns) copy->columns.push_back(column->Clone());
    return copy;
}

void ReportSection::Add(const CVORec* record) {
    for (const auto& column : columns) column->Add(record);
}

ReportSectionList::ReportSectionList(RecordKind kind, const CFieldCatalogue& catalogue,
                                     const Settings& settings) {
    const bool isTime = kind == RecordKind::Time;
    const ReportSection section = isTime ? TimeTemplate(settings) : ExpenseTemplate(settings);
    if (isTime) {
        AppendClone(section, catalogue.GetFieldTitle(NumberOf(FieldId::Billable)));
    } else {
        AppendClone(section, catalogue.GetFieldTitle(NumberOf(FieldId::Flag1)));
        AppendClone(section, catalogue.GetFieldTitle(NumberOf(FieldId::Flag3)));
    }
    AppendClone(section, LoadText(Text::SummaryOther));
    AppendClone(section, LoadText(Text::SummaryTotal));
}

void ReportSectionList::AppendClone(const ReportSection& section, const QString& caption) {
    sections.push_back(section.Clone());
    sections.back()->caption = caption;
}

void ReportSectionList::Add(const CVORec& record) {
    const std::array<bool, 2> isIn = FlagsOf(record);
    const std::size_t other = sections.size() - 2;
    for (std::size_t section = 0; section < other; ++section)
        if (isIn[section]) sections[section]->Add(&record);
    if (!isIn[0] && !isIn[1]) sections[other]->Add(&record);
    sections.back()->Add(&record);
}

QString PlainCaption(const ReportColumn& column) {
    QString caption = column.caption;
    return caption.remove(u"&nbsp;"_s);
}
