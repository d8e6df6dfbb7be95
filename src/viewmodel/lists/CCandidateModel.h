#pragma once

#include "lists/CDependencyEditor.h"

#include <QAbstractListModel>
#include <functional>
#include <vector>

/// The items that can be put under a node of the edited tree, narrowed by words.
class CCandidateModel final : public QAbstractListModel {
    Q_OBJECT

 public:
    using Node = DependencyTree::Node;
    /// Takes the line of a path of identities off the tree; false when there is none.
    using TakeOff = std::function<bool(const QStringList& path)>;

    CCandidateModel(CDependencyEditor& editor, TakeOff takeOff, QObject* parent = nullptr);

    /// Null: no candidates.
    void Show(const Node* node);
    /// Only those that have all words, in any order and case.
    void Narrow(const QString& words);
    /// The list of the candidates, -1 for none.
    [[nodiscard]] int List() const { return m_list; }
    /// All, whatever is shown of them.
    [[nodiscard]] qsizetype Count() const { return m_texts.size(); }
    [[nodiscard]] bool IsNarrowed() const;
    [[nodiscard]] const QString& TextAt(int row) const;
    [[nodiscard]] QStringList Shown() const;
    /// -1 for a text that isn't shown.
    [[nodiscard]] int RowOf(const QString& text) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& indexes) const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                       const QModelIndex& parent) const override;
    /// A line of the tree that is dropped here goes from the tree.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

 private:
    CDependencyEditor& m_editor;
    TakeOff m_takeOff;
    int m_list = -1;
    QStringList m_texts;
    QString m_words;
    std::vector<int> m_shown;  ///< places in the texts
};
