#include "app/CommandTexts.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"

#include <algorithm>
#include <iterator>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace {

using enum Text;

/// Commands as they stand in menus and tool bars, without those of the report on screen, the choosers of
/// buttons and the import of the older form, which name themselves.
constexpr CommandTextRow kRows[] = {
    // Records
    {40002, CmdNew, TipNew},
    {103, CmdEdit, TipEdit},
    {102, CmdDelete, TipDelete},
    {101, CmdCopy, TipCopy},
    {32838, CmdMarkFirst, TipMarkFirst},
    {40055, CmdMarkField, TipMarkField, FieldId::Billed},
    {32839, CmdMarkThird, TipMarkThird},
    {40058, CmdMarkThirdFourth, TipMarkThirdFourth},
    {32840, CmdMarkFifth, TipMarkFifth},
    {32841, CmdMarkExported, TipMarkExported},
    {32842, CmdClearExported, TipClearExported},
    {32777, CmdDefaults, TipDefaults},
    // Mode and refresh
    {40011, CmdTimeMode, TipTimeMode},
    {40012, CmdExpenseMode, TipExpenseMode},
    {32780, CmdRefresh, TipRefresh},
    {40066, CmdOptions, TipOptions},
    {32781, CmdRegional, TipRegional},
    // Periods
    {32798, PeriodToday, TipPeriod},
    {32799, PeriodThisWeek, TipPeriod},
    {32800, PeriodTwoWeeks, TipPeriod},
    {32801, PeriodThisMonth, TipPeriod},
    {32802, PeriodAll, TipPeriod},
    {32803, CmdPeriodDay, TipPeriodDay},
    {32790, PeriodWeekToDate, TipPeriod},
    {32791, PeriodMonthToDate, TipPeriod},
    {32792, PeriodThisQuarter, TipPeriod},
    {32793, PeriodQuarterToDate, TipPeriod},
    {32794, PeriodThisYear, TipPeriod},
    {32795, PeriodYearToDate, TipPeriod},
    {32789, PeriodYesterday, TipPeriod},
    {32796, PeriodLastWeek, TipPeriod},
    {32797, PeriodLastWeekToDate, TipPeriod},
    {32811, PeriodLastMonth, TipPeriod},
    {32819, PeriodLastMonthToDate, TipPeriod},
    {32820, PeriodLastQuarter, TipPeriod},
    {32822, PeriodLastQuarterToDate, TipPeriod},
    {32823, PeriodLastYear, TipPeriod},
    {32824, PeriodLastYearToDate, TipPeriod},
    {32843, PeriodNextWeek, TipPeriod},
    {32847, PeriodNextFourWeeks, TipPeriod},
    {32848, PeriodNextMonth, TipPeriod},
    {32849, PeriodNextQuarter, TipPeriod},
    {32850, PeriodNextYear, TipPeriod},
    {32844, CmdPeriodPrevious, TipPeriodPrevious},
    {32845, CmdPeriodNext, TipPeriodNext},
    // Filters
    {32810, CmdClearFilter, TipClearFilter},
    {114, CmdFilterDialog, TipFilterDialog},
    {32851, CmdFilterTimers, TipFilterTimers},
    {32804, CmdFilterText, TipFilterText, FieldId::TimeItem1},
    {32805, CmdFilterText, TipFilterText, FieldId::TimeItem2},
    {32806, CmdFilterText, TipFilterText, FieldId::TimeItem3},
    {32807, CmdFilterText, TipFilterText, FieldId::TimeItem4},
    {32808, CmdFilterText, TipFilterText, FieldId::ExpenseItem3},
    {32809, CmdFilterText, TipFilterText, FieldId::ExpenseItem4},
    {32832, CmdFilterFlag, TipFilterFlag, FieldId::Billable},
    {32833, CmdFilterFlag, TipFilterFlag, FieldId::Billed},
    {32834, CmdFilterFlag, TipFilterFlag, FieldId::Flag3},
    {32835, CmdFilterFlag, TipFilterFlag, FieldId::Flag4},
    {32836, CmdFilterFlag, TipFilterFlag, FieldId::Flag5},
    {32837, CmdFilterExported, TipFilterExported},
    // Timers and quick entry
    {40111, CmdTimerStop, TipTimerStop},
    {40112, CmdTimerStart, TipTimerStart},
    {40113, CmdTimerPause, TipTimerPause},
    {32868, CmdStopAllTimers, TipStopAllTimers},
    {32869, CmdPauseAllTimers, TipPauseAllTimers},
    {40147, CmdNew, TipNew},
    {32852, CmdNewStamp, TipNewStamp},
    {32853, CmdNewStampTimer, TipNewStampTimer},
    {32854, CmdNewNext, TipNewNext},
    {32855, CmdNewNextTimer, TipNewNextTimer},
    {32856, CmdDefaultsNew, TipDefaultsNew},
    {32857, CmdDefaultsStamp, TipDefaultsStamp},
    {32858, CmdDefaultsStampTimer, TipDefaultsStampTimer},
    {32859, CmdDefaultsNext, TipDefaultsNext},
    {32860, CmdDefaultsNextTimer, TipDefaultsNextTimer},
    {32861, CmdTreeNew, TipTreeNew},
    {32862, CmdTreeStamp, TipTreeStamp},
    {32863, CmdTreeStampTimer, TipTreeStampTimer},
    {32864, CmdCopyStamp, TipCopyStamp},
    {32865, CmdCopyStampTimer, TipCopyStampTimer},
    {32866, CmdCopyNext, TipCopyNext},
    {32867, CmdCopyNextTimer, TipCopyNextTimer},
    // Lists, columns, font
    {40009, CmdEditLists, TipEditLists},
    {32886, CmdEditDependencies, TipEditDependencies},
    {40100, CmdRenameLists, TipRenameLists},
    {40052, CmdListColumns, TipListColumns},
    {40122, CmdTreeColumns, TipTreeColumns},
    {32829, CmdListFont, TipListFont},
    {32891, CmdUseDependencies, TipUseDependencies},
    // Window layout
    {32771, CmdToggleTree, TipToggleTree},
    {32772, CmdPanesSideBySide, TipPanesSideBySide},
    {32773, CmdPanesStacked, TipPanesStacked},
    {59392, CmdToggleBar1, TipToggleBar1},
    {32812, CmdToggleBar2, TipToggleBar2},
    {32774, CmdToggleStatusBar, TipToggleStatusBar},
    {40068, CmdTreeExpandAll, TipTreeExpandAll},
};
static_assert(std::size(kRows) == 96);

