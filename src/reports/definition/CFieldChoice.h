#pragma once

#include "records/CVORec.h"
#include "reports/definition/CReportDef.h"

/// The page with two lists: fields that are available and fields that are chosen, without the lists
/// themselves. One class for the columns of a listing and for the order of the records.
class CFieldChoice {
 public:
    enum class Purpose { Columns, Order };

    /// kind: time or expense.
    CFieldChoice(RecordKind kind, Purpose purpose, const QList<SortKey>& chosen)
        : m_kind(kind), m_purpose(purpose), m_chosen(chosen) {}

    /// Those that aren't chosen, in the order of the offer.
    [[nodiscard]] QList<FieldId> Available() const;
    [[nodiscard]] qsizetype Count() const { return m_chosen.size(); }
    [[nodiscard]] FieldId FieldAt(qsizetype place) const { return m_chosen[place].fieldId; }
    /// Of an order: whether the field is checked.
    [[nodiscard]] bool IsDescending(qsizetype place) const;

    /// Puts an available field behind the chosen ones; false for one that isn't available.
    bool Choose(FieldId field);
    /// All of these are false for a place without a field, or at the end of the way.
    bool GiveBack(qsizetype place);
    bool MoveUp(qsizetype place);
    bool MoveDown(qsizetype place);
    bool SetDescending(qsizetype place, bool isDescending);

    /// What the definition takes from the page: 1 or -1 with each field of an order, 0 with a column.
    [[nodiscard]] QList<SortKey> Result() const;

 private:
    [[nodiscard]] bool IsPlace(qsizetype place) const { return place >= 0 && place < m_chosen.size(); }

    RecordKind m_kind;
    Purpose m_purpose;
    QList<SortKey> m_chosen;
};
