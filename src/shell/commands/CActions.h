#pragma once

#include "shell/commands/CCommandBars.h"
#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/commands/CommandWords.h"

#include <QObject>
#include <QStringList>
#include <map>
#include <memory>
#include <vector>

class CDefaultsMenu;
class FieldLabels;
class QAction;
class QMainWindow;
class QMenu;

/// The commands as the user meets them: menus, tool bars and shortcuts, all made from the command table.
/// Commands on a field are called as the user calls the field, and each entry of a menu has a mnemonic of its
/// own.
class CActions final : public QObject {
    Q_OBJECT

 public:
    explicit CActions(QMainWindow& window);

    /// What fields are called; until then by their default names. The labels must outlive the window.
    void ShowNamesOf(const FieldLabels& labels);
    /// Offers, checks and names each command as the state says.
    void Update(const CommandState& state);
    /// Takes the icons anew, after the icon theme or the colours changed.
    void RefreshIcons();

    [[nodiscard]] CCommandBars& Bars() { return *m_bars; }
    [[nodiscard]] CDefaultsMenu& Defaults() { return *m_defaults; }
    /// The menu at a place of the list.
    [[nodiscard]] QMenu& ContextMenu() { return *m_context; }
    /// The first row with a number; for tests and for the button of a command.
    [[nodiscard]] QAction* Action(int command) const;

 Q_SIGNALS:
    void Triggered(int command);
    /// A menu opens: what it shows is what the state is now, so the owner calls Update.
    void StateWanted();

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
    void ShowHistory(const CommandState& state);
    void ShowNames(bool timeMode);
    [[nodiscard]] CommandWords Words(const CommandRow& row) const;
    void ShowWords(const Made& made);
    void GiveMnemonics(Menu which);

    [[nodiscard]] CCommandBars::Button ButtonOf(int command) const;

    QMainWindow& m_window;
    const FieldLabels* m_labels;
    bool m_timeMode = true;
    QStringList m_shownNames;  ///< of fields, as they were last shown
    std::vector<Made> m_made;
    std::map<Menu, QMenu*> m_menus;
    std::unique_ptr<CCommandBars> m_bars;
    QMenu* m_context = nullptr;
    CDefaultsMenu* m_defaults = nullptr;
};
