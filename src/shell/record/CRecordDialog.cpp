#include "shell/record/CRecordDialog.h"

#include "config/CCfgStore.h"
#include "entry/CCatalogueKeeper.h"
#include "entry/KeepInLists.h"
#include "entry/TimeEntryRules.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/record/CNotesPage.h"
#include "shell/record/CRecordDialogEntry.h"
#include "shell/record/CRecordDialogTime.h"
#include "shell/record/CRecordDraft.h"
#include "shell/record/CTimerPanelWidget.h"
#include "timers/CRecordTimers.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("RecordDialog");
}
constexpr QSize kUsualSize{560, 420};
constexpr int kNotesName = NumberOf(FieldId::TimeNotes);

}  // namespace

CRecordDialog::CRecordDialog(const RecordDialogContext& context, QWidget* parent)
    : QDialog(parent), m_context(context), m_draft(std::make_unique<CRecordDraft>()) {
    setObjectName(QStringLiteral("recordDialog"));
    setWindowTitle(LoadText(Text::RecordDialogTitle));
    BuildPages();
    Wire();
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
}

/// The pages and the timer work on the draft, so they go before it.
CRecordDialog::~CRecordDialog() {
    delete m_pages;
    delete m_timer;
}

/// What is in sight on every page takes its mnemonics first; each page shares out the rest by itself.
void CRecordDialog::BuildPages() {
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogSave, mnemonics);
    const QString time = mnemonics.Take(LoadText(Text::PageTime));
    const QString entry = mnemonics.Take(LoadText(Text::PageEntry));
    const QString notes = mnemonics.Take(LoadText(Text::PageNotes));
    m_pages = new QTabWidget;
    NameWidget(*m_pages, QStringLiteral("pages"), LoadText(Text::RecordDialogTitle));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_pages);
    m_timer = new CTimerPanelWidget(*m_draft, m_context, mnemonics);
    m_time = new CRecordDialogTime(*m_draft, m_context, mnemonics);
    m_entry = new CRecordDialogEntry(*m_draft, m_context, mnemonics);
    m_notes = new CNotesPage(RecordDialogParts::LabelOf(m_context.catalogue, kNotesName));
    m_pages->addTab(m_time, time);
    m_pages->addTab(m_entry, entry);
    m_pages->addTab(m_notes, notes);
    column->addWidget(m_timer);
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
}

void CRecordDialog::Wire() {
    connect(m_time, &CRecordDialogTime::Changed, m_entry, &CRecordDialogEntry::ShowComputed);
    connect(m_time, &CRecordDialogTime::Changed, m_timer, &CTimerPanelWidget::ShowTime);
    connect(m_entry, &CRecordDialogEntry::Changed, m_time, &CRecordDialogTime::ShowRecord);
    connect(m_time, &CRecordDialogTime::EntryTried, this, [this] {
        // The rule says why; while the fields are locked its answer is known.
        std::ignore = TimeEntryRules::MayEnterTimes(m_context.timers, GetDraft().GetId(), &m_context.prompt);
    });
    connect(m_timer, &CTimerPanelWidget::AboutToAct, m_time, &CRecordDialogTime::Settle);
    connect(m_timer, &CTimerPanelWidget::TimesChanged, this, &CRecordDialog::ShowTimes);
    connect(m_timer, &CTimerPanelWidget::StateChanged, m_time, &CRecordDialogTime::LockTimes);
    // A page that was called by its tab or its mnemonic has the focus in its first field.
    connect(m_pages, &QTabWidget::currentChanged, this, [this] { m_pages->currentWidget()->setFocus(); });
    RecordDialogParts::AcceptByCtrlReturn(*this);
}

void CRecordDialog::SetDraft(const CTRecord& record) {
    m_draft->Begin(record);
    m_time->ShowRecord();
    m_entry->ShowRecord();
    m_notes->SetNotes(record.notes);
    m_timer->setVisible(!record.GetId().isEmpty());
    m_timer->Open();
    m_pages->setCurrentWidget(m_time);
    m_time->setFocus();
    m_time->DateField()->selectAll();
}

const CTRecord& CRecordDialog::GetDraft() const {
    return m_draft->Record();
}

void CRecordDialog::ShowTimes() {
    m_time->ShowRecord();
    m_entry->ShowComputed();
}

void CRecordDialog::Refuse(CPickEdit& field, int textId, const QString& why) {
    RecordDialogParts::TellRefused(m_context.prompt, textId, why);
    m_pages->setCurrentWidget(m_time);
    RecordDialogParts::AskAgain(field);
}

bool CRecordDialog::TypingIsReadable() {
    if (CPickEdit* field = m_time->FirstUnreadable()) {
        Refuse(*field, field->UnreadableTextId(), field->WhyUnreadable());
        return false;
    }
    if (GetDraft().date.IsSet()) return true;
    Refuse(*m_time->DateField(), static_cast<int>(Text::DateMissing), LoadText(Text::DateMissing));
    return false;
}

void CRecordDialog::accept() {
    m_time->Settle();
    if (!TypingIsReadable()) return;
    // The last count first, so that the page accepted shows what belongs to it.
    m_timer->Close();
    CCatalogueKeeper lists(m_context.catalogue);
    const KeepInLists keep(m_context.settings, lists);
    m_draft->Change([this, &keep](CTRecord& record) {
        TimeEntryRules::AcceptEntryPage(record, m_entry->Page(), keep);
        record.notes = m_notes->GetNotes();
    });
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::accept();
}

void CRecordDialog::reject() {
    m_timer->Close();
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::reject();
}

bool RunRecordDialog(QWidget* parent, CTRecord& record, const RecordDialogContext& context) {
    CRecordDialog dialog(context, parent);
    dialog.SetDraft(record);
    if (dialog.exec() != QDialog::Accepted) return false;
    record.Copy(dialog.GetDraft());
    return true;
}
