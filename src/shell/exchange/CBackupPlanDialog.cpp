#include "shell/exchange/CBackupPlanDialog.h"

#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/controls/CBoxPrompt.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLeastWidth = 420;

struct EveryRow {
    Text caption;
    int days;
};
constexpr EveryRow kEvery[] = {
    {Text::BackupPlanNever, 0}, {Text::BackupPlanDaily, 1}, {Text::BackupPlanWeekly, 7}};

}  // namespace

CBackupPlanDialog::CBackupPlanDialog(const BackupPlan& plan, const QString& last, CPrompt& prompt,
                                     QWidget* parent)
    : QDialog(parent),
      m_prompt(prompt),
      m_every(new QComboBox),
      m_folder(new QLineEdit(plan.folder)),
      m_keep(new QSpinBox) {
    setObjectName(u"backupPlanDialog"_s);
    setWindowTitle(LoadText(Text::BackupPlanTitle));
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogOk, mnemonics);
    auto* column = new QVBoxLayout(this);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    AddLabel(*form, 0, LoadText(Text::BackupPlanEvery), *m_every, u"backupEvery"_s, mnemonics);
    AddLabel(*form, 1, LoadText(Text::BackupPlanFolder), *m_folder, u"backupFolder"_s, mnemonics);
    AddLabel(*form, 2, LoadText(Text::BackupPlanKeep), *m_keep, u"backupKeep"_s, mnemonics);
    auto* choose = new QPushButton(mnemonics.Give(LoadText(Text::BackupPlanChoose)));
    choose->setObjectName(u"backupChoose"_s);
    for (const EveryRow& row : kEvery) m_every->addItem(LoadText(row.caption), row.days);
    m_every->setCurrentIndex(m_every->findData(plan.everyDays));
    m_keep->setRange(1, kMostKeptBackups);
    m_keep->setValue(plan.keep);
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(m_folder, 1);
    folderRow->addWidget(choose);
    form->addWidget(m_every, 0, 1);
    form->addLayout(folderRow, 1, 1);
    form->addWidget(m_keep, 2, 1);
    column->addLayout(form);
    column->addSpacing(kFormSpace);
    column->addWidget(MakeNote(LoadText(Text::BackupPlanHint), u"backupHint"_s));
    column->addWidget(MakeNote(last, u"lastBackup"_s));
    column->addStretch();
    column->addWidget(buttons);
    setMinimumWidth(kLeastWidth);
    connect(choose, &QPushButton::clicked, this, &CBackupPlanDialog::ChooseFolder);
    connect(m_every, &QComboBox::currentIndexChanged, this, &CBackupPlanDialog::EnableFields);
    EnableFields();
}

BackupPlan CBackupPlanDialog::GetPlan() const {
    return {.everyDays = m_every->currentData().toInt(), .folder = m_folder->text(), .keep = m_keep->value()};
}

void CBackupPlanDialog::EnableFields() {
    const bool isWanted = m_every->currentData().toInt() != 0;
    m_folder->setEnabled(isWanted);
    m_keep->setEnabled(isWanted);
    findChild<QPushButton*>(u"backupChoose"_s)->setEnabled(isWanted);
}

void CBackupPlanDialog::ChooseFolder() {
    if (const auto folder = ::ChooseFolder(this, LoadText(Text::BackupPlanTitle), m_folder->text()))
        m_folder->setText(*folder);
}

void CBackupPlanDialog::accept() {
    const BackupPlan plan = GetPlan();
    const QFileInfo folder(plan.folder);
    if (plan.everyDays == 0 || (folder.isDir() && folder.isAbsolute())) return QDialog::accept();
    m_prompt.Tell({.textId = static_cast<int>(Text::BackupPlanNoFolder),
                   .title = LoadText(Text::BackupPlanTitle),
                   .text = FormatText<Text::BackupPlanNoFolder>(plan.folder),
                   .icon = BoxIcon::Warning,
                   .actionLabel = {}});
    m_folder->setFocus();
}
