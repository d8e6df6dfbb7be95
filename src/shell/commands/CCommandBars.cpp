#include "shell/commands/CCommandBars.h"

#include "lang/LoadText.h"
#include "shell/commands/CPeriodButton.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/commands/FilterCommands.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QStyle>
#include <QThread>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In place of a command's number: the period button.
constexpr int kPeriod = -1;
constexpr Bar kBars[] = {Bar::Records, Bar::Filters, Bar::Report};

/// The period stands between the buttons of the former and the next one, as far as they are there.
qsizetype PlaceOfPeriod(const QList<int>& buttons) {
    const qsizetype next = buttons.indexOf(Command::kPeriodNext);
    return next >= 0 ? next : buttons.indexOf(Command::kPeriodPrevious) + 1;
}

/// Dividing lines are the bar's own; commands and the period stay for the next time. The bar leaves its
/// buttons to the event loop, as one of them may have called for this; buttons given up before that loop runs
/// would stay hidden in the bar until the program ends, and screen readers would find each command twice.
void Clear(QToolBar& bar) {
    const bool isAtStart = QThread::currentThread()->loopLevel() == 0;
    for (QAction* action : bar.actions()) {
        QWidget* button = bar.widgetForAction(action);
        const bool isOurs = qobject_cast<CPeriodButton*>(button);
        bar.removeAction(action);
        if (action->isSeparator()) delete action;
        if (isAtStart && !isOurs) delete button;
    }
}

/// Where filters of the other mode go, what they leave is put in order; otherwise lines come as they were
/// chosen.
bool IsSifted(const QList<int>& buttons) {
    return std::ranges::any_of(
        buttons, [](int button) { return !IsFilterOfMode(button, true) || !IsFilterOfMode(button, false); });
}

void GiveWord(QToolButton& button, bool isShown) {
    button.setToolButtonStyle(isShown ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

}  // namespace

QToolBar* CCommandBars::MakeRow(const WrappedBar& bar) {
    auto* row = new QToolBar(LoadText(bar.title), &m_window);
    row->setObjectName(bar.rows.empty() ? bar.name : bar.name + u'.' + QString::number(bar.rows.size() + 1));
    row->setAccessibleName(LoadText(bar.title));
    // Shown and hidden by their commands, which remember it.
    row->setContextMenuPolicy(Qt::PreventContextMenu);
    row->toggleViewAction()->setVisible(false);
    row->setMovable(false);
    // The arrow for what doesn't fit, a single button at most, has no words of its own.
    row->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s)->setAccessibleName(LoadText(bar.title));
    return row;
}

CCommandBars::CCommandBars(QMainWindow& window, ButtonOf buttonOf)
    : m_window(window), m_buttonOf(std::move(buttonOf)) {
    m_bars[Bar::Records] = {.title = Text::BarRecords, .name = u"toolBar101"_s};
    m_bars[Bar::Filters] = {.title = Text::BarFilters, .name = u"toolBar102"_s};
    m_bars[Bar::Report] = {.title = Text::BarReport, .name = u"toolBar103"_s};
    for (auto& [which, bar] : m_bars) {
        bar.rows.push_back(MakeRow(bar));
        m_window.addToolBar(bar.rows.front());
    }
    m_period = new CPeriodButton(&Filters());
    m_periodPlace = Filters().addWidget(m_period);
    for (const Bar bar : kBars) SetButtons(bar, FactoryButtons(bar));
    m_window.insertToolBarBreak(&Report());
    Report().hide();
}

void CCommandBars::SetButtons(Bar which, const QList<int>& buttons) {
    m_bars[which].buttons = buttons;
    m_widthOfWords = 0;
    Place(which, {ElementsOf(which)});
    FitWords();
    WrapBar(which);
}

void CCommandBars::SetMode(bool timeMode) {
    if (timeMode == m_timeMode) return;
    m_timeMode = timeMode;
    for (const Bar bar : {Bar::Records, Bar::Filters}) SetButtons(bar, QList<int>(m_bars[bar].buttons));
}

/// What stands on a bar in the mode: a dividing line goes with the buttons that it divided.
QList<int> CCommandBars::ElementsOf(Bar which) const {
    const QList<int>& buttons = m_bars.at(which).buttons;
    QList<int> elements;
    for (const int button : buttons) {
        if (!IsFilterOfMode(button, m_timeMode)) continue;
        const bool isSecondLine =
            button == kDivider && !elements.isEmpty() && elements.back() == kDivider && IsSifted(buttons);
        if (!isSecondLine) elements.append(button);
    }
    if (which == Bar::Filters) elements.insert(PlaceOfPeriod(elements), kPeriod);
    return elements;
}

// --- Rows

void CCommandBars::Wrap(int width) {
    m_width = width;
    FitWords();
    for (const Bar bar : kBars) WrapBar(bar);
}