/// One text where the row has a field, none otherwise.
constexpr bool TakesItsField(const CommandTextRow& row) {
    const std::string_view wanted = row.field != FieldId::None ? "s" : "";
    return TextSignature(row.caption) == wanted && TextSignature(row.tip) == wanted;
}
static_assert(std::all_of(std::begin(kRows), std::end(kRows), TakesItsField));

/// A caption as a plain text: without the mark of its access key and without the dots of a dialog.
QString Plain(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        // a doubled one stands for itself
        if (caption[i] == u'&' && ++i == caption.size()) break;
        plain += caption[i];
    }
    if (plain.endsWith(u"..."_s)) plain.chop(3);
    return plain;
}

}  // namespace

std::span<const CommandTextRow> CommandTextRows() {
    return kRows;
}

QHash<int, CommandTexts> MakeCommandTexts(const FieldLabels& labels) {
    QHash<int, CommandTexts> texts;
    for (const CommandTextRow& row : kRows) {
        CommandTexts two{LoadText(row.tip), Plain(LoadText(row.caption))};
        if (row.field != FieldId::None) {
            const QString name = labels.GetLabel(NumberOf(row.field));
            two.status.replace(u"%s"_s, name);
            two.tip.replace(u"%s"_s, name);
        }
        texts.insert(row.command, two);
    }
    return texts;
}
