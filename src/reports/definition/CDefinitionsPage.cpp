#include "reports/definition/CDefinitionsPage.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "reports/definition/CReportStore.h"

#include <utility>

namespace {

MessageBox BoxOf(Text id, const QString& text, Text title) {
    MessageBox box;
    box.textId = static_cast<int>(id);
    box.title = LoadText(title);
    box.text = text;
    box.icon = BoxIcon::Warning;
    return box;
}

bool IsAgreed(Text id, const QString& text, Text title, Text verb, CPrompt& prompt) {
    MessageBox box = BoxOf(id, text, title);
    box.icon = BoxIcon::Question;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(verb);
    return prompt.Ask(box) == Answer::Yes;
}

}  // namespace

CDefinitionsPage::CDefinitionsPage(CReportStore& store, CReportDef& report, bool confirmDelete, Screen screen)
    : m_store(store),
      m_report(report),
      m_confirmDelete(confirmDelete),
      m_screen(std::move(screen)),
      m_names(store.Names()) {
    m_report.name.clear();
}

bool CDefinitionsPage::CanChangeSelected() const {
    return !m_selected.isEmpty() && !CReportStore::IsReserved(m_selected);
}

bool CDefinitionsPage::Choose(const QString& name) {
    m_selected = name;
    return !name.isEmpty() && m_store.Load(name, m_report);
}

/// The name that the program writes by itself: the user is told.
bool CDefinitionsPage::IsRefused(const QString& name) {
    if (!CReportStore::IsReserved(name)) return false;
    m_screen.prompt.Tell(BoxOf(Text::ReportNameReserved, FormatText<Text::ReportNameReserved>(name),
                               Text::ReportMessageTitle));
    return true;
}

void CDefinitionsPage::Select(const QString& name) {
    m_names.append(name);
    m_selected = name;
    m_report.name = name;
}

bool CDefinitionsPage::Save() {
    if (m_selected.isEmpty() || IsRefused(m_selected) || !m_store.Save(m_selected, m_report)) return false;
    m_report.name = m_selected;
    return false;
}

/// Asked of each definition that differs from the name by nothing but the case of letters.
bool CDefinitionsPage::MayReplace(const QString& name) {
    for (const QString& stored : m_store.Alike(name))
        if (!IsAgreed(Text::AskReplaceReport, FormatText<Text::AskReplaceReport>(stored),
                      Text::ReplaceReportTitle, Text::VerbReplace, m_screen.prompt))
            return false;
    return true;
}

bool CDefinitionsPage::SaveAs() {
    const auto name = m_screen.askName(CanChangeSelected() ? m_selected : QString());
    if (!name || name->isEmpty() || IsRefused(*name) || !MayReplace(*name)) return false;
    if (!m_store.Save(*name, m_report)) return false;
    Select(*name);
    return true;
}

bool CDefinitionsPage::Rename() {
    if (m_selected.isEmpty() || IsRefused(m_selected)) return false;
    const auto name = m_screen.askName(m_selected);
    if (!name || name->isEmpty() || *name == m_selected) return false;
    if (!m_store.Rename(m_selected, *name, m_report)) return false;
    m_names.removeOne(m_selected);
    Select(*name);
    return true;
}

bool CDefinitionsPage::Delete() {
    if (m_selected.isEmpty() || IsRefused(m_selected)) return false;
    if (m_confirmDelete && !IsAgreed(Text::AskDeleteReport, FormatText<Text::AskDeleteReport>(m_selected),
                                     Text::DeleteReportTitle, Text::AskDeleteTitle, m_screen.prompt))
        return false;
    if (!m_store.Delete(m_selected)) return false;
    m_names.removeOne(m_selected);
    m_selected.clear();
    m_report.name.clear();
    return true;
}
