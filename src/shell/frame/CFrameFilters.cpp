#include "shell/frame/CFrameFilters.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "shell/controls/CPickDialog.h"
#include "shell/controls/CRangeDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CConditionStrip.h"
#include "shell/list/CRecordListView.h"
#include "shell/options/SettingSwitch.h"
#include "shell/report/CFilterDialog.h"
#include "viewmodel/commands/CommandWords.h"
#include "viewmodel/commands/FilterCommands.h"
#include "viewmodel/list/NamedConditions.h"

namespace {

QString NameOf(const FilterCommandRow& row, const CPulldownCatalogue& catalogue) {
    return WordsOf(*FindCommand(row.command), theRecordMode == RecordMode::Time, catalogue.Labels()).name;
}

}  // namespace

CFrameFilters::CFrameFilters(const FrameContext& context) : m_context(context), m_period(context.document) {
    CConditionStrip& strip = m_context.conditions;
    QObject::connect(&strip, &CConditionStrip::EndWanted, &strip, [this](int place) { EndCondition(place); });
}

void CFrameFilters::ToggleTimers() {
    if (m_period.AreTimersAlone())
        m_period.EndTimers();
    else
        m_period.WithTimers();
}

void CFrameFilters::ShowConditions() {
    m_context.conditions.ShowConditions(ConditionWords(m_context.document));
}

void CFrameFilters::EndCondition(int place) {
    if (m_period.AreTimersAlone()) return m_period.EndTimers();
    const auto end = [this, place](const auto& conditions) {
        if (place < std::ssize(conditions))
            m_period.ApplyFilter(conditions[static_cast<std::size_t>(place)].without);
    };
    if (theRecordMode == RecordMode::Time)
        end(ConditionsOf(m_context.document.Filter(), m_context.settings));
    else
        end(ConditionsOf(m_context.document.FilterOfExpenses(), m_context.settings));
}

void CFrameFilters::FilterDialog() {
    m_context.view.CaptureWidths();
    if (theRecordMode == RecordMode::Time)
        FillAndApply<TimeFilter>();
    else
        FillAndApply<ExpenseFilter>();
}

template <class Filter>
void CFrameFilters::FillAndApply() {
    Filter filter;
    const FilterDialogContext context{m_context.settings, m_context.catalogue, m_context.prompt,
                                      m_context.clock, m_context.document.GetPeriodContext()};
    if (RunFilterDialog(&m_context.control.Window(), filter, CFilterDialog::Use::List, context))
        m_period.ApplyFilter(filter);
}

void CFrameFilters::PeriodRange() {
    const PeriodContext context = m_context.document.GetPeriodContext();
    DateTimeVal first, last;
    if (!m_context.document.CurrentFilter().Dates(first, last, context)) {
        first.SetToday(m_context.clock);
        last.SetToday(m_context.clock);
    }
    CRangeDialog dialog({first, last}, context, &m_context.control.Window());
    if (dialog.exec() == QDialog::Accepted) m_period.Range(dialog.GetDays().first, dialog.GetDays().last);
}

void CFrameFilters::FilterBy(int command) {
    const FilterCommandRow* row = FindFilterCommand(command);
    if (!row) return;
    if (theRecordMode == RecordMode::Time)
        Pick(*row, m_context.document.Filter());
    else
        Pick(*row, m_context.document.FilterOfExpenses());
}

template <class Filter>
void CFrameFilters::Pick(const FilterCommandRow& row, Filter filter) {
    const bool isText = row.list != 0;
    const QStringList choices = FilterChoices(row, m_context.catalogue);
    const bool isEmpty = isText && choices.size() == 1;
    const std::optional<int> picked =
        RunPickDialog(&m_context.control.Window(),
                      {.title = FormatText<Text::PickTitle>(NameOf(row, m_context.catalogue)),
                       .rows = choices,
                       .present = PresentChoice(row, filter, choices),
                       .hasSearch = isText,
                       .note = isEmpty ? LoadText(Text::PickNoItems) : QString()},
                      m_context.settings.Profile());
    if (picked && ApplyChoice(row, filter, choices, *picked)) m_period.ApplyFilter(filter);
}

void CFrameFilters::ToggleDependencies() {
    CCfgStore& settings = m_context.settings;
    settings.useDependencies = !settings.useDependencies;
    SaveSetting(QStringLiteral("useDependencies"), settings, m_context.prompt);
}
