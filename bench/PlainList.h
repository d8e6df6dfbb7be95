#pragma once

#include <QAbstractTableModel>
#include <QMainWindow>
#include <QPixmap>
#include <vector>

class CRecordListModel;
class CRecordListView;
class QTableView;
struct WindowHome;

/// Texts and pictures that are made already. Beyond them they come again, so that a long list needs little
/// memory.
class PlainRows final : public QAbstractTableModel {
 public:
    PlainRows(WindowHome& home, QObject* parent);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

 private:
    int m_rows;
    std::vector<std::vector<QVariant>> m_cells;  ///< a text or a picture
};

/// What a page of the list can't undercut: Qt's own view with its own drawing of cells, over ready-made texts
/// of the same shape, in a window of the same size.
class PlainList {
 public:
    explicit PlainList(WindowHome& home);
    [[nodiscard]] QTableView& View() { return *m_view; }

 private:
    QMainWindow m_window;
    QTableView* m_view;
};
