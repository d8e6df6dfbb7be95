#pragma once

#include "app/RecordMode.h"

#include <QAbstractTableModel>

class CLabelEditor;
class FieldLabels;
struct LabelRow;

/// The names of the fields of one kind of records as a table that can be edited: the field, the heading of
/// its list, its name. A name that is entered is stored at once; what a cell shows is what is stored.
class CLabelModel final : public QAbstractTableModel {
    Q_OBJECT

 public:
    static constexpr int kField = 0, kHeading = 1, kName = 2;  ///< its columns
    static constexpr int kColumns = 3;
    /// Whether a cell shows a default name, as the user has given none.
    static constexpr int kIsDefaultRole = Qt::UserRole;

    CLabelModel(RecordMode mode, const FieldLabels& labels, CLabelEditor& editor, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// An empty text takes the name away. False when the name could not be stored; the user was told then.
    bool setData(const QModelIndex& index, const QVariant& text, int role = Qt::EditRole) override;

    /// Many names may be others.
    void ShowAll();

 private:
    [[nodiscard]] const LabelRow& RowOf(const QModelIndex& index) const;
    [[nodiscard]] int FieldOf(const QModelIndex& index) const;
    [[nodiscard]] QString NameIn(const QModelIndex& index) const;
    [[nodiscard]] QString InWords(const QModelIndex& index) const;

    RecordMode m_mode;
    const FieldLabels& m_labels;
    CLabelEditor& m_editor;
};
