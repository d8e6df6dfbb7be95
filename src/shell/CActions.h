#pragma once

#include "shell/core/CommandTable.h"
#include "shell/core/CommandWords.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

class CPeriodButton;
class FieldLabels;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// The commands as the user meets them: menus, tool bars and shortcuts, all made from the command table.
/// Commands on a field are called as the user calls the field, and each entry of a menu has a mnemonic of its
/// own.
class CActions final : public QObject {
    Q_OBJECT

 public:
    explicit CActions(QMainWindow& window);

    /// Where state and names come from when a menu opens; without it the state is what Update was told last,
    /// and fields have their default names. Labels must outlive the window.
    void Follow(std::function<CommandState()> state, const FieldLabels* labels);
    /// Offers, checks and names each command as the state says.
    void Update(const CommandState& state);
    /// Takes the icons anew, after the icon theme or the colours changed.
    void RefreshIcons();

    /// The buttons of a bar in their order, kDivider for a dividing line. The period button is always on bar
    /// 102, between those of the former and the next period.
    void SetButtons(Bar bar, const QList<int>& buttons);
    [[nodiscard]] const QList<int>& Buttons(Bar bar) const { return m_buttons.at(bar); }

    [[nodiscard]] QToolBar& RecordsBar() { return *m_records; }
    [[nodiscard]] QToolBar& FiltersBar() { return *m_filters; }
    [[nodiscard]] CPeriodButton& PeriodButton() { return *m_period; }
    /// The menu at a place of the list.
    [[nodiscard]] QMenu& ContextMenu() { return *m_context; }
    /// The first row with a number; for tests and for the button of a command.
    [[nodiscard]] QAction* Action(int command) const;

 Q_SIGNALS:
    void Triggered(int command);

 private:
    struct Made {
        const CommandRow* row;
        QAction* action;
    };
    void MakeActions();
    [[nodiscard]] QAction* MakeAction(const CommandRow& row);
    void GroupChoices();
    void MakeMenus();
    void FillMenu(QMenu& menu, Menu which);
    void MakeContextMenu();
    void AskForState();
    void ShowNames(bool timeMode);
    [[nodiscard]] CommandWords Words(const CommandRow& row) const;
    void ShowWords(const Made& made);
    void GiveMnemonics(Menu which);

    [[nodiscard]] QToolBar* MakeBar(Text title, const QString& name);
    void MakeBars();
    void AddButton(QToolBar& bar, int command);
    void NameButtons();

    QMainWindow& m_window;
    std::function<CommandState()> m_state;
    const FieldLabels* m_labels;
    bool m_timeMode = true;
    QStringList m_shownNames;  ///< of fields, as they were last shown
    std::vector<Made> m_made;
    std::map<Menu, QMenu*> m_menus;
    std::map<Bar, QList<int>> m_buttons;
    QToolBar* m_records = nullptr;
    QToolBar* m_filters = nullptr;
    CPeriodButton* m_period = nullptr;
    QAction* m_periodPlace = nullptr;  ///< the period button as an element of its bar
    QMenu* m_context = nullptr;
};
