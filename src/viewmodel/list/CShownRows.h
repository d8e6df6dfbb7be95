#pragma once

#include <QAbstractProxyModel>
#include <vector>

class CRecordListModel;

/// The rows of the record list that have words in a text or the notes, in the order of the list. It stands
/// in for the list only while words are looked for; until then it has no rows and follows nothing.
/// A record that is added or changed meanwhile is shown whatever it says, until the words change or the list
/// is rebuilt.
class CShownRows final : public QAbstractProxyModel {
    Q_OBJECT

 public:
    explicit CShownRows(CRecordListModel& list, QObject* parent = nullptr);

    /// Looks for words; without any it has no rows.
    void Find(const QString& words);
    [[nodiscard]] bool IsFinding() const { return !m_words.isEmpty(); }

    [[nodiscard]] int ListRowOf(int shownRow) const { return m_rows[static_cast<std::size_t>(shownRow)]; }
    /// -1 for a row of the list that isn't shown.
    [[nodiscard]] int ShownRowOf(int listRow) const;

    [[nodiscard]] QModelIndex mapToSource(const QModelIndex& shown) const override;
    [[nodiscard]] QModelIndex mapFromSource(const QModelIndex& listed) const override;
    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

 private:
    void Follow();
    void Fill();
    [[nodiscard]] std::vector<int> RowsWithWords(const QString& words) const;
    [[nodiscard]] int PlaceOf(int listRow) const;
    void TakeInserted(int first, int last);
    void DropRemoved(int first, int last);
    void CloseGap(int first, int last);
    void TellChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);
    void RememberPlaces();
    void TakeNewOrder();

    CRecordListModel& m_list;
    QString m_words;
    std::vector<int> m_rows;  ///< rows of the list, ascending
    bool m_hasAll = false;    ///< no record has changed since, so none has got the words
    // While the list is being sorted: the records shown, and what is pointed to, here and in the list.
    QStringList m_ids;
    QModelIndexList m_pointedTo;
    QList<QPersistentModelIndex> m_listed;
};
