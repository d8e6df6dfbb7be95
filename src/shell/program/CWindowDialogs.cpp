#include "shell/program/CWindowDialogs.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "changes/OfferReplace.h"
#include "config/CCfgStore.h"
#include "shell/exchange/CPostProcessingDialog.h"
#include "shell/guide/CGuideDialog.h"
#include "shell/lists/CLabelsDialog.h"
#include "shell/lists/CListsDialog.h"
#include "shell/lists/CPulldownDepDlg.h"
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

bool CWindowDialogs::EditLabels(QWidget& parent) {
    return RunLabelsDialog(&parent, m_context.catalogue, m_context.settings.Profile());
}

bool CWindowDialogs::ChooseDefault(QWidget& parent, CVORec& record) {
    return RunDefaultsDialog(&parent, record, true, m_context);
}

void CWindowDialogs::EditDefaults(QWidget& parent, CVORec& working) {
    static_cast<void>(RunDefaultsDialog(&parent, working, false, m_context));
}

bool CWindowDialogs::EditDependencies(QWidget& parent, CDependencyEditor& editor, CRecordChanges& changes) {
    return RunDependencyDialog(
        &parent, editor,
        {.catalogue = m_context.catalogue,
         .settings = m_context.settings,
         .prompt = m_context.prompt,
         .renamed = [this, &changes](int list, const QString& oldText, const QString& newText) {
             OfferReplaceInRecords(list, oldText, newText, changes, m_context.prompt);
         }});
}

std::optional<TextFileDraft> CWindowDialogs::ChooseTextFile(QWidget& parent, TextFilePurpose purpose,
                                                            const TextFileDraft& draft,
                                                            const CDelimiterDialog::Preview& preview) {
    CDelimiterDialog dialog({.purpose = purpose,
                             .prompt = m_context.prompt,
                             .profile = m_context.settings.Profile(),
                             .preview = preview},
                            draft, &parent);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.GetDraft()) : std::nullopt;
}

/// The choice stands however the dialog is left.
AfterExport CWindowDialogs::ChooseAfterExport(QWidget& parent, int records, const QString& path) {
    CPostProcessingDialog dialog(records, path, m_context.settings.Profile(), &parent);
    dialog.exec();
    return dialog.Choice();
}

bool CWindowDialogs::RunGuide(QWidget& parent, CGuide& guide) {
    return RunGuideDialog(&parent, guide, m_context.prompt, m_context.settings.Profile());
}

void CWindowDialogs::EditLists(QWidget& parent, CRecordChanges& changes) {
    CListsDialog({.catalogue = m_context.catalogue,
                  .store = m_context.document.Store(),
                  .changes = changes,
                  .settings = m_context.settings,
                  .prompt = m_context.prompt},
                 &parent)
        .exec();
}
