#pragma once

#include <QToolButton>

/// A flat button with words that give way: what doesn't fit is elided.
class CElidedButton final : public QToolButton {
    Q_OBJECT

 public:
    explicit CElidedButton(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
};
