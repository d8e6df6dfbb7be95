#include "reports/aggregate/CGrouping.h"

#include "app/CFieldCatalogue.h"
#include "app/ShownFields.h"
#include "fields/FieldTable.h"

namespace {

std::vector<const FieldRow*> RowsOf(RecordKind kind, const QList<FieldId>& fields) {
    std::vector<const FieldRow*> rows;
    for (const FieldId field : fields) rows.push_back(FindField(kind, NumberOf(field)));
    return rows;
}

std::vector<GroupedColumn> ColumnsOf(const QList<FieldId>& fields, const CFieldCatalogue& catalogue) {
    std::vector<GroupedColumn> columns;
    for (const FieldId field : fields) {
        const int number = NumberOf(field);
        columns.push_back({.field = field,
                           .caption = catalogue.GetFieldTitle(number),
                           .places = catalogue.Precision(number).value_or(-1)});
    }
    return columns;
}

}  // namespace

CGrouping::CGrouping(RecordKind kind, const QList<FieldId>& groupFields, const QList<FieldId>& sumFields,
                     const CFieldCatalogue& catalogue)
    : m_keyFields(RowsOf(kind, groupFields)),
      m_sumFields(RowsOf(kind, sumFields)),
      m_texts(groupFields.size()),
      m_numbers(m_sumFields.size()) {
    m_table.keys = ColumnsOf(groupFields, catalogue);
    m_table.sums = ColumnsOf(sumFields, catalogue);
}

bool CGrouping::ReadTexts(const CVORec& record) {
    for (std::size_t i = 0; i < m_keyFields.size(); ++i) {
        std::optional<QString> text = m_keyFields[i] ? ShownText(record, *m_keyFields[i]) : std::nullopt;
        if (!text) return false;
        m_texts[static_cast<qsizetype>(i)] = std::move(*text);
    }
    return true;
}

bool CGrouping::ReadNumbers(const CVORec& record) {
    for (std::size_t i = 0; i < m_sumFields.size(); ++i) {
        const auto number = m_sumFields[i] ? ShownNumber(record, *m_sumFields[i]) : std::nullopt;
        if (!number) return false;
        m_numbers[i] = *number;
    }
    return true;
}

std::size_t CGrouping::PlaceOfGroup() {
    ReportRowSet& rows = m_table.rows;
    if (m_lastPlace < rows.size() && rows[m_lastPlace].keys == m_texts) return m_lastPlace;
    const auto found = m_places.constFind(m_texts);
    if (found != m_places.constEnd()) return *found;
    m_places.insert(m_texts, rows.size());
    rows.push_back({.keys = m_texts, .sums = std::vector<double>(m_numbers.size(), 0.0)});
    return rows.size() - 1;
}

std::optional<std::size_t> CGrouping::Add(const CVORec& record) {
    if (!ReadTexts(record) || !ReadNumbers(record)) return std::nullopt;
    m_lastPlace = PlaceOfGroup();
    std::vector<double>& sums = m_table.rows[m_lastPlace].sums;
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += m_numbers[i];
    return m_lastPlace;
}

GroupedTable CGrouping::InOrder(std::span<const std::size_t> rows) const {
    GroupedTable ordered{.keys = m_table.keys, .sums = m_table.sums};
    for (const std::size_t row : rows) ordered.rows.push_back(m_table.rows[row]);
    return ordered;
}
