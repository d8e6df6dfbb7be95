#include "shell/record/CRecordDialog.h"

#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "entry/CEnteredItems.h"
#include "entry/NewListItems.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/record/CNotesPage.h"
#include "shell/record/CRecordDialogEntry.h"
#include "shell/record/CRecordDialogTime.h"
#include "shell/record/CRecordDialogWork.h"
#include "shell/record/CTimerPanelWidget.h"
#include "shell/record/LeaveQuestion.h"
#include "timers/CRecordTimers.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <chrono>
#include <tuple>
#include <utility>

namespace {

QString SizeSection() {
    return QStringLiteral("RecordDialog");
}
constexpr QSize kUsualSize{560, 420};
constexpr int kNotesName = NumberOf(FieldId::TimeNotes);
constexpr std::chrono::seconds kPersistAfter{1};

}  // namespace

CRecordDialog::CRecordDialog(const RecordDialogContext& context, QWidget* parent)
    : QDialog(parent), m_context(context), m_draft(context.settings) {
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
    m_timer = new CTimerPanelWidget(m_draft, m_context, mnemonics);
    m_time = new CRecordDialogTime(m_draft, m_context, mnemonics);
    m_entry = new CRecordDialogEntry(m_draft, m_context, mnemonics);
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
    connect(m_entry, &CRecordDialogEntry::ItemEntered, &m_time->Work(), &CRecordDialogWork::ShowItems);
    connect(&m_time->Work(), &CRecordDialogWork::ItemEntered, m_entry, &CRecordDialogEntry::ShowItems);
    connect(&m_time->Work(), &CRecordDialogWork::ItemEntered, this, &CRecordDialog::PersistLater);
    WireNotes();
    connect(m_time, &CRecordDialogTime::EntryTried, this, [this] {
        // The rule says why; while the fields are locked its answer is known.
        const QString id = m_draft.Record().GetId();
        std::ignore = TimeEntryRules::MayEnterTimes(m_context.timers, id, &m_context.prompt);
    });
    connect(m_timer, &CTimerPanelWidget::AboutToAct, m_time, &CRecordDialogTime::Settle);
    connect(m_timer, &CTimerPanelWidget::AboutToStart, this, &CRecordDialog::StampStart);
    connect(m_timer, &CTimerPanelWidget::TimesChanged, this, &CRecordDialog::ShowTimes);
    connect(m_timer, &CTimerPanelWidget::StateChanged, m_time, &CRecordDialogTime::LockTimes);
    connect(m_pages, &QTabWidget::currentChanged, this, &CRecordDialog::ShowPage);
    RecordDialogParts::AcceptByCtrlReturn(*this);
    connect(m_time, &CRecordDialogTime::Changed, this, &CRecordDialog::PersistLater);
    connect(m_entry, &CRecordDialogEntry::Entered, this, &CRecordDialog::PersistLater);
    connect(m_timer, &CTimerPanelWidget::StateChanged, this, [this] {
        // Said at every second of a running timer, too.
        const TimerState state = m_context.timers.StateOf(m_draft.Record().GetId());
        if (std::exchange(m_timerState, state) != state) PersistNow();
    });
    m_persist.setSingleShot(true);
    m_persist.setInterval(kPersistAfter);
    connect(&m_persist, &QTimer::timeout, this, &CRecordDialog::PersistNow);
}

/// Notes are carried to the other page when it opens: they may be long.
void CRecordDialog::WireNotes() {
    connect(&m_time->Work(), &CRecordDialogWork::NotesEntered, this, &CRecordDialog::PersistLater);
    connect(m_notes, &CNotesPage::Edited, this, [this] {
        m_draft.EnterNotes(m_notes->GetNotes());
        PersistLater();
    });
}

/// A page that was called by its tab or its mnemonic has the focus in its first field.
void CRecordDialog::ShowPage() {
    m_time->Work().ShowNotes();
    if (m_notes->GetNotes() != m_draft.Record().notes) m_notes->SetNotes(m_draft.Record().notes);
    m_pages->currentWidget()->setFocus();
}

/// Not stored yet, and no stored default.
bool CRecordDialog::IsNew() const {
    const QString id = m_draft.Record().GetId();
    return !id.isEmpty() && !m_context.document.FindRecord(id);
}

/// The work on a new record begins as its timer starts.
void CRecordDialog::StampStart() {
    if (!IsNew()) return;
    DateTimeVal now;
    now.SetNow(m_context.clock);
    m_draft.StampStart(now);
    ShowTimes();
}

