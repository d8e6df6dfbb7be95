#pragma once

#include "app/Hints.h"
#include "viewmodel/list/RowCompare.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

class ActiveTimerSet;
class CCfgStore;
class CVORec;
class CRowSorter;
class CVelmarchDoc;
class RecordWords;

/// How the list shows its records. Stored as these numbers.
enum class ListLayout : int { Icons = 1, List = 2, Columns = 3, Lines = 4 };

/// Images of a row's state and of its flag columns. The numbers are fixed.
enum class RowImage : int {
    FlagClear = 0,
    FlagSet = 1,
    Plain = 3,  ///< a time record without a timer
    TimerRunning = 5,
    TimerPaused = 6,
    Expense = 8,
    DistanceEntry = 9
};

/// The rows of the record list: which records, in which order, and what each cell says. A row is the identity
/// of its record only; the record is asked of the document when it is needed, so no row ever points to one
/// that is gone. Which columns there are, their order and captions come from the list's columns in the
/// settings. Model columns: 0 is the row's state; behind it come the visible columns in the layout of
/// columns, and one column for the whole record in the others.
class CRecordListModel final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Role {
        IdRole = Qt::UserRole,  ///< text: identity of the record
        ImageRole,              ///< int: RowImage of column 0 and of flag columns
        ColumnRole,             ///< int: the record column behind a model column, Column::kNone without one
        ListRowRole,   ///< int: the row in this list, also asked of a model that shows some of its rows
        SearchedRole,  ///< text in which a search finds words: of a text or of the notes
        OrderRole  ///< int: records above it, -1 for the head of a group; only a model with groups says it
    };

    CRecordListModel(const CVelmarchDoc& document, const ActiveTimerSet& timers, CCfgStore& settings,
                     QObject* parent = nullptr);

    /// Layout and rows anew: a listLayout outside 1 to 4 becomes 4, in the settings as well.
    void Rebuild();
    /// Does what a hint asks of a list. Hints that don't concern it are ignored.
    void OnHint(Hint hint, const QStringList& ids);
    /// What a click on a header does: the same column once more turns the direction, another sorts ascending.
    void SortByHeader(int headerPosition);

    /// headerPosition: from 1 among the visible columns; others do nothing.
    void SortBy(int headerPosition, bool isAscending);
    /// The direction that a click on this header would give.
    [[nodiscard]] bool IsAscendingByHeader(int headerPosition) const;

    [[nodiscard]] ListLayout Layout() const { return m_layout; }
    /// The column that sorts, Column::kNone without a visible one.
    [[nodiscard]] int SortColumn() const { return m_sortColumn; }
    [[nodiscard]] bool SortsAscending() const;
    /// The list's columns of the mode as of the last Rebuild.
    [[nodiscard]] const std::vector<int>& VisibleColumns() const { return m_columns; }
    /// What the list calls a column.
    [[nodiscard]] QString CaptionOf(int column) const;
    /// The model column of a record column, -1 when it has none of its own.
    [[nodiscard]] int ModelColumnOf(int column) const;

    [[nodiscard]] QString IdAt(int row) const { return m_rows[static_cast<std::size_t>(row)].id; }
    /// Null when the document doesn't know the record any more.
    [[nodiscard]] const CVORec* RecordAt(int row) const;
    /// The record as the document shows it: found without a search as long as the places are the same.
    [[nodiscard]] const CVORec* VisibleAt(int row) const;
    /// What a row says in a column of records, whatever the layout; empty for a record that is gone.
    [[nodiscard]] QString TextOf(int row, int column) const;
    /// What it says of that cell when asked; see CellNote.
    [[nodiscard]] QString NoteOf(int row, int column) const;
    /// Whether its flag of a column is set, or notes are there.
    [[nodiscard]] bool IsFlagSet(int row, int column) const;
    /// "Billable: yes".
    [[nodiscard]] QString FlagInWordsOf(int row, int column) const;
    [[nodiscard]] QStringList AllIds() const;
    /// The rows of these records, ascending; one walk over all rows, however many are asked for.
    [[nodiscard]] std::vector<int> RowsOf(const QStringList& ids) const;
    /// The rows whose records have all words, ascending; among some rows or all.
    [[nodiscard]] std::vector<int> RowsWith(const RecordWords& words) const;
    [[nodiscard]] std::vector<int> RowsWith(const RecordWords& words, const std::vector<int>& among) const;
    /// What a search finds words in, in a column of records; empty for numbers, dates and flags.
    [[nodiscard]] QString SearchedTextOf(int row, int column) const;
    /// Whether the rows are in order of their dates: then rows of the same day stand together, as far as
    /// those that were added or changed since were sorted again.
    [[nodiscard]] bool IsSortedByDate() const;
    /// The day of a row as a number of DayOrder; only while the list is sorted by date.
    [[nodiscard]] std::uint32_t DayAt(int row) const { return m_rows[static_cast<std::size_t>(row)].day; }
    /// Today in the same form.
    [[nodiscard]] std::uint32_t Today() const;
    /// Whether the period that is shown holds it.
    [[nodiscard]] bool IsTodayShown() const;
    /// What the rows take in memory, room for more included. The texts of the identities are the records'
    /// own.
    [[nodiscard]] std::size_t BytesOfRows() const { return m_rows.capacity() * sizeof(Row); }
    /// The timers of these rows changed: they are shown anew.
    void TouchTimers(int firstRow, int lastRow);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

 private:
    /// The place among the document's visible records counts as long as their edition is the same.
    struct Row {
        QString id;
        std::uint32_t place = 0;
        std::uint32_t day = 0;  ///< while the list is sorted by date
    };

    [[nodiscard]] std::optional<std::vector<int>> RowsByPlace(const QStringList& ids) const;
    void TakeSortFromSettings();
    void Fill();
    void MakeRoom(std::size_t more);
    void ReturnRoom();
    void PutRows(CRowSorter& sorter) const;
    void TakeDays(const std::vector<int>& rows);
    std::vector<std::uint32_t> SortRows();
    void Sort();
    void AddRows(const QStringList& added);
    void ChangeRows(const QStringList& ids);
    void RemoveRows(const QStringList& ids);
    void TouchRows(const std::vector<int>& rows);
    void Append(const QStringList& ids);
    void InsertSorted(const QString& id);
    void MoveToPlace(int row);
    [[nodiscard]] RowKey KeyOf(const QString& id) const;
    [[nodiscard]] std::size_t PlaceOf(const Row& row) const;
    [[nodiscard]] Row RowOf(const QString& id) const;
    [[nodiscard]] int PlaceFor(const RowKey& key) const;
    [[nodiscard]] int Compare(const RowKey& a, const RowKey& b) const;
    [[nodiscard]] bool BelongsBefore(const RowKey& a, const RowKey& b) const;
    [[nodiscard]] QString TextAt(const CVORec& record, int modelColumn) const;
    [[nodiscard]] QString AccessibleText(const CVORec& record, int modelColumn) const;
    [[nodiscard]] QVariant ImageOf(const CVORec& record, int modelColumn) const;
    [[nodiscard]] QString StateInWords(const CVORec& record) const;
    [[nodiscard]] RowImage StateImageOf(const CVORec& record) const;
    [[nodiscard]] int ColumnOf(int modelColumn) const;

    const CVelmarchDoc& m_document;
    const ActiveTimerSet& m_timers;
    CCfgStore& m_settings;
    ListLayout m_layout = ListLayout::Lines;
    std::vector<int> m_columns;
    std::vector<Row> m_rows;
    unsigned m_edition = 0;  ///< of the document's places
    int m_sortColumn;
    bool m_inOrder = true;  ///< no row was put at the end or changed without a sort since the last one
};
