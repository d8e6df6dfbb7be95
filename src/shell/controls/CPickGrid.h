#pragma once

#include <QStringList>
#include <QTableWidget>

/// Buttons in a grid, as high as they are and as wide as there is room: arrows and the mouse tap them, Space
/// taps the one under the cursor. Which one is lit is for the owner to say; Return and Escape are its affair
/// too.
class CPickGrid final : public QTableWidget {
    Q_OBJECT

 public:
    static constexpr int kNone = -1;

    CPickGrid(const QStringList& captions, int columns, QWidget* parent = nullptr);

    /// The cursor, which doesn't light anything, and the lit button or kNone. Neither is announced.
    void Show(int cursor, int lit);
    [[nodiscard]] int Lit() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Typing taps nothing: a table looks for the text in one column alone.
    void keyboardSearch(const QString&) override {}

 Q_SIGNALS:
    void Tapped(int place);
    /// A double click: tapped, and that was all.
    void Taken(int place);

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void FitToCells();
    [[nodiscard]] QModelIndex IndexOf(int place) const;
    [[nodiscard]] int PlaceOf(int row, int column) const;
    [[nodiscard]] bool HasPlace(int row, int column) const;

    int m_count;
};
