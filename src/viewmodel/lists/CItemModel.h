#pragma once

#include "lists/CItemUse.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

/// The items of one pick list in their order: each with how many records use it, and narrowed to those that
/// have the words typed. Rows are texts, so that 50,000 of them are shown as quickly as five.
class CItemModel final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Section { TextSection, UseSection, SectionCount };

    explicit CItemModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    /// use: nothing where it isn't known. What is narrowed stays so.
    void SetItems(QStringList texts, std::optional<CItemUse> use);
    /// No words: all items.
    void Narrow(const QString& words);

    [[nodiscard]] int ItemCount() const { return static_cast<int>(m_texts.size()); }
    [[nodiscard]] QString TextAt(int row) const;
    /// Invalid where the item isn't shown.
    [[nodiscard]] QModelIndex IndexOf(const QString& text) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

 private:
    [[nodiscard]] QString UseOf(const QString& text) const;
    void ShowFound();

    QStringList m_texts;
    std::optional<CItemUse> m_use;
    QString m_words;
    std::vector<int> m_shown;  ///< places among the texts
};
