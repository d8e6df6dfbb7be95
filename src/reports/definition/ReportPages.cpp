#include "reports/definition/ReportPages.h"

#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "reports/definition/ReportFields.h"
#include "reports/definition/ReportKinds.h"

#include <algorithm>

bool HasPage(ReportKind kind, SheetPage page) {
    switch (page) {
        case SheetPage::Columns:
            return HasListing(kind);
        case SheetPage::Groups:
            return HasGroups(kind);
        default:
            return true;
    }
}

std::vector<SheetPage> PagesOf(ReportKind kind) {
    std::vector<SheetPage> pages;
    for (const SheetPage page : {SheetPage::Selection, SheetPage::Columns, SheetPage::Groups,
                                 SheetPage::Order, SheetPage::Texts, SheetPage::Definitions})
        if (HasPage(kind, page)) pages.push_back(page);
    return pages;
}

SelectionPage SelectionPage::Of(const CReportDef& report) {
    return {report.selection, report.useStoredQuery, report.queryName};
}

void SelectionPage::Leave(CReportDef& report) const {
    report.selection = selection;
    report.useStoredQuery = CanChooseQuery() && !queryName.isEmpty();
    if (report.useStoredQuery) report.queryName = queryName;
}

QList<FieldId> CheckedFields(RecordKind kind, ReportUse use, const QList<FieldId>& checked) {
    QList<FieldId> fields;
    for (const FieldRow* field : ReportFields(kind, use))
        if (checked.contains(field->id)) fields.append(field->id);
    return fields;
}

std::optional<Text> GroupProblem(const CReportDef& report) {
    switch (LackOf(report)) {
        case GroupLack::GroupFields:
            return Text::ReportNeedsGroup;
        case GroupLack::SumFields:
            return Text::ReportNeedsSum;
        case GroupLack::None:
            break;
    }
    return std::nullopt;
}

bool CanLeaveGroupPage(const CReportDef& report, CPrompt& prompt) {
    const auto problem = GroupProblem(report);
    if (!problem) return true;
    MessageBox box;
    box.textId = static_cast<int>(*problem);
    box.title = LoadText(Text::ReportMessageTitle);
    box.text = LoadText(*problem);
    box.icon = BoxIcon::Warning;
    prompt.Tell(box);
    return false;
}
