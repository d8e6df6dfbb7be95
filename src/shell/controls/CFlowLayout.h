#pragma once

#include <QLayout>
#include <memory>
#include <vector>

/// Puts widgets side by side and goes on below where a row is full. One that is wider than a row takes a row
/// of its own and is cut.
class CFlowLayout final : public QLayout {
 public:
    explicit CFlowLayout(QWidget* parent) : QLayout(parent) {}
    ~CFlowLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    [[nodiscard]] QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& place) override;

 private:
    [[nodiscard]] std::vector<QRect> PlacesIn(const QRect& inside) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};
