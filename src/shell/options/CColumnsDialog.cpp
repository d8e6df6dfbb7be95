#include "shell/options/CColumnsDialog.h"

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/options/CAppearancePage.h"
#include "shell/options/CColumnPage.h"
#include "shell/options/SettingSwitch.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/ColumnDraft.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QString SizeSection(CColumnsDialog::Of of) {
    return of == CColumnsDialog::Of::List ? QStringLiteral("ListColumnsDialog")
                                          : QStringLiteral("TreeLevelsDialog");
}
constexpr QSize kUsualListSize{640, 440};
constexpr QSize kUsualTreeSize{520, 380};

bool HasSeveralLines(const CCfgStore& settings) {
    return settings.listLayout == static_cast<int>(ListLayout::Lines);
}

}  // namespace

CColumnsDialog::CColumnsDialog(Of of, ColumnHalf half, CCfgStore& settings, QWidget* parent)
    : QDialog(parent), m_of(of), m_half(half), m_settings(settings), m_columns(new CColumnPage) {
    const bool isList = of == Of::List;
    setObjectName(QStringLiteral("columnsDialog"));
    setWindowTitle(LoadText(isList ? Text::ListColumnsTitle : Text::TreeLevelsTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(isList ? ListPages() : m_columns);
    if (!isList) m_columns->layout()->setContentsMargins(0, 0, 0, 0);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, mnemonics));
    const CColSet& set = isList ? m_settings.ListColumns() : m_settings.TreeColumns();
    m_columns->SetDraft(ColumnDraftOf(set, m_half), isList && HasSeveralLines(m_settings));
    RestoreDialogSize(*this, m_settings.Profile(), SizeSection(m_of),
                      isList ? kUsualListSize : kUsualTreeSize);
    m_columns->setFocus();
}

QWidget* CColumnsDialog::ListPages() {
    auto* pages = new QTabWidget;
    NameWidget(*pages, QStringLiteral("columnsPages"), windowTitle());
    m_look = new CAppearancePage;
    m_look->SetDraft(m_settings);
    pages->addTab(m_columns, m_columns->windowTitle());
    pages->addTab(m_look, m_look->windowTitle());
    for (QWidget* page : {static_cast<QWidget*>(m_columns), static_cast<QWidget*>(m_look)})
        page->layout()->setContentsMargins(kFormSpace, kFormSpace, kFormSpace, kFormSpace);
    return pages;
}

void CColumnsDialog::accept() {
    CColSet& set = m_of == Of::List ? m_settings.ListColumns() : m_settings.TreeColumns();
    PutColumnDraft(set, m_half, m_columns->GetDraft());
    if (m_look) m_look->GetDraft(m_settings);
    QDialog::accept();
}

void CColumnsDialog::done(int result) {
    PersistDialogSize(*this, m_settings.Profile(), SizeSection(m_of));
    QDialog::done(result);
}

bool RunColumnsDialog(QWidget* parent, CColumnsDialog::Of of, ColumnHalf half, CCfgStore& settings,
                      CPrompt& prompt) {
    if (CColumnsDialog(of, half, settings, parent).exec() != QDialog::Accepted) return false;
    if (!settings.SaveAll()) TellNotSaved(prompt);
    return true;
}
