#pragma once

#include "config/ColumnTable.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <vector>

class CColumnNames;
struct Settings;

/// One column of a set. Stored with the set, 45 bytes each.
struct ColumnEntry {
    QString caption;  ///< at most 16 UTF-16 units
    std::uint8_t visible = 0;
    std::int32_t width = 0;     ///< pixels
    std::int32_t position = 0;  ///< from 1 among the visible columns of its half; 0 when hidden
    std::int32_t kind = 1;      ///< a ColumnKind; 1: unknown
};

/// Which of the 34 columns are shown, in which order, with which caption and width: for time records and for
/// expenses at once. This one is the record list's; the data tree's derives from it.
class CColSet {
 public:
    CColSet();
    virtual ~CColSet() = default;
    CColSet(const CColSet&) = default;
    CColSet& operator=(const CColSet&) = default;

    /// Meant for a set whose line breaks are empty: the default ones are appended to those that are there, so
    /// a second run doubles them. Harmless, as breaks count only up to the number of visible columns.
    virtual void SetDefaults();
    /// The set as it is stored.
    [[nodiscard]] virtual bool MakeBlob(QByteArray& out) const;
    /// False for a blob that is none, damaged, or has an empty caption or a width of 0: rows may be
    /// overwritten then, and the caller sets the defaults. An empty payload is fine and changes nothing.
    [[nodiscard]] virtual bool LoadBlob(const QByteArray& blob);
    /// After loading the record list's set: kinds from the table, widths below 1 and empty captions from the
    /// defaults.
    void Repair();

    [[nodiscard]] bool IsVisible(int column) const;
    /// A copy; an empty entry of kind 1 for a column that isn't one.
    [[nodiscard]] ColumnEntry EntryAt(int column) const;
    [[nodiscard]] std::int32_t KindOf(int column) const;
    [[nodiscard]] ColumnEntry FindByCaption(ColumnHalf half, const QString& caption) const;
    /// -1 when absent.
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
    /// The column at a position of its half, or with a caption; one that isn't found is ignored. Hiding
    /// closes the gap; showing puts it last.
    void SetColumn(ColumnHalf half, std::int32_t position, const Change& change);
    void SetColumn(ColumnHalf half, const QString& caption, const Change& change);
    void SetWidth(int column, std::int32_t width);
    /// Exchanges two neighbours; nothing at the ends.
    void MoveUp(ColumnHalf half, std::int32_t position);
    void MoveDown(ColumnHalf half, std::int32_t position);
    /// By captions: the first are hidden, the others shown in this order; those in neither stay.
    void AssignOrder(ColumnHalf half, const QStringList& hidden, const QStringList& shown);

    /// Not owned; null: no names.
    void SetCatalogue(const CColumnNames* names) { m_names = names; }
    /// The captions of the 24 columns that have a field name, at most 16 units each, and the distance unit.
    /// False without names.
    bool ApplyCaptions(const Settings& settings);
    [[nodiscard]] virtual bool IsExcluded(int) const { return false; }

 protected:
    void RebuildOrders();
    void Hide(int column);

    std::array<ColumnEntry, Column::kCount> m_entries;
    std::vector<std::int32_t> m_timeBreaks;
    std::vector<std::int32_t> m_expenseBreaks;

 private:
    // The owner of this file completes the private part.
    std::vector<int> m_timeOrder;
    std::vector<int> m_expenseOrder;
    std::int32_t m_timeCursor = 1;
    std::int32_t m_expenseCursor = 1;
    const CColumnNames* m_names = nullptr;
};
