#include "reports/definition/ReportKinds.h"

#include "lang/LoadText.h"

bool IsReportKind(ReportKind kind) {
    return HasListing(kind) || HasGroups(kind) || kind == ReportKind::Summary;
}

bool HasListing(ReportKind kind) {
    return kind == ReportKind::Listing || kind == ReportKind::Compound;
}

bool HasGroups(ReportKind kind) {
    return kind == ReportKind::Grouped || kind == ReportKind::Compound;
}

GroupLack LackOf(const CReportDef& report) {
    if (!HasGroups(report.kind)) return GroupLack::None;
    if (report.groupFields.isEmpty()) return GroupLack::GroupFields;
    return report.sumFields.isEmpty() ? GroupLack::SumFields : GroupLack::None;
}

QString QuickTitle(ReportKind kind) {
    switch (kind) {
        case ReportKind::Grouped:
            return LoadText(Text::TitleGrouped);
        case ReportKind::Listing:
            return LoadText(Text::TitleListing);
        case ReportKind::Compound:
            return LoadText(Text::TitleCompound);
        case ReportKind::Summary:
            return LoadText(Text::TitleSummary);
    }
    return {};
}
