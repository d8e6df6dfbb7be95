#include "viewmodel/program/NewWindow.h"

#include "config/CCfgStore.h"
#include "fields/Column.h"
#include "lang/LoadText.h"
#include "viewmodel/commands/BarButtons.h"

#include <algorithm>
#include <iterator>

namespace {

/// What a setting is in a new window, where that isn't its default. None of them may change what is computed:
/// a home that the console has made already holds hours that are billed.
struct NewWindowValue {
    const char* setting;
    int value;
};
constexpr NewWindowValue kNewWindowValues[] = {
    {"listLayout", 3},
    {"listGroups", 1},
    {"linesOnGrid", 1},
    // What undo takes back needs no question.
    {"confirmDelete", 0},
    {"confirmMark", 0},
    {"confirmCopy", 0},
};

/// When, for whom and what, how much; in the layout of lines a line for each.
constexpr int kTimeColumns[] = {Column::kDate,     Column::kStart, Column::kEnd,      Column::kItem1,
                                Column::kItem2,    Column::kItem3, Column::kDuration, Column::kAmount,
                                Column::kBillable, Column::kBilled};
constexpr std::int32_t kTimeBreaks[] = {3, 6};

QString SetUpEntry() {
    return QStringLiteral("SetUp");
}

/// The window of an older version has left its place and size, but no note.
bool IsSetUp(const CProfile& profile) {
    const QString& section = LoadText(Text::SectionWindow);
    return profile.GetInt(section, SetUpEntry(), 0) != 0 ||
           profile.GetBinary(section, LoadText(Text::EntryGeometry)).has_value();
}

const SettingRow& RowOf(const NewWindowValue& value) {
    return *FindSetting(QString::fromLatin1(value.setting));
}

void SetUpValues(CCfgStore& settings) {
    for (const NewWindowValue& value : kNewWindowValues)
        if (const SettingRow& row = RowOf(value); SettingValue(settings, row) == row.preset)
            PutSetting(settings, row, value.value);
}

/// Where they can't be written there are no boxes about the columns either: the user knows of the home.
bool SaveSetUp(CCfgStore& settings) {
    return std::ranges::all_of(
               kNewWindowValues,
               [&](const NewWindowValue& value) { return settings.SaveValue(RowOf(value).index); }) &&
           settings.SaveAll();
}

}  // namespace

bool SetUpNewWindow(CCfgStore& settings) {
    CProfile& profile = settings.Profile();
    if (IsSetUp(profile)) return true;
    // Also where nothing can be stored the window comes up so.
    SetUpValues(settings);
    CColSet& columns = settings.ListColumns();
    columns.ShowExactly(ColumnHalf::Time, {std::begin(kTimeColumns), std::end(kTimeColumns)});
    columns.SetBreaks(ColumnHalf::Time, {std::begin(kTimeBreaks), std::end(kTimeBreaks)});
    if (!SaveSetUp(settings)) return false;
    for (const Bar bar : {Bar::Records, Bar::Filters})
        if (!PersistButtons(profile, bar, FewButtons(bar))) return false;
    return profile.WriteInt(LoadText(Text::SectionWindow), SetUpEntry(), 1);
}
