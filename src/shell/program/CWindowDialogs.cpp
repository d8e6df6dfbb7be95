#include "shell/program/CWindowDialogs.h"

#include "app/CPulldownCatalogue.h"
#include "shell/options/COptionsDialog.h"
#include "shell/record/CDefaultsDialog.h"
#include "shell/record/EditRecord.h"

bool CWindowDialogs::EditRecord(QWidget& parent, CVORec& record, CVORec* untouched) {
    return ::EditRecord(&parent, record, m_context, untouched);
}

CEnteredItems& CWindowDialogs::Entered() {
    return m_context.entered;
}

bool CWindowDialogs::EditSettings(QWidget& parent) {
    return RunOptionsDialog(&parent, m_context.settings, m_context.prompt, &m_context.catalogue.Labels());
}

bool CWindowDialogs::ChooseDefault(QWidget& parent, CVORec& record) {
    return RunDefaultsDialog(&parent, record, true, m_context);
}

void CWindowDialogs::EditDefaults(QWidget& parent, CVORec& working) {
    static_cast<void>(RunDefaultsDialog(&parent, working, false, m_context));
}
