#pragma once

#include "config/ColumnBlob.h"
#include "config/ColumnTable.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <vector>

class CColumnNames;
struct Settings;

/// Which of the 34 columns are shown, in which order, with which caption and width: for time records and for
/// expenses at once. This one is the record list's; the data tree's derives from it.
class CColSet {
 public:
    CColSet() = default;
    virtual ~CColSet() = default;
    CColSet(const CColSet&) = default;
    CColSet& operator=(const CColSet&) = default;

    /// Meant for a set whose line breaks are empty: the default ones are appended to those that are there, so
    /// a second run doubles them. Harmless, as breaks count only up to the number of visible columns.
    virtual void SetDefaults();
    /// The set as it is stored. False for one with more breaks than could be read back.
    [[nodiscard]] virtual bool MakeBlob(QByteArray& out) const;
    /// False, and the set as it was, for a blob that is none, damaged, or has an empty caption or a width of
    /// 0 in any row, hidden ones included. The caller sets the defaults then. A blob without content leaves
    /// the set as it is.
    [[nodiscard]] virtual bool LoadBlob(const QByteArray& blob);
    /// Whether the set has had neither defaults nor a stored form yet.
    [[nodiscard]] bool IsEmpty() const { return Entry(0).width == 0; }
    /// After loading the record list's set: kinds from the table, widths below 1 and empty captions from the
    /// defaults.
    void Repair();

    [[nodiscard]] bool IsVisible(int column) const;
    /// A copy; an empty entry of kind 1 for a column that isn't one.
    [[nodiscard]] ColumnEntry EntryAt(int column) const;
    [[nodiscard]] std::int32_t KindOf(int column) const;
    [[nodiscard]] ColumnEntry FindByCaption(ColumnHalf half, const QString& caption) const;
    /// The column's number, -1 when absent.
    [[nodiscard]] int IndexOfCaption(ColumnHalf half, const QString& caption) const;
    /// The column's place in the order of its half, -1 when hidden.
    [[nodiscard]] int OrderPosition(ColumnHalf half, int column) const;
    /// The visible columns of a half in order of position.
    [[nodiscard]] const std::vector<int>& Order(ColumnHalf half) const;
    [[nodiscard]] const std::vector<std::int32_t>& Breaks(ColumnHalf half) const;
    void SetBreaks(ColumnHalf half, std::vector<std::int32_t> breaks);

    // One walk of a half at a time: Begin, then Current until Column::kNone, Next between.
    void BeginTime() { m_timeCursor = 1; }
    [[nodiscard]] int CurrentTime() const;
    void NextTime() { ++m_timeCursor; }
    void BeginExpense() { m_expenseCursor = 1; }
    [[nodiscard]] int CurrentExpense() const;
    void NextExpense() { ++m_expenseCursor; }

    /// What SetColumn gives a column.
    struct Change {
        QString caption;
        std::int32_t width = 0;
        std::int32_t newPosition = 0;  ///< counts only where visible stays as it is
        bool visible = false;
    };
    /// The visible column at a position of its half, or any with a caption; one that isn't found is ignored.
    /// Hiding closes the gap; showing puts it last. An empty caption and a width below 1 leave what is there:
    /// a set that holds such a row could not be loaded again.
    void SetColumn(ColumnHalf half, std::int32_t position, const Change& change);
    void SetColumn(ColumnHalf half, const QString& caption, const Change& change);
    /// What isn't a column, or a width below 1, is ignored.
    void SetWidth(int column, std::int32_t width);
    /// Exchanges two neighbours; nothing at the ends.
    void MoveUp(ColumnHalf half, std::int32_t position);
    void MoveDown(ColumnHalf half, std::int32_t position);
    /// By captions: the first are hidden, the others shown at their places in the list; those in neither stay
    /// as they are.
    void AssignOrder(ColumnHalf half, const QStringList& hidden, const QStringList& shown);
    /// By numbers: shows exactly these columns of a half, in this order. Equal captions don't matter here.
    /// What isn't of the half, is excluded or comes again is left out.
    void ShowExactly(ColumnHalf half, const std::vector<int>& columns);

    /// Not owned; null: no names.
    void SetCatalogue(const CColumnNames* names) { m_names = names; }
    /// The captions of the 24 columns that have a field name, at most 16 units each, and the distance unit.
    /// False without names.
    bool ApplyCaptions(const Settings& settings);
    [[nodiscard]] virtual bool IsExcluded(int) const { return false; }

 protected:
    /// All rows from the table of columns, with the positions of the list or those of the tree.
    void FillFromTable(int ColumnRow::*position);
    void RebuildOrders();
    /// Takes a visible column out of its half and closes the gap. The orders are the caller's.
    void Hide(int column);

 private:
    void MendOldOrder();
    [[nodiscard]] std::vector<int> OrderOf(ColumnHalf half) const;
    [[nodiscard]] int AtPosition(ColumnHalf half, std::int32_t position) const;
    [[nodiscard]] std::int32_t HighestPosition(ColumnHalf half) const;
    void Exchange(ColumnHalf half, std::int32_t position, std::int32_t other);
    void Apply(int column, const Change& change);
    void Show(int column);
    [[nodiscard]] ColumnEntry& Entry(int column) {
        return m_payload.entries[static_cast<std::size_t>(column)];
    }
    [[nodiscard]] const ColumnEntry& Entry(int column) const {
        return m_payload.entries[static_cast<std::size_t>(column)];
    }

    ColumnPayload m_payload;
    std::vector<int> m_timeOrder;
    std::vector<int> m_expenseOrder;
    std::int32_t m_timeCursor = 1;
    std::int32_t m_expenseCursor = 1;
    const CColumnNames* m_names = nullptr;
};
