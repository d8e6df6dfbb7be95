#pragma once

#include "viewmodel/fields/PadState.h"

#include <QFrame>

class CMnemonics;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// The frame of a popup in which something is picked: the subclass's pad above a row of buttons. Return
/// accepts or presses the button that has the focus; Escape and a click elsewhere leave all as it was.
class CPickPopup : public QFrame {
    Q_OBJECT

 public:
    explicit CPickPopup(QWidget* parent);

 Q_SIGNALS:
    /// The choice stands in the scratch record.
    void Accepted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// A command of the pad by its number.
    virtual PadState Press(int id) = 0;
    /// Presses and closes when that ended the choice.
    void Run(int id);

    struct Button {
        const char* name;
        QString caption;
        int id;
    };
    /// Buttons in a row; the last one stands apart at its end.
    void AddButtons(std::initializer_list<Button> buttons, CMnemonics& mnemonics);
    [[nodiscard]] QPushButton* MakeButton(const Button& button, CMnemonics& mnemonics);
    /// A caption above a part of the pad, with a letter that leads to it.
    [[nodiscard]] static QLabel* MakeLabel(const QString& caption, QWidget& part, const QString& name,
                                           CMnemonics& mnemonics);
    [[nodiscard]] QVBoxLayout& Column() { return *m_column; }

 private:
    QVBoxLayout* m_column;
};
