#pragma once

#include "lang/Text.h"
#include "viewmodel/commands/CommandTable.h"

#include <QList>
#include <QString>
#include <functional>
#include <map>
#include <vector>

class CPeriodButton;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// The three tool bars of the window, each of as many rows as its buttons need.
class CCommandBars {
 public:
    /// What a button is made of.
    struct Button {
        QAction* action = nullptr;  ///< null for a command that isn't one of these
        QMenu* menu = nullptr;      ///< opens under the button; null for none
        QString name;               ///< in words, for a screen reader
    };
    using ButtonOf = std::function<Button(int command)>;

    CCommandBars(QMainWindow& window, ButtonOf buttonOf);
    CCommandBars(const CCommandBars&) = delete;
    CCommandBars& operator=(const CCommandBars&) = delete;

    /// The buttons of a bar in their order, kDivider for a dividing line. The period button is always on bar
    /// 102, between those of the former and the next period.
    void SetButtons(Bar bar, const QList<int>& buttons);
    [[nodiscard]] const QList<int>& Buttons(Bar bar) const { return m_bars.at(bar).buttons; }
    /// Filters of the other kind of records have no button meanwhile.
    void SetMode(bool timeMode);
    /// After commands were given other names.
    void NameButtons();

    /// The first row of each bar.
    [[nodiscard]] QToolBar& Records() const { return *m_bars.at(Bar::Records).rows.front(); }
    [[nodiscard]] QToolBar& Filters() const { return *m_bars.at(Bar::Filters).rows.front(); }
    /// Shown only while a report is.
    [[nodiscard]] QToolBar& Report() const { return *m_bars.at(Bar::Report).rows.front(); }
    /// Gives each bar as many rows as its buttons need in a window of that width; those below the first are
    /// shown with it. Where the buttons don't fit a row, the words beside their pictures go first.
    void Wrap(int width);
    [[nodiscard]] std::size_t RowsOf(Bar bar) const { return m_bars.at(bar).rows.size(); }
    [[nodiscard]] CPeriodButton& PeriodButton() const { return *m_period; }

 private:
    /// A bar of one or more rows, each a tool bar of the window.
    struct WrappedBar {
        Text title;
        QString name;
        QList<int> buttons = {};
        std::vector<QToolBar*> rows = {};
        std::vector<QList<int>> shown = {};  ///< what stands on each row
    };
    [[nodiscard]] QToolBar* MakeRow(const WrappedBar& bar);
    void WrapBar(Bar which);
    [[nodiscard]] QList<int> ElementsOf(Bar which) const;
    [[nodiscard]] int WidthOfAll() const;
    void FitWords();
    void ShowWords(bool areShown);
    [[nodiscard]] int RoomOnARow(const QToolBar& row) const;
    [[nodiscard]] int WidthOf(const WrappedBar& bar, int element) const;
    void Place(Bar which, const std::vector<QList<int>>& rows);
    void AddRow(Bar which);
    void DropRow(WrappedBar& bar);
    void AddElement(QToolBar& bar, int element);
    void AddButton(QToolBar& bar, int command);

    QMainWindow& m_window;
    ButtonOf m_buttonOf;
    std::map<Bar, WrappedBar> m_bars;
    int m_width = 0;  ///< of the window; 0 before it is known
    bool m_timeMode = true;
    bool m_hasWords = true;  ///< beside the pictures of the main buttons
    int m_widthOfWords = 0;  ///< that the buttons need with them, where they didn't fit; 0: not known
    CPeriodButton* m_period = nullptr;
    QAction* m_periodPlace = nullptr;  ///< the period button as an element of its bar
};
