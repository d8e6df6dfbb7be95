#pragma once

#include <QStringList>
#include <QTableView>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

class CCfgStore;
class CGroupedRows;
class CListHeader;
class CRecordDelegate;
class CRecordLineDelegate;
class CRecordListModel;
class CShownRows;
class CVORec;
class QPainter;

/// The record list on screen, in the layout that the settings say. It selects whole rows; a click on the
/// check box at a row's left edge toggles that row and leaves the others alone. While it is sorted by date,
/// in columns or lines, it shows heads of groups as the settings say; a head is no record, can't be selected,
/// and folds its group by a click or by the keyboard.
class CRecordListView final : public QTableView {
    Q_OBJECT

 public:
    CRecordListView(CRecordListModel& model, CCfgStore& settings, QWidget* parent = nullptr);

    /// Font, colours, row height, headers and columns as the settings and the desktop say; after the model
    /// was rebuilt and when the desktop's colours change.
    void ApplyLayout();

    /// Identities of the selected records in the order of the rows.
    [[nodiscard]] QStringList SelectedIds() const;
    [[nodiscard]] int SelectedCount() const;
    [[nodiscard]] bool IsSelected(const QString& id) const;
    /// The selected records as the document shows them, in no promised order.
    void ForEachSelected(const std::function<void(const CVORec& record)>& visit) const;
    void SelectNone();
    /// Selects just these records, as far as they are listed, and brings the first into sight. Groups that
    /// they are folded in are unfolded.
    void SelectIds(const QStringList& ids);
    /// The selected record that has the keyboard, or any one; empty in an empty list, and on a head.
    [[nodiscard]] QString CurrentId() const;
    /// The head that had the keyboard last, or the first row, when this one isn't listed; of a record in a
    /// folded group its head.
    void SetCurrentId(const QString& id);
    /// First and last row in sight, heads included; last below first when there is none.
    [[nodiscard]] std::pair<int, int> RowsInSight() const;
    /// The records among them, as rows of the model.
    [[nodiscard]] std::vector<int> ListRowsInSight() const;

    /// Whether there are heads.
    [[nodiscard]] bool IsGrouped() const;
    /// Null while there are none.
    [[nodiscard]] CGroupedRows* Groups() const { return IsGrouped() ? m_grouped : nullptr; }
    /// Folds the group of a head, or unfolds it.
    void Fold(int headRow, bool isFolded);
    void FoldAll(bool isFolded);
    [[nodiscard]] bool AreAllFolded() const;
    /// All records that are listed: those in folded groups are unfolded for it.
    void selectAll() override;

    /// Shows only the records that have these words, and marks the words; without any it shows all again. The
    /// selection stays as far as its records are shown. What was selected and in sight before comes back at
    /// the end, unless the user has selected something else meanwhile.
    void Find(const QString& words);
    [[nodiscard]] bool IsFinding() const;
    /// Of the records that are shown, those in folded groups included.
    [[nodiscard]] int ShownCount() const;
    /// Identities of these records, in their order.
    [[nodiscard]] QStringList ShownIds() const;
    /// The records that have the words which are looked for.
    void ForEachFound(const std::function<void(const CVORec& record)>& visit) const;

    /// The widths of columns that differ from those last shown go to the list's columns in the settings, that
    /// of the state to iconColumnWidth. The last column fills the row, and its width is taken only where it
    /// has no more than its own.
    void CaptureWidths();
    /// The columns without a width of the user's are measured anew.
    void FitColumns();

 Q_SIGNALS:
    /// Hint 11: what is selected has changed.
    void SelectionChanged();
    void EditWanted(const QString& id);
    void MenuWanted(const QPoint& globalPosition);
    /// Escape while words are looked for.
    void FindEndWanted();
    /// The user has let go of a column's edge: the widths are to be captured and kept.
    void ColumnResized();
    /// A double click on a column's edge: it is to get the width that its contents need.
    void FitWanted(int column);
    /// The user has dragged a column: all that are shown, in their new order.
    void ColumnsMoved(const std::vector<int>& columns);
    /// column: under the pointer, Column::kNone where there is none.
    void HeaderMenuWanted(const QPoint& globalPosition, int column);

 protected:
    /// Home and End go to the first and last record, not to the ends of a row.
    [[nodiscard]] QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void reset() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
    /// A selection of at most so many records is taken along when other rows are shown.
    static constexpr int kMostTakenAlong = 1000;

    [[nodiscard]] bool IsOnCheckBox(const QPoint& at) const;
    void ApplyFont();
    void ToggleRow(int row);
    [[nodiscard]] int ListRowOf(int row) const;
    [[nodiscard]] QString IdAt(int row) const;
    [[nodiscard]] std::vector<int> FoundRowsOf(const QStringList& ids) const;
    [[nodiscard]] std::vector<int> ShownRowsOf(const QStringList& ids) const;
    [[nodiscard]] int RowToStandOn(const QString& id) const;
    [[nodiscard]] int FirstRecordRow() const;
    void SelectShown(const std::vector<int>& rows);
    [[nodiscard]] bool WantsGroups() const;
    [[nodiscard]] bool ShowsFound() const;
    void ShowRightRows();
    void ShowModel(QAbstractItemModel& shown);
    [[nodiscard]] bool IsHead(int row) const;
    [[nodiscard]] int RecordsIn(int first, int last) const;
    void SizeHeads(int first, int last);
    void SizeRows();
    void PaintHead(QPainter& painter, int row);
    [[nodiscard]] bool IsGroupKey(const QKeyEvent& event) const;
    [[nodiscard]] bool ApplyGroupKey(int key);
    [[nodiscard]] bool GoToHead();
    [[nodiscard]] bool FoldAt(const QPoint& at);
    void RememberHead();
    void LeaveRows(const QModelIndex& parent, int first, int last);
    void RememberPlace();
    void TakeUpPlace();

    CRecordListModel& m_model;
    CCfgStore& m_settings;
    CRecordDelegate* m_cells;
    CRecordLineDelegate* m_lines;
    CShownRows* m_found;
    CGroupedRows* m_grouped;
    CListHeader* m_header;
    std::uint32_t m_headDay = 0;  ///< first day of the group whose head had the keyboard before a reset
    bool m_hadHead = false;
    /// What was selected, current and on top before the search.
    struct Place {
        QStringList selected;
        QString current;
        QString top;
    };
    Place m_before;
    bool m_isFollowing = false;  ///< the selection is being taken along, not changed by the user
    bool m_hasSelected = false;  ///< the user has selected something during the search
    bool m_isToggling = false;   ///< the press was on a check box, so its release is nothing else
};