void CRecordDialog::SetDraft(const TimeDraft& draft) {
    m_draft = draft;
    const CTRecord& record = m_draft.Record();
    m_time->ShowRecord();
    m_entry->ShowRecord();
    m_time->Work().ShowItems();
    m_time->Work().ShowNotes();
    m_notes->SetNotes(record.notes);
    m_timer->setVisible(!record.GetId().isEmpty());
    m_timer->Open();
    PersistNow();
    m_pages->setCurrentWidget(m_time);
    m_time->setFocus();
    m_time->DateField()->selectAll();
}

/// Not started anew by each key: what is entered is never further behind than this.
void CRecordDialog::PersistLater() {
    if (!m_persist.isActive() && m_context.timers.IsAwaited(m_draft.Record().GetId())) m_persist.start();
}

void CRecordDialog::PersistNow() {
    m_persist.stop();
    if (!m_context.timers.IsAwaited(m_draft.Record().GetId())) return;
    // A failure is no reason to stop the user, who has the draft on the screen; the next entry tries again.
    static_cast<void>(m_context.timers.PersistDraft(m_draft.Record()));
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

void CRecordDialog::GoTo(DraftField place) {
    const bool isDate = place == DraftField::Date;
    m_pages->setCurrentWidget(isDate ? static_cast<QWidget*>(m_time) : m_entry);
    RecordDialogParts::AskAgain(isDate ? *m_time->DateField() : *m_entry->LineOf(place));
}

bool CRecordDialog::IsAcceptable() {
    if (CPickEdit* field = m_time->FirstUnreadable()) {
        Refuse(*field, field->UnreadableTextId(), field->WhyUnreadable());
        return false;
    }
    const auto place = RecordDialogParts::AskAbout(m_draft.Findings(), m_context.prompt);
    if (place) GoTo(*place);
    return !place;
}

void CRecordDialog::accept() {
    m_time->Settle();
    if (!IsAcceptable()) return;
    // The last count first, so that the page accepted shows what belongs to it.
    m_timer->Close();
    m_draft.Accept(NewListItems(m_context.settings, m_context.entered));
    m_persist.stop();
    m_isDecided = true;
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::accept();
}

/// What would be lost if the dialog were left, as a question; nothing where nothing would. The timer of a
/// stored record goes on or stays paused.
std::optional<Text> CRecordDialog::LossIfLeft() const {
    const QString id = m_draft.Record().GetId();
    if (m_context.timers.IsAwaited(id) && m_context.timers.HasTimer(id)) return Text::AskLeaveTimer;
    if (!m_draft.HasEntries() && !m_time->HasUnreadableEntry()) return {};
    if (id.isEmpty()) return Text::AskLeaveDefault;
    if (IsNew()) return Text::AskLeaveNew;
    return m_context.timers.IsStoppedInDialog(id) ? Text::AskLeaveStopped : Text::AskLeaveChanged;
}

/// A window that leaves takes its dialogs with it; the user hasn't cancelled then, and the draft is offered
/// at the next start.
void CRecordDialog::reject() {
    const auto isLeaving = [this] { return parentWidget() && !parentWidget()->window()->isVisible(); };
    const std::optional<Text> loss = isLeaving() ? std::nullopt : LossIfLeft();
    const Leave leave = loss ? AskLeave(*loss, m_context.prompt) : Leave::Discard;
    if (leave == Leave::Save) return accept();
    if (leave == Leave::Stay && !isLeaving()) return;
    m_timer->Close();
    m_persist.stop();
    m_isDecided = !isLeaving();
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::reject();
}

bool RunRecordDialog(QWidget* parent, CTRecord& record, const RecordDialogContext& context,
                     CTRecord* untouched) {
    CRecordDialog dialog(context, parent);
    TimeDraft draft(context.settings);
    draft.Begin(record, untouched);
    dialog.SetDraft(draft);
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    if (isAccepted) record.Copy(dialog.GetDraft().Record());
    if (isAccepted && untouched) untouched->Copy(dialog.GetDraft().Untouched());
    if (!isAccepted && dialog.IsDecided())
        context.timers.DiscardDraft(record.GetId());
    else if (!isAccepted)
        context.timers.PersistDraftAtExit(dialog.GetDraft().Record());
    return isAccepted;
}
