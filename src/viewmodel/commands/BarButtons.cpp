#include "viewmodel/commands/BarButtons.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace Command;

/// A new record, what is done with records, and how they are shown; the filter dialog and the page of a
/// report have their places here, too.
constexpr int kFactoryRecords[] = {kNew,           kDivider,     kCopy,
                                   kEdit,          kDelete,      kMarkFirstAndSecond,
                                   kDivider,       kTimerStart,  kTimerPause,
                                   kTimerStop,     kDivider,     kFilterDialog,
                                   kTreeExpandAll, kRefresh,     kToggleStatusBar,
                                   kToggleBar2,    kToggleTree,  kPanesSideBySide,
                                   kPanesStacked,  kDivider,     kLayoutList,
                                   kLayoutColumns, kLayoutLines, kReportSave};
constexpr int kFactoryFilters[] = {
    kPeriodPrevious, kPeriodNext, kDivider, kClearFilter, kFilterTimers, kDivider, 32804, 32805, 32806, 32807,
    32808,           32809,       kDivider, 32832,        32833,         32834,    32835, 32836, 32837};
constexpr int kFewRecords[] = {kNew, kNewStampTimer, kEdit, kCopy, kDelete, kDivider};
constexpr int kFewFilters[] = {kPeriodPrevious, kPeriodNext, kDivider, kFilterDialog, kFind};
struct BarWord {
    int command;
    Text word;
};
constexpr BarWord kBarWords[] = {
    {kNew, Text::BarNew},
    {kNewStampTimer, Text::BarStartTimer},
    {kFilterDialog, Text::BarFilter},
    {kFind, Text::BarFind},
};
/// On the report that is shown; the user can't change them.
constexpr int kReportButtons[] = {kReportSave,   kReportPdf,     kReportCsv,    kReportBrowser, kDivider,
                                  kReportPrint,  kReportPreview, kDivider,      kReportCopy,    kReportFind,
                                  kReportZoomIn, kReportZoomOut, kReportShrink, kReportChart,   kDivider,
                                  kReportAgain,  kReportClose};

Bar BarOf(Menu menu) {
    switch (menu) {
        case Menu::Period:
        case Menu::PeriodWeeks:
        case Menu::PeriodMonths:
        case Menu::PeriodQuarters:
        case Menu::PeriodYears:
        case Menu::Filter:
            return Bar::Filters;
        default:
            return Bar::Records;
    }
}

/// Each button once, in the order given; dividing lines as they come.
QList<int> Sifted(Bar bar, const QList<int>& buttons) {
    const QList<int> possible = PossibleButtons(bar);
    QList<int> sifted;
    for (const int button : buttons)
        if (button == kDivider || (possible.contains(button) && !sifted.contains(button))) sifted << button;
    return sifted;
}

/// The filter dialog is so much used that its button has always been among those of the records; what narrows
/// the list stands well beside the period, too.
bool IsPossible(Bar bar, const CommandRow& row) {
    return row.id == kFilterDialog || row.id == kFind || BarOf(row.menu) == bar;
}

QString Entry(Bar bar) {
    return LoadText(bar == Bar::Records ? Text::SectionBar1 : Text::SectionBar2);
}

}  // namespace

QList<int> FactoryButtons(Bar bar) {
    if (bar == Bar::Report) return {std::begin(kReportButtons), std::end(kReportButtons)};
    return bar == Bar::Records
               ? Sifted(bar, QList<int>(std::begin(kFactoryRecords), std::end(kFactoryRecords)))
               : Sifted(bar, QList<int>(std::begin(kFactoryFilters), std::end(kFactoryFilters)));
}

QList<int> FewButtons(Bar bar) {
    return bar == Bar::Records ? QList<int>(std::begin(kFewRecords), std::end(kFewRecords))
                               : QList<int>(std::begin(kFewFilters), std::end(kFewFilters));
}

std::optional<Text> WordOnBar(int command) {
    const auto* row = std::ranges::find(kBarWords, command, &BarWord::command);
    return row == std::end(kBarWords) ? std::nullopt : std::optional(row->word);
}

QList<int> PossibleButtons(Bar bar) {
    QList<int> buttons;
    for (const CommandRow& row : CommandTable())
        if (IsPossible(bar, row) && FindCommand(row.id) == &row) buttons << row.id;
    return buttons;
}

QList<int> LoadButtons(const CProfile& profile, Bar bar) {
    const std::optional<QString> stored = profile.GetText(LoadText(Text::SectionBarButtons), Entry(bar));
    if (!stored) return FactoryButtons(bar);
    QList<int> buttons;
    for (const QString& number : stored->split(u' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int button = number.toInt(&isNumber);
        if (isNumber) buttons << button;
    }
    return Sifted(bar, buttons);
}

bool PersistButtons(CProfile& profile, Bar bar, const QList<int>& buttons) {
    QStringList numbers;
    for (const int button : buttons) numbers << QString::number(button);
    return profile.WriteText(LoadText(Text::SectionBarButtons), Entry(bar), numbers.join(u' '));
}

ButtonChoice::ButtonChoice(Bar bar, QList<int> buttons) : m_bar(bar), m_onBar(std::move(buttons)) {
    FindAvailable();
}

void ButtonChoice::FindAvailable() {
    m_available = {kDivider};
    for (const int button : PossibleButtons(m_bar))
        if (!m_onBar.contains(button)) m_available << button;
}

int ButtonChoice::Take(int line) {
    if (line < 0 || line >= m_available.size()) return kNone;
    m_onBar << m_available[line];
    FindAvailable();
    return static_cast<int>(m_onBar.size()) - 1;
}

int ButtonChoice::GiveBack(int line) {
    if (line < 0 || line >= m_onBar.size()) return kNone;
    const int button = m_onBar.takeAt(line);
    FindAvailable();
    return button == kDivider ? kNone : static_cast<int>(m_available.indexOf(button));
}

int ButtonChoice::Exchange(int line, int neighbour) {
    if (line < 0 || line >= m_onBar.size()) return kNone;
    if (neighbour < 0 || neighbour >= m_onBar.size()) return line;
    m_onBar.swapItemsAt(line, neighbour);
    return neighbour;
}

void ButtonChoice::Reset() {
    m_onBar = FactoryButtons(m_bar);
    FindAvailable();
}

void ButtonChoice::TakeFew() {
    m_onBar = FewButtons(m_bar);
    FindAvailable();
}