void CCommandBars::WrapBar(Bar which) {
    WrappedBar& bar = m_bars[which];
    std::vector<QList<int>> rows(1);
    const int room = RoomOnARow(*bar.rows.front());
    int used = 0;
    for (const QList<int>& shown : bar.shown)
        for (const int element : shown) {
            const int width = WidthOf(bar, element);
            if (m_width > 0 && used > 0 && used + width > room) {
                rows.emplace_back();
                used = 0;
            }
            rows.back().append(element);
            used += width;
        }
    if (rows != bar.shown) Place(which, rows);
    for (std::size_t i = 1; i < bar.rows.size(); ++i) bar.rows[i]->setVisible(!bar.rows.front()->isHidden());
}

int CCommandBars::WidthOfAll() const {
    int width = 0;
    for (const Bar which : {Bar::Records, Bar::Filters}) {
        const WrappedBar& bar = m_bars.at(which);
        if (bar.rows.front()->isHidden()) continue;
        for (const QList<int>& row : bar.shown)
            for (const int element : row) width += WidthOf(bar, element);
        width += m_width - RoomOnARow(*bar.rows.front());
    }
    return width;
}

/// Words that have gone come back where there is room for them.
void CCommandBars::FitWords() {
    if (m_width == 0) return;
    if (!m_hasWords && m_width >= m_widthOfWords) ShowWords(true);
    if (!m_hasWords) return;
    const int needed = WidthOfAll();
    if (needed <= m_width) return;
    m_widthOfWords = needed;
    ShowWords(false);
}

void CCommandBars::ShowWords(bool areShown) {
    m_hasWords = areShown;
    for (const auto& [which, bar] : m_bars)
        for (std::size_t row = 0; row < bar.shown.size(); ++row)
            for (const int element : bar.shown[row])
                if (QAction* action = WordOnBar(element) ? m_buttonOf(element).action : nullptr)
                    GiveWord(*qobject_cast<QToolButton*>(bar.rows[row]->widgetForAction(action)), areShown);
}

int CCommandBars::RoomOnARow(const QToolBar& row) const {
    const QStyle& style = *row.style();
    return m_width - 2 * (style.pixelMetric(QStyle::PM_ToolBarItemMargin, nullptr, &row) +
                          style.pixelMetric(QStyle::PM_ToolBarFrameWidth, nullptr, &row));
}

int CCommandBars::WidthOf(const WrappedBar& bar, int element) const {
    const QToolBar& first = *bar.rows.front();
    const int space = first.style()->pixelMetric(QStyle::PM_ToolBarItemSpacing, nullptr, &first);
    if (element == kDivider)
        return space + first.style()->pixelMetric(QStyle::PM_ToolBarSeparatorExtent, nullptr, &first);
    const QWidget* button = element == kPeriod ? m_period : nullptr;
    for (const QToolBar* row : bar.rows)
        if (QAction* action = m_buttonOf(element).action; action && !button)
            button = row->widgetForAction(action);
    return button ? space + button->sizeHint().width() : 0;
}

void CCommandBars::Place(Bar which, const std::vector<QList<int>>& rows) {
    WrappedBar& bar = m_bars[which];
    for (QToolBar* row : bar.rows) Clear(*row);
    while (bar.rows.size() > rows.size()) DropRow(bar);
    while (bar.rows.size() < rows.size()) AddRow(which);
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (const int element : rows[i]) AddElement(*bar.rows[i], element);
    bar.shown = rows;
    NameButtons();
}

/// The rows of one bar lie one below the other, those of the filters below those of the records, and those of
/// the report below both.
void CCommandBars::AddRow(Bar which) {
    WrappedBar& bar = m_bars[which];
    QToolBar* row = MakeRow(bar);
    if (which == Bar::Records)
        m_window.insertToolBar(&Filters(), row);
    else if (which == Bar::Filters)
        m_window.insertToolBar(&Report(), row);
    else
        m_window.addToolBar(row);
    m_window.insertToolBarBreak(row);
    if (!m_window.toolBarBreak(&Report())) m_window.insertToolBarBreak(&Report());
    bar.rows.push_back(row);
}

void CCommandBars::DropRow(WrappedBar& bar) {
    m_window.removeToolBar(bar.rows.back());
    bar.rows.back()->deleteLater();
    bar.rows.pop_back();
}

void CCommandBars::AddElement(QToolBar& bar, int element) {
    if (element == kPeriod)
        bar.addAction(m_periodPlace);
    else if (element == kDivider)
        bar.addSeparator();
    else
        AddButton(bar, element);
}

void CCommandBars::AddButton(QToolBar& bar, int command) {
    const Button made = m_buttonOf(command);
    if (!made.action) return;
    bar.addAction(made.action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(made.action));
    button->setObjectName(QStringLiteral("button%1").arg(command));
    if (WordOnBar(command)) GiveWord(*button, m_hasWords);
    if (!made.menu) return;
    button->setMenu(made.menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

void CCommandBars::NameButtons() {
    for (const auto& [which, bar] : m_bars)
        for (std::size_t row = 0; row < bar.shown.size(); ++row)
            for (const int element : bar.shown[row]) {
                const Button made = m_buttonOf(element);
                if (!made.action) continue;
                if (QWidget* button = bar.rows[row]->widgetForAction(made.action))
                    button->setAccessibleName(made.name);
            }
}
