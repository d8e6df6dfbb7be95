#include "lists/DependencyChain.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "config/Settings.h"
#include "fields/Headings.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kTimeChain[] = {ListId::kClient, ListId::kProject, ListId::kTimeItem3, ListId::kTimeItem4,
                              ListId::kTimeRate};
constexpr int kExpenseChain[] = {ListId::kClient, ListId::kProject, ListId::kExpenseItem3,
                                 ListId::kDistanceRate, ListId::kDistance};

struct HeadingRow {
    int list;
    int field;  ///< whose own name is the heading; 0: none
    Text preset;
};

constexpr HeadingRow kHeadings[] = {
    {ListId::kClient, HeadingOf(FieldId::TimeItem1), Text::FieldClient},
    {ListId::kProject, HeadingOf(FieldId::TimeItem2), Text::FieldProject},
    {ListId::kTimeItem3, HeadingOf(FieldId::TimeItem3), Text::FieldActivity},
    {ListId::kTimeItem4, HeadingOf(FieldId::TimeItem4), Text::FieldCostCentre},
    {ListId::kTimeRate, HeadingOf(FieldId::TimeRate), Text::FieldRate},
    {ListId::kExpenseItem3, HeadingOf(FieldId::ExpenseItem3), Text::HeadingDescriptions},
    {ListId::kDistanceRate, 0, Text::ListDistanceRates},
};

}  // namespace

std::span<const int> DependencyChain(RecordMode mode) {
    if (mode == RecordMode::Time) return kTimeChain;
    return kExpenseChain;
}

int ChainDepth(RecordMode mode, int list) {
    const std::span<const int> chain = DependencyChain(mode);
    const auto at = std::ranges::find(chain, list);
    return at == chain.end() ? 0 : static_cast<int>(at - chain.begin()) + 1;
}

int NextList(RecordMode mode, int depth) {
    const std::span<const int> chain = DependencyChain(mode);
    return depth >= 0 && depth < std::ssize(chain) ? chain[static_cast<std::size_t>(depth)] : -1;
}

QString ListHeading(const CPulldownCatalogue& catalogue, int list, const Settings& settings) {
    if (list == ListId::kDistance)
        return LoadText(settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    const auto row = std::ranges::find(kHeadings, list, &HeadingRow::list);
    if (row == std::end(kHeadings)) return {};
    const QString own = catalogue.Labels().Own(row->field);
    return own.isEmpty() ? LoadText(row->preset) : own;
}

QString DefaultHeading(int field) {
    const auto row = std::ranges::find(kHeadings, field, &HeadingRow::field);
    return field == 0 || row == std::end(kHeadings) ? QString() : LoadText(row->preset);
}

QStringList PulldownTexts(const CPulldownCatalogue& catalogue, RecordMode mode, int list,
                          const QStringList& path, const Settings& settings) {
    const int depth = ChainDepth(mode, list);
    if (!settings.useDependencies || depth == 0) return catalogue.Texts(list);
    QStringList above;
    for (int i = 0; i + 1 < depth; ++i) above += ItemShown(NextList(mode, i), path.value(i));
    if (above.contains(QString())) return {};
    const auto* node = catalogue.Tree(DependencySetOf(KindOf(mode))).Walk(above);
    QStringList texts;
    for (const auto* child = node ? node->FirstChild() : nullptr; child; child = child->Next())
        texts += child->Item()->GetText();
    return texts;
}
