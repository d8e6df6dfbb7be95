#pragma once

#include "lang/Text.h"

#include <QWidget>
#include <functional>

class CMnemonics;
class QGridLayout;
class QListWidget;
class QPushButton;
class QVBoxLayout;

/// Two lists with buttons between them: what can be taken, and what was taken in its order. A double click
/// and Space move a line over, Alt+Up and Alt+Down move a taken one. What the lines are and where one goes is
/// the owner's to say.
class CTwoLists final : public QWidget {
    Q_OBJECT

 public:
    struct Button {
        Text caption;
        Text tip;
        const char* name;
    };
    struct Words {
        Text available;
        const char* availableName;
        Text taken;
        const char* takenName;
        Button take, giveBack, up, down;
    };
    /// Each answers the line that is to be selected in the list where it went, kNone for none.
    struct Moves {
        std::function<int(int line)> take, giveBack, up, down;
        /// Puts the present lines into a list that is empty.
        std::function<void(QListWidget& available, QListWidget& taken)> fill;
    };
    static constexpr int kNone = -1;

    CTwoLists(const Words& words, Moves moves, CMnemonics& mnemonics);

    /// A further button below the others.
    QPushButton* AddButton(const Button& button, const char* icon, CMnemonics& mnemonics);
    /// Fills the lists and selects these lines, or the last ones where there are fewer.
    void ShowLines(int availableLine, int takenLine);
    [[nodiscard]] QListWidget& Available() { return *m_available; }
    [[nodiscard]] QListWidget& Taken() { return *m_taken; }

 Q_SIGNALS:
    /// The lists were filled, or another line is current.
    void LinesChanged();

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] QListWidget* AddList(Text caption, const char* name, int column, CMnemonics& mnemonics);
    void AddMoveButtons(const Words& words, CMnemonics& mnemonics);
    void Take();
    void GiveBack();
    void Move(bool isUp);
    void ShowUse();

    Moves m_moves;
    QGridLayout* m_grid;
    QVBoxLayout* m_buttons;
    QListWidget* m_available;
    QListWidget* m_taken = nullptr;
    QPushButton* m_take = nullptr;
    QPushButton* m_giveBack = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_lastButton = nullptr;  ///< of the column between the lists
};
