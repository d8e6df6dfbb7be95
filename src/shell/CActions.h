#pragma once

#include "shell/core/CommandTable.h"

#include <QHash>
#include <QObject>
#include <map>

class CPeriodButton;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
class QWidget;

/// The commands as the user meets them: menus, tool bars and shortcuts, all made from the command table.
class CActions final : public QObject {
    Q_OBJECT

 public:
    explicit CActions(QMainWindow& window);

    /// Offers and checks each command as the state says.
    void Update(const CommandState& state);
    /// Takes the icons anew, after the icon theme or the colours changed.
    void RefreshIcons();

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
    void MakeMenus();
    void MakeBars();
    void MakeContextMenu();
    [[nodiscard]] QAction* MakeAction(const CommandRow& row);
    void FillMenu(QMenu& menu, Menu which);
    void AddButton(QToolBar& bar, const Made& made);
    [[nodiscard]] QToolBar* MakeBar(Text title, const QString& name, Bar which);

    QMainWindow& m_window;
    std::vector<Made> m_made;
    std::map<Menu, QMenu*> m_menus;
    QToolBar* m_records = nullptr;
    QToolBar* m_filters = nullptr;
    CPeriodButton* m_period = nullptr;
    QMenu* m_context = nullptr;
};
