#pragma once

#include "lang/Text.h"
#include "shell/core/ColumnChoice.h"

#include <QWidget>

class CMnemonics;
class QListWidget;
class QPushButton;
class QVBoxLayout;

/// Which columns are shown and in which order: two lists, with buttons between them. A double click and Space
/// move a line over, Alt+Up and Alt+Down move a shown one.
class CColumnPage final : public QWidget {
    Q_OBJECT

 public:
    explicit CColumnPage(QWidget* parent = nullptr);

    /// hasSeparators: line breaks can be set.
    void SetDraft(const ChosenColumns& columns, bool hasSeparators);
    [[nodiscard]] ChosenColumns GetDraft() const { return m_choice.Close(); }

 protected:
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QListWidget* AddList(Text caption, const char* name, int column, CMnemonics& mnemonics);
    QPushButton* AddButton(QVBoxLayout& buttons, Text caption, Text tip, const char* name, const char* icon,
                           CMnemonics& mnemonics);
    void AddButtons(CMnemonics& mnemonics);
    void Take();
    void GiveBack();
    void Move(int (ColumnChoice::*move)(int line));
    void ShowLists(int availableLine, int shownLine);
    void ShowUse();

    ColumnChoice m_choice;
    QListWidget* m_available;
    QListWidget* m_shown;
    QPushButton* m_take = nullptr;
    QPushButton* m_giveBack = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
};
