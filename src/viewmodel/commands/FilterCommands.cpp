#include "viewmodel/commands/FilterCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "lang/LoadText.h"
#include "viewmodel/commands/CommandRow.h"

#include <algorithm>

namespace {

template <class Filter, std::size_t Item>
QString& ItemOf(Filter& filter) {
    return filter.items[Item];
}
template <int TimeFilter::*Flag>
int& TimeFlag(TimeFilter& filter) {
    return filter.*Flag;
}
template <std::size_t Flag>
int& ExpenseFlag(ExpenseFilter& filter) {
    return filter.flags[Flag];
}
int& ExportedExpense(ExpenseFilter& filter) {
    return filter.exported;
}

constexpr FilterCommandRow kCommands[] = {
    {32804, ListId::kClient, ItemOf<TimeFilter, 0>, ItemOf<ExpenseFilter, 0>, nullptr, nullptr},
    {32805, ListId::kProject, ItemOf<TimeFilter, 1>, ItemOf<ExpenseFilter, 1>, nullptr, nullptr},
    {32806, ListId::kTimeItem3, ItemOf<TimeFilter, 2>, nullptr, nullptr, nullptr},
    {32807, ListId::kTimeItem4, ItemOf<TimeFilter, 3>, nullptr, nullptr, nullptr},
    {32808, ListId::kExpenseItem3, nullptr, ItemOf<ExpenseFilter, 2>, nullptr, nullptr},
    {32809, ListId::kExpenseItem4, nullptr, ItemOf<ExpenseFilter, 3>, nullptr, nullptr},
    {32832, 0, nullptr, nullptr, TimeFlag<&TimeFilter::billable>, ExpenseFlag<0>},
    {32833, 0, nullptr, nullptr, TimeFlag<&TimeFilter::billed>, ExpenseFlag<1>},
    {32834, 0, nullptr, nullptr, nullptr, ExpenseFlag<2>},
    {32835, 0, nullptr, nullptr, nullptr, ExpenseFlag<3>},
    {32836, 0, nullptr, nullptr, nullptr, ExpenseFlag<4>},
    {32837, 0, nullptr, nullptr, TimeFlag<&TimeFilter::exported>, ExportedExpense},
};

/// The rows that a flag is picked from, in their order.
struct FlagChoice {
    Text text;
    int value;
};
constexpr FlagChoice kFlagChoices[] = {
    {Text::AnyWord, FlagCriterion::kAny},
    {Text::YesWord, FlagCriterion::kSet},
    {Text::NoWord, FlagCriterion::kClear},
};
constexpr int kAnyChoice = 0;
constexpr int kNoChoice = -1;

// Null where the filter has no such condition.
QString* TextIn(const FilterCommandRow& row, TimeFilter& filter) {
    return row.timeText ? &row.timeText(filter) : nullptr;
}
QString* TextIn(const FilterCommandRow& row, ExpenseFilter& filter) {
    return row.expenseText ? &row.expenseText(filter) : nullptr;
}
int* FlagIn(const FilterCommandRow& row, TimeFilter& filter) {
    return row.timeFlag ? &row.timeFlag(filter) : nullptr;
}
int* FlagIn(const FilterCommandRow& row, ExpenseFilter& filter) {
    return row.expenseFlag ? &row.expenseFlag(filter) : nullptr;
}

template <class Filter>
int PresentIn(const FilterCommandRow& row, Filter& filter, const QStringList& choices) {
    if (const QString* text = TextIn(row, filter)) return static_cast<int>(choices.indexOf(*text));
    const int* flag = FlagIn(row, filter);
    if (!flag) return kNoChoice;
    const auto choice = std::ranges::find(kFlagChoices, *flag, &FlagChoice::value);
    return choice == std::end(kFlagChoices) ? kNoChoice : static_cast<int>(choice - std::begin(kFlagChoices));
}

template <class Filter>
bool ApplyTo(const FilterCommandRow& row, Filter& filter, const QStringList& choices, int choice) {
    if (choice < 0 || choice >= choices.size()) return false;
    if (QString* text = TextIn(row, filter)) {
        *text = choices[choice];
        if (choice != kAnyChoice) filter.matchWhole = filter.matchCase = true;
        return true;
    }
    int* flag = FlagIn(row, filter);
    if (!flag || choice >= std::ssize(kFlagChoices)) return false;
    *flag = kFlagChoices[choice].value;
    return true;
}

template <class Filter>
QSet<int> SetIn(Filter& filter) {
    QSet<int> commands;
    for (const FilterCommandRow& row : kCommands) {
        const QString* text = TextIn(row, filter);
        const int* flag = FlagIn(row, filter);
        if ((text && *text != LoadText(Text::AnyWord)) || (flag && *flag != FlagCriterion::kAny))
            commands.insert(row.command);
    }
    return commands;
}

}  // namespace

std::span<const FilterCommandRow> FilterCommands() {
    return kCommands;
}

const FilterCommandRow* FindFilterCommand(int command) {
    const auto row = std::ranges::find(kCommands, command, &FilterCommandRow::command);
    return row == std::end(kCommands) ? nullptr : row;
}

bool IsFilterOfMode(int command, bool timeMode) {
    if (command == Command::kFilterTimers) return timeMode;
    const FilterCommandRow* row = FindFilterCommand(command);
    if (!row) return true;
    return timeMode ? row->timeText || row->timeFlag : row->expenseText || row->expenseFlag;
}

QStringList FilterChoices(const FilterCommandRow& row, const CPulldownCatalogue& lists) {
    QStringList choices;
    if (row.list != 0) {
        choices << LoadText(Text::AnyWord);
        choices << lists.Texts(row.list);
        return choices;
    }
    for (const FlagChoice& choice : kFlagChoices) choices << LoadText(choice.text);
    return choices;
}

int PresentChoice(const FilterCommandRow& row, TimeFilter filter, const QStringList& choices) {
    return PresentIn(row, filter, choices);
}
int PresentChoice(const FilterCommandRow& row, ExpenseFilter filter, const QStringList& choices) {
    return PresentIn(row, filter, choices);
}

bool ApplyChoice(const FilterCommandRow& row, TimeFilter& filter, const QStringList& choices, int choice) {
    return ApplyTo(row, filter, choices, choice);
}
bool ApplyChoice(const FilterCommandRow& row, ExpenseFilter& filter, const QStringList& choices, int choice) {
    return ApplyTo(row, filter, choices, choice);
}

QSet<int> SetFilterCommands(TimeFilter filter) {
    return SetIn(filter);
}
QSet<int> SetFilterCommands(ExpenseFilter filter) {
    return SetIn(filter);
}
