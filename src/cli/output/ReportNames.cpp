#include "cli/output/ReportNames.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

struct KindRow {
    ReportKind kind;
    const char* name;
};
constexpr KindRow kKinds[] = {
    {ReportKind::Grouped, "grouped"},
    {ReportKind::Listing, "listing"},
    {ReportKind::Compound, "compound"},
    {ReportKind::Summary, "summary"},
};
constexpr ReportKind kStoredKinds[] = {ReportKind::Grouped, ReportKind::Listing, ReportKind::Compound};

struct SelectionRow {
    ReportSelection selection;
    const char* name;
};
constexpr SelectionRow kSelections[] = {
    {ReportSelection::Selected, "selected"},
    {ReportSelection::Listed, "listed"},
    {ReportSelection::Query, "query"},
};

}  // namespace

QString NameOf(ReportKind kind) {
    const auto* const row = std::ranges::find(kKinds, kind, &KindRow::kind);
    return row == std::end(kKinds) ? QString() : QString::fromLatin1(row->name);
}

std::span<const ReportKind> StoredKinds() {
    return kStoredKinds;
}

QString StoredKindNames() {
    QStringList names;
    for (const ReportKind kind : kStoredKinds) names.append(NameOf(kind));
    return names.join(u", "_s);
}

std::optional<ReportKind> StoredKindNamed(const QString& name) {
    for (const ReportKind kind : kStoredKinds)
        if (name == NameOf(kind)) return kind;
    return std::nullopt;
}

QString NameOf(ReportSelection selection) {
    const auto* const row = std::ranges::find(kSelections, selection, &SelectionRow::selection);
    return row == std::end(kSelections) ? QString() : QString::fromLatin1(row->name);
}

std::optional<ReportSelection> SelectionNamed(const QString& name) {
    for (const SelectionRow& row : kSelections)
        if (name == QLatin1String(row.name)) return row.selection;
    return std::nullopt;
}
