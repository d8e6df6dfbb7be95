#include "shell/report/CStoredReportsPage.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "shell/controls/AskText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

CStoredReportsPage::CStoredReportsPage(CReportDef& report, const ReportSheetContext& context,
                                       CMnemonics mnemonics)
    : m_context(context),
      m_store(context.settings, context.mode, report.kind),
      m_page(m_store, report, context.settings.confirmDelete,
             {[this](const QString& opening) { return AskName(opening); }, context.prompt}),
      m_names(new QComboBox) {
    setObjectName(QStringLiteral("definitionsPage"));
    setWindowTitle(LoadText(Text::SheetDefinitions));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    m_names->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    mnemonics.Plan({LoadText(Text::SheetStored), LoadText(Text::SheetSave), LoadText(Text::SheetSaveAs),
                    LoadText(Text::SheetRename), LoadText(Text::SheetDelete)});
    AddLabel(*form, 0, LoadText(Text::SheetStored), *m_names, QStringLiteral("storedReports"), mnemonics);
    form->addWidget(m_names, 0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kFormSpace);
    buttons->addWidget(AddButton(Text::SheetSave, "saveReport", &CDefinitionsPage::Save, mnemonics));
    buttons->addWidget(AddButton(Text::SheetSaveAs, "saveReportAs", &CDefinitionsPage::SaveAs, mnemonics));
    buttons->addWidget(AddButton(Text::SheetRename, "renameReport", &CDefinitionsPage::Rename, mnemonics));
    buttons->addWidget(AddButton(Text::SheetDelete, "deleteReport", &CDefinitionsPage::Delete, mnemonics));
    m_ofSelected.removeAt(1);  // a new name can always be given
    buttons->addStretch();
    form->addLayout(buttons, 1, 1);
    form->addWidget(MakeNote(FormatText<Text::SheetNotes>(CReportStore::ReservedName()),
                             QStringLiteral("definitionsNote")),
                    2, 0, 1, 2);
    form->setRowStretch(3, 1);
    form->setColumnStretch(1, 1);
    setFocusProxy(m_names);
    connect(m_names, &QComboBox::activated, this, &CStoredReportsPage::Choose);
    ShowState();
}

QPushButton* CStoredReportsPage::AddButton(Text caption, const char* name, bool (CDefinitionsPage::*action)(),
                                           CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(caption)));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(name), LoadText(caption));
    connect(button, &QPushButton::clicked, this, [this, action] { Act(action); });
    m_ofSelected << button;
    return button;
}

/// The name of a stored report is asked for only to be given to it anew.
std::optional<QString> CStoredReportsPage::AskName(const QString& opening) {
    const bool isRename = sender() && sender()->objectName() == QStringLiteral("renameReport");
    return AskText(this, {LoadText(isRename ? Text::SheetRenameTitle : Text::SheetSaveAsTitle),
                          LoadText(Text::ReportNamePrompt), opening});
}

void CStoredReportsPage::ShowReport(const CReportDef&) {
    ShowState();
}

void CStoredReportsPage::Choose(int row) {
    const bool isOther = m_page.Choose(m_names->itemText(row));
    ShowState();
    if (isOther) Q_EMIT ReportChanged();
}

void CStoredReportsPage::Act(bool (CDefinitionsPage::*action)()) {
    const bool isOther = (m_page.*action)();
    ShowState();
    if (isOther) Q_EMIT ReportChanged();
}

void CStoredReportsPage::ShowState() {
    const QSignalBlocker quiet(m_names);
    m_names->clear();
    m_names->addItems(m_page.Names());
    m_names->setCurrentIndex(static_cast<int>(m_page.Names().lastIndexOf(m_page.Selected())));
    for (QPushButton* button : m_ofSelected) button->setEnabled(m_page.CanChangeSelected());
}
