#include "reports/definition/CReportStore.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "reports/definition/FieldListBytes.h"

#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1String kListFields("FieldIds");

/// The key of a kind by its text, which has no number where it is the same in all languages.
QString KeyText(ReportKind kind, RecordMode mode) {
    const bool isTime = mode == RecordMode::Time;
    switch (kind) {
        case ReportKind::Grouped:
            return LoadText(isTime ? Text::KeyGroupedTime : Text::KeyGroupedExpense);
        case ReportKind::Listing:
            return LoadText(isTime ? Text::KeyListingTime : Text::KeyListingExpense);
        case ReportKind::Compound:
            return isTime ? u"CompReportsTime"_s : u"CompReportsExp"_s;
        case ReportKind::Summary:
            break;
    }
    return LoadText(isTime ? Text::KeyOtherTime : Text::KeyOtherExpense);
}

/// The text by which a kind is stored; empty for one that is never stored.
QString TypeText(ReportKind kind) {
    switch (kind) {
        case ReportKind::Grouped:
            return LoadText(Text::ReportTypeGrouped);
        case ReportKind::Listing:
            return LoadText(Text::ReportTypeListing);
        case ReportKind::Compound:
            return u"ReportType_Compound"_s;
        case ReportKind::Summary:
            break;
    }
    return {};
}

ReportKind KindOfType(const QString& text) {
    for (const ReportKind kind : {ReportKind::Grouped, ReportKind::Compound})
        if (text == TypeText(kind)) return kind;
    return ReportKind::Listing;
}

struct SelectionRow {
    ReportSelection selection;
    Text text;
};
constexpr SelectionRow kSelections[] = {
    {ReportSelection::Selected, Text::SelectionSelected},
    {ReportSelection::Listed, Text::SelectionListed},
    {ReportSelection::Query, Text::SelectionQuery},
};

QString SelectionText(ReportSelection selection) {
    const auto* const row = std::ranges::find(kSelections, selection, &SelectionRow::selection);
    return row == std::end(kSelections) ? LoadText(Text::SelectionListed) : LoadText(row->text);
}

ReportSelection SelectionOf(const QString* text) {
    const auto* const row = std::ranges::find_if(
        kSelections, [text](const SelectionRow& one) { return text && *text == LoadText(one.text); });
    return row == std::end(kSelections) ? ReportSelection::Listed : row->selection;
}

struct TextRow {
    Text name;
    QString CReportDef::*text;
};
constexpr TextRow kQueryName{Text::ValueQueryName, &CReportDef::queryName};
constexpr TextRow kTexts[] = {
    {Text::ValueTitle, &CReportDef::title},
    {Text::ValueHeader, &CReportDef::header},
    {Text::ValueFooter, &CReportDef::footer},
};

/// No value is empty, so a word stands for the empty text.
void AddText(EntryContent& content, const TextRow& row, const CReportDef& report) {
    const QString& text = report.*row.text;
    content.Add(LoadText(row.name), text.isEmpty() ? LoadText(Text::EmptyTextStored) : text);
}

void TakeText(const EntryContent& content, const TextRow& row, CReportDef& report) {
    const QString* text = content.FindText(LoadText(row.name));
    if (text) report.*row.text = *text == LoadText(Text::EmptyTextStored) ? QString() : *text;
}

/// In the order in which the values are written.
EntryContent ContentOf(const CReportDef& report) {
    EntryContent content;
    if (const QString type = TypeText(report.kind); !type.isEmpty())
        content.Add(LoadText(Text::ValueReportType), type);
    content.Add(LoadText(Text::ValueSelection), SelectionText(report.selection));
    content.Add(LoadText(Text::ValueUseStoredQuery),
                LoadText(report.useStoredQuery ? Text::TokenOn : Text::TokenOff));
    AddText(content, kQueryName, report);
    content.Add(LoadText(Text::ValueGroupFields), ToBytes(report.groupFields));
    content.Add(LoadText(Text::ValueSumFields), ToBytes(report.sumFields));
    for (const TextRow& row : kTexts) AddText(content, row, report);
    content.Add(LoadText(Text::ValueSortKeys), ToBytes(report.sortKeys));
    content.Add(kListFields, ToBytes(report.listFields));
    return content;
}

}  // namespace

QString CReportStore::StoreKey(RecordMode mode, ReportKind kind) {
    return KeyText(kind, mode);
}

bool CReportStore::Load(const QString& name, CReportDef& report) const {
    const auto content = Settings().ReadEntryContent(Key(), name);
    const QString* type = content ? content->FindText(LoadText(Text::ValueReportType)) : nullptr;
    if (!type) return false;
    report.kind = KindOfType(*type);
    report.selection = SelectionOf(content->FindText(LoadText(Text::ValueSelection)));
    const QString* useQuery = content->FindText(LoadText(Text::ValueUseStoredQuery));
    report.useStoredQuery = useQuery && *useQuery == LoadText(Text::TokenOn);
    TakeText(*content, kQueryName, report);
    for (const TextRow& row : kTexts) TakeText(*content, row, report);
    report.groupFields = FieldsOfBytes(content->FindBytes(LoadText(Text::ValueGroupFields)));
    report.sumFields = FieldsOfBytes(content->FindBytes(LoadText(Text::ValueSumFields)));
    report.sortKeys = SortKeysOfBytes(content->FindBytes(LoadText(Text::ValueSortKeys)));
    report.listFields = SortKeysOfBytes(content->FindBytes(kListFields));
    report.name = name;
    return true;
}

bool CReportStore::Save(const QString& name, const CReportDef& report) {
    return ChangeEntry(SaveRequest(name, report), Settings());
}

bool CReportStore::Rename(const QString& name, const QString& newName, const CReportDef& report) {
    return ChangeEntry(RenameRequest(name, newName, report), Settings());
}

EntryRequest CReportStore::SaveRequest(const QString& name, const CReportDef& report) const {
    return {.key = Key(), .entry = name, .values = ContentOf(report)};
}

EntryRequest CReportStore::RenameRequest(const QString& name, const QString& newName,
                                         const CReportDef& report) const {
    return {.key = Key(), .entry = newName, .values = ContentOf(report), .former = name};
}
