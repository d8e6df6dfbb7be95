#pragma once

#include <QLabel>

/// A label of one line that gives way: what doesn't fit is elided and shown in full as a tip.
class CElidedLabel final : public QLabel {
    Q_OBJECT

 public:
    explicit CElidedLabel(QWidget* parent = nullptr);

    /// What the text is called; read aloud it comes before it: "Period shown: This week".
    void SetCaption(const QString& caption);
    /// tip: in place of the text where it says more.
    void SetFullText(const QString& text, const QString& tip = {});
    [[nodiscard]] const QString& FullText() const { return m_full; }
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString m_caption;
    QString m_full;
};
