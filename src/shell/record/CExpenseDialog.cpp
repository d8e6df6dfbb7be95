#include "shell/record/CExpenseDialog.h"

#include "app/CVelmarchDoc.h"
#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "entry/CEnteredItems.h"
#include "entry/NewListItems.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/options/SettingSwitch.h"
#include "shell/record/CExpenseItemsPage.h"
#include "shell/record/CExpenseMoneyPage.h"
#include "shell/record/CNotesPage.h"
#include "shell/record/COdometerDialog.h"
#include "shell/record/LeaveQuestion.h"

#include <QDialogButtonBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("ExpenseDialog");
}
constexpr QSize kUsualSize{560, 420};
constexpr int kNotesName = NumberOf(FieldId::ExpenseNotes);

}  // namespace

CExpenseDialog::CExpenseDialog(const RecordDialogContext& context, QWidget* parent)
    : QDialog(parent),
      m_context(context),
      m_fields(context.catalogue, RecordMode::Expense, context.settings) {
    setObjectName(QStringLiteral("expenseDialog"));
    setWindowTitle(LoadText(Text::ExpenseDialogTitle));
    BuildPages();
    // A page that was called by its tab or its mnemonic has the focus in its first field.
    connect(m_pages, &QTabWidget::currentChanged, this, [this] { m_pages->currentWidget()->setFocus(); });
    connect(m_notes, &CNotesPage::Edited, this, [this] { m_draft.EnterNotes(m_notes->GetNotes()); });
    connect(m_money, &CExpenseMoneyPage::OdometerWanted, this, &CExpenseDialog::OpenOdometer);
    RecordDialogParts::AcceptByCtrlReturn(*this);
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
}

/// The pages work on what this object holds, so they go before it.
CExpenseDialog::~CExpenseDialog() {
    delete m_pages;
}

/// What is in sight on every page takes its mnemonics first; each page shares out the rest by itself.
void CExpenseDialog::BuildPages() {
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogSave, mnemonics);
    const QString money = mnemonics.Take(LoadText(Text::PageMoney));
    const QString items = mnemonics.Take(LoadText(Text::PageItems));
    const QString notes = mnemonics.Take(LoadText(Text::PageNotes));
    m_pages = new QTabWidget;
    NameWidget(*m_pages, QStringLiteral("pages"), LoadText(Text::ExpenseDialogTitle));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_pages);
    m_money = new CExpenseMoneyPage(m_draft, m_context, m_fields, mnemonics);
    m_items = new CExpenseItemsPage(m_draft, m_context, m_fields, mnemonics);
    m_notes = new CNotesPage(RecordDialogParts::LabelOf(m_context.catalogue, kNotesName));
    m_pages->addTab(m_money, money);
    m_pages->addTab(m_items, items);
    m_pages->addTab(m_notes, notes);
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
}

void CExpenseDialog::SetDraft(const ExpenseDraft& draft) {
    m_draft = draft;
    m_money->ShowRecord();
    m_items->ShowRecord();
    m_notes->SetNotes(m_draft.Record().notes);
    m_pages->setCurrentWidget(m_money);
    RecordDialogParts::AskAgain(*m_money->DateField());
}

/// It opens on what the page shows. Cancelled, it has changed nothing.
void CExpenseDialog::OpenOdometer() {
    ExpenseEntryRules::Odometer odometer = m_draft.OpenOdometer(m_context.settings);
    const QStringList itemPath = m_fields.PathOf(ListId::kDistanceRate);
    if (!RunOdometerDialog(this, odometer, itemPath, m_context)) return;
    m_draft.AcceptOdometer(odometer, m_context.settings);
    SaveSetting(QStringLiteral("odometerLastEnd"), m_context.settings, m_context.prompt);
    m_money->ShowMoney();
}

void CExpenseDialog::GoTo(DraftField place) {
    m_pages->setCurrentWidget(m_money);
    RecordDialogParts::AskAgain(*m_money->LineOf(place));
}

bool CExpenseDialog::IsAcceptable() {
    if (const CDateEdit& date = *m_money->DateField(); !date.IsReadable()) {
        RecordDialogParts::TellRefused(m_context.prompt, date.UnreadableTextId(), date.WhyUnreadable());
        GoTo(DraftField::Date);
        return false;
    }
    const auto place = RecordDialogParts::AskAbout(m_draft.Findings(), m_context.prompt);
    if (place) GoTo(*place);
    return !place;
}

void CExpenseDialog::accept() {
    if (!IsAcceptable()) return;
    m_draft.Accept(NewListItems(m_context.settings, m_context.entered));
    QDialog::accept();
}

/// What would be lost if the dialog were left, as a question; nothing where nothing would.
std::optional<Text> CExpenseDialog::LossIfLeft() const {
    const CDateEdit& date = *m_money->DateField();
    const bool hasUnreadableDate = !date.IsReadable() && !date.HasShownText();
    if (!m_draft.HasEntries() && !hasUnreadableDate) return {};
    const QString id = m_draft.Record().GetId();
    if (id.isEmpty()) return Text::AskLeaveDefault;
    return m_context.document.FindRecord(id) ? Text::AskLeaveChanged : Text::AskLeaveNew;
}

/// A window that leaves takes its dialogs with it, and asks nothing more.
void CExpenseDialog::reject() {
    const auto isLeaving = [this] { return parentWidget() && !parentWidget()->window()->isVisible(); };
    const std::optional<Text> loss = isLeaving() ? std::nullopt : LossIfLeft();
    const Leave leave = loss ? AskLeave(*loss, m_context.prompt) : Leave::Discard;
    if (leave == Leave::Save) return accept();
    if (leave == Leave::Discard || isLeaving()) QDialog::reject();
}

void CExpenseDialog::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunExpenseDialog(QWidget* parent, CERecord& record, const RecordDialogContext& context,
                      const CERecord* untouched) {
    CExpenseDialog dialog(context, parent);
    ExpenseDraft draft;
    draft.Begin(record, untouched);
    dialog.SetDraft(draft);
    if (dialog.exec() != QDialog::Accepted) return false;
    record.Copy(dialog.GetDraft().Record());
    return true;
}
