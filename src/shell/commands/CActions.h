#pragma once

#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/commands/CommandWords.h"

#include <QList>
#include <QObject>
#include <QStringList>
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

    /// What fields are called; until then by their default names. The labels must outlive the window.
    void ShowNamesOf(const FieldLabels& labels);
    /// Offers, checks and names each command as the state says.
    void Update(const CommandState& state);
    /// Takes the icons anew, after the icon theme or the colours changed.
    void RefreshIcons();

    /// The buttons of a bar in their order, kDivider for a dividing line. The period button is always on bar
    /// 102, between those of the former and the next period.
    void SetButtons(Bar bar, const QList<int>& buttons);
    [[nodiscard]] const QList<int>& Buttons(Bar bar) const { return m_bars.at(bar).buttons; }

    /// The first row of each bar.
    [[nodiscard]] QToolBar& RecordsBar() { return *m_bars.at(Bar::Records).rows.front(); }
    [[nodiscard]] QToolBar& FiltersBar() { return *m_bars.at(Bar::Filters).rows.front(); }
    /// Gives each bar as many rows as its buttons need in a window of that width; those below the first are
    /// shown with it.
    void Wrap(int width);
    [[nodiscard]] std::size_t RowsOf(Bar bar) const { return m_bars.at(bar).rows.size(); }
    [[nodiscard]] CPeriodButton& PeriodButton() { return *m_period; }
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
    /// A bar of one or more rows, each a tool bar of the window.
    struct WrappedBar {
        Text title;
        QString name;
        QList<int> buttons;
        std::vector<QToolBar*> rows;
        std::vector<QList<int>> shown;  ///< what stands on each row
    };
    void MakeActions();
    [[nodiscard]] QAction* MakeAction(const CommandRow& row);
    void GroupChoices();
    void MakeMenus();
    void FillMenu(QMenu& menu, Menu which);
    void MakeContextMenu();
    void ShowNames(bool timeMode);
    [[nodiscard]] CommandWords Words(const CommandRow& row) const;
    void ShowWords(const Made& made);
    void GiveMnemonics(Menu which);

    [[nodiscard]] QToolBar* MakeRow(const WrappedBar& bar);
    void MakeBars();
    void WrapBar(Bar which);
    [[nodiscard]] int RoomOnARow(const QToolBar& row) const;
    [[nodiscard]] int WidthOf(const WrappedBar& bar, int element) const;
    void Place(Bar which, const std::vector<QList<int>>& rows);
    void AddRow(Bar which);
    void DropRow(WrappedBar& bar);
    void AddElement(QToolBar& bar, int element);
    void AddButton(QToolBar& bar, int command);
    void NameButtons();

    QMainWindow& m_window;
    const FieldLabels* m_labels;
    bool m_timeMode = true;
    QStringList m_shownNames;  ///< of fields, as they were last shown
    std::vector<Made> m_made;
    std::map<Menu, QMenu*> m_menus;
    std::map<Bar, WrappedBar> m_bars;
    int m_width = 0;  ///< of the window; 0 before it is known
    CPeriodButton* m_period = nullptr;
    QAction* m_periodPlace = nullptr;  ///< the period button as an element of its bar
    QMenu* m_context = nullptr;
};
