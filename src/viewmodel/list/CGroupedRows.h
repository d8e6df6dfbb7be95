#pragma once

#include "viewmodel/list/CRowGroups.h"

#include <QAbstractProxyModel>
#include <QHash>
#include <array>
#include <optional>
#include <vector>

class CRecordListModel;
class CShownRows;
struct Settings;

/// What the head of a group says.
struct GroupHead {
    QString title;
    QString count;  ///< "3 records", "no records"
    QString hours;  ///< worked in all, empty for none
    QString money;  ///< by currency, empty for none
    bool isFolded = false;
};

/// The rows of the record list, or those found in it, in groups of days with a head above each. It stands in
/// for them while the list is grouped; until then it has no rows and follows nothing.
/// A head is a row with nothing but its words: it can have the keyboard, but it can't be selected. What it
/// sums up is worked out when it is asked for, from the records of its group, and again after one of them has
/// changed. During a search all groups are unfolded at first; at its end they are folded as before.
class CGroupedRows final : public QAbstractProxyModel {
    Q_OBJECT

 public:
    CGroupedRows(CRecordListModel& list, CShownRows& found, const Settings& settings,
                 QObject* parent = nullptr);

    /// Follows the rows of the list, or those found, from now on, grouped as the settings say.
    void Begin(bool areFound);
    void End();

    [[nodiscard]] bool IsHead(int row) const { return m_groups->IsHead(row); }
    /// The row of the list, or among those found; -1 for a head.
    [[nodiscard]] int SourceRowOf(int row) const { return m_groups->RowAt(row); }
    /// -1 for a row that isn't shown.
    [[nodiscard]] int RowOf(int sourceRow) const { return m_groups->PlaceOf(sourceRow); }
    /// The head of the group that a row belongs to, itself included.
    [[nodiscard]] int HeadOf(int row) const;
    /// The head above a row of the list or among those found, whether that row is shown or not.
    [[nodiscard]] int HeadOfSource(int sourceRow) const;
    /// The head of a group by its first day, -1 without one.
    [[nodiscard]] int HeadOfDay(std::uint32_t firstDay) const;
    [[nodiscard]] std::uint32_t FirstDayOf(int headRow) const;
    [[nodiscard]] std::vector<int> Heads() const;
    [[nodiscard]] GroupHead HeadAt(int headRow) const;
    /// How many of these rows are records.
    [[nodiscard]] int RecordsIn(int first, int last) const { return m_groups->RowsIn(first, last); }

    void SetFolded(int headRow, bool isFolded);
    void SetAllFolded(bool isFolded);
    [[nodiscard]] bool AreAllFolded() const;
    [[nodiscard]] bool IsAnyFolded() const;
    /// Unfolds the groups of these rows of the list, or among those found.
    void Show(const std::vector<int>& sourceRows);

    [[nodiscard]] QModelIndex mapToSource(const QModelIndex& shown) const override;
    [[nodiscard]] QModelIndex mapFromSource(const QModelIndex& listed) const override;
    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

 private:
    /// Something that is pointed to from outside while the rows are parted anew.
    struct Pointed {
        QPersistentModelIndex record;           ///< of the source; not valid for a head
        std::optional<std::uint32_t> firstDay;  ///< of a head's group
        int column = 0;
    };
    struct Words {
        QString title, count, hours, money;
    };

    void Follow(QAbstractItemModel& source);
    void Part();
    void TakeInserted(int first, int last);
    void DropRemoved(int first, int last);
    void CloseGap();
    void TellChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);
    void TellHead(int group);
    void BeginParting();
    void EndParting();
    [[nodiscard]] bool AreInTheirGroup(int first, int last) const;
    [[nodiscard]] bool AreManyDays(int first, int last) const;
    [[nodiscard]] int EndOfDay(int first, int last) const;
    [[nodiscard]] int ListRowOf(int sourceRow) const;
    [[nodiscard]] std::uint32_t DayAt(int sourceRow) const;
    [[nodiscard]] QVariant HeadData(const QModelIndex& index, int role) const;
    [[nodiscard]] QString HeadInWords(int row) const;
    [[nodiscard]] const Words& WordsOf(const CRowGroups::Group& group) const;

    CRecordListModel& m_list;
    CShownRows& m_found;
    const Settings& m_settings;
    ListGroups m_by = ListGroups::None;
    bool m_areFound = false;
    CRowGroups m_ofList, m_ofFound;
    CRowGroups* m_groups = &m_ofList;
    std::array<QMetaObject::Connection, 10> m_following;
    mutable QHash<unsigned, Words> m_words;  ///< by number of the group
    bool m_isParting = false;
    QModelIndexList m_pointedTo;
    std::vector<Pointed> m_pointed;
};
