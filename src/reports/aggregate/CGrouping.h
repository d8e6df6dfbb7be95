#pragma once

#include "reports/aggregate/GroupedTable.h"

#include <QHash>
#include <QList>
#include <cstdint>
#include <optional>
#include <span>

class CFieldCatalogue;
class CVORec;
struct FieldRow;
enum class RecordKind : int;

/// Adds records to groups, one after the other. Groups go by the texts that are shown, with their case, so
/// two values that look the same are one group. The look-up of a group takes the same time however many there
/// are.
class CGrouping {
 public:
    /// Of records of one kind.
    CGrouping(RecordKind kind, const QList<FieldId>& groupFields, const QList<FieldId>& sumFields,
              const CFieldCatalogue& catalogue);

    /// The place of the record's group among the rows. Nothing, and nothing added, where a field has no text
    /// to group by or no number to add.
    std::optional<std::size_t> Add(const CVORec& record);
    [[nodiscard]] std::size_t RowCount() const { return m_table.rows.size(); }
    /// The table so far.
    [[nodiscard]] const GroupedTable& Table() const { return m_table; }
    /// The table with its rows in this order, each once.
    [[nodiscard]] GroupedTable InOrder(std::span<const std::size_t> rows) const;

 private:
    [[nodiscard]] bool ReadTexts(const CVORec& record);
    [[nodiscard]] bool ReadNumbers(const CVORec& record);
    [[nodiscard]] std::size_t PlaceOfGroup();

    std::vector<const FieldRow*> m_keyFields;  ///< null: no such field
    std::vector<const FieldRow*> m_sumFields;
    QStringList m_texts;  ///< of the record that is being added
    std::vector<double> m_numbers;
    QHash<QStringList, std::size_t> m_places;
    std::size_t m_lastPlace = 0;  ///< of the record before: neighbours are often of one group
    GroupedTable m_table;
};
