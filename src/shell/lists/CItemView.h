#pragma once

#include <QStringList>
#include <QTreeView>

class CItemModel;

/// The items of a pick list, of which several can be selected. Its keys: Insert, Delete, F2.
class CItemView final : public QTreeView {
    Q_OBJECT

 public:
    explicit CItemView(CItemModel& items, QWidget* parent = nullptr);

    /// In the order in which they are shown.
    [[nodiscard]] QStringList Selected() const;
    /// The item that the cursor is on, where it is selected; empty for none.
    [[nodiscard]] QString Current() const;
    /// Selects an item alone, and scrolls to it.
    void Select(const QModelIndex& item);

 Q_SIGNALS:
    void AddWanted();  ///< the text has yet to be typed
    void DeleteWanted();
    void RenameWanted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] bool viewportEvent(QEvent* event) override;

 private:
    CItemModel& m_items;
};
