#pragma once

#include "fields/FieldRow.h"
#include "lang/Text.h"
#include "reports/definition/CReportDef.h"

#include <optional>
#include <vector>

class CPrompt;

/// The pages on which a definition is edited.
enum class SheetPage { Selection, Columns, Groups, Order, Texts, Definitions };

/// Those of a kind, in their order.
[[nodiscard]] std::vector<SheetPage> PagesOf(ReportKind kind);
[[nodiscard]] bool HasPage(ReportKind kind, SheetPage page);

/// What stands on the selection page.
struct SelectionPage {
    ReportSelection selection = ReportSelection::Listed;
    bool isStoredQuery = false;  ///< its check box
    QString queryName{};         ///< the text of the combo box

    [[nodiscard]] static SelectionPage Of(const CReportDef& report);
    /// With a query alone the check box can be used, with the box checked the names of the queries.
    [[nodiscard]] bool CanUseStoredQuery() const { return selection == ReportSelection::Query; }
    [[nodiscard]] bool CanChooseQuery() const { return CanUseStoredQuery() && isStoredQuery; }
    /// On leaving: a stored query counts only with all of the three. Otherwise the name stays as it was.
    void Leave(CReportDef& report) const;
};

/// The fields that are checked in the two lists of the group page, in the order of the offer.
[[nodiscard]] QList<FieldId> CheckedFields(RecordKind kind, ReportUse use, const QList<FieldId>& checked);
/// Why such a definition is refused: it needs a field to group by, and then one to add up.
[[nodiscard]] std::optional<Text> GroupProblem(const CReportDef& report);
/// On leaving the group page; false after telling the user what is missing.
[[nodiscard]] bool CanLeaveGroupPage(const CReportDef& report, CPrompt& prompt);
