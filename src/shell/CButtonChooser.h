#pragma once

#include "shell/core/BarButtons.h"

#include <QDialog>
#include <optional>

class CMnemonics;
class CProfile;
class FieldLabels;
class QHBoxLayout;
class QListWidget;
class QPushButton;
class QVBoxLayout;

/// Which buttons a tool bar has, in which order, with dividing lines between them: two lists and buttons
/// between them. A double click and Space move a line over, Alt+Up and Alt+Down move one of the bar.
class CButtonChooser final : public QDialog {
    Q_OBJECT

 public:
    /// How buttons are called: as in the mode with these names of fields.
    struct Names {
        bool timeMode;
        const FieldLabels& labels;
    };
    /// The profile keeps its size.
    CButtonChooser(Bar bar, const QList<int>& buttons, const Names& names, CProfile& profile,
                   QWidget* parent = nullptr);

    [[nodiscard]] const QList<int>& Buttons() const { return m_choice.OnBar(); }
    void done(int result) override;

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] QListWidget* AddList(QHBoxLayout& lists, Text caption, const char* name,
                                       CMnemonics& mnemonics);
    void AddButtons(QHBoxLayout& lists, CMnemonics& mnemonics);
    void Fill(QListWidget& list, const QList<int>& buttons, int current);
    void ShowLists(int availableLine, int onBarLine);
    void ShowUse();
    void Take();
    void GiveBack();
    void Move(int (ButtonChoice::*move)(int line));

    ButtonChoice m_choice;
    Names m_names;
    CProfile& m_profile;
    QListWidget* m_available;
    QListWidget* m_onBar;
    QPushButton* m_take = nullptr;
    QPushButton* m_giveBack = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
};

/// The buttons as chosen; nothing when the user cancelled.
[[nodiscard]] std::optional<QList<int>> RunButtonChooser(QWidget* parent, Bar bar, const QList<int>& buttons,
                                                         const CButtonChooser::Names& names,
                                                         CProfile& profile);
