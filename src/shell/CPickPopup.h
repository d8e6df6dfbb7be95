#pragma once

#include <QFrame>
#include <QStringList>

class CMnemonics;
class QHBoxLayout;
class QPushButton;
class QTableWidget;

/// A small popup with hours and minutes in two grids: arrows move, Tab changes the grid, Return takes, Escape
/// and a click elsewhere leave all as it was. With the mouse a minute, or a double click on an hour, ends the
/// choice.
class CPickPopup final : public QFrame {
    Q_OBJECT

 public:
    struct Choice {
        QStringList hours;  ///< 24 captions, from 0
        int step = 5;       ///< minutes from one choice to the next
        int hour = 0;       ///< at the start
        int minute = 0;     ///< may lie between two choices; it is kept then until one is taken
        bool hasNow = false;
    };
    CPickPopup(const Choice& choice, QWidget* parent);

 Q_SIGNALS:
    void Picked(int hour, int minute);
    void Cleared();
    void NowWanted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] QTableWidget* AddGrid(const QString& name, const QString& caption, const QStringList& cells,
                                        CMnemonics& mnemonics);
    void BuildGrids(const Choice& choice, CMnemonics& mnemonics);
    QPushButton* AddButton(QHBoxLayout& row, const QString& name, const QString& caption,
                           CMnemonics& mnemonics);
    void BuildButtons(QHBoxLayout& row, bool hasNow, CMnemonics& mnemonics);
    void Finish();

    QTableWidget* m_hours = nullptr;
    QTableWidget* m_minutes = nullptr;
    int m_step;
    int m_hour;
    int m_minute;
};
