#include "shell/CRecordDialogEntry.h"

#include "lang/LoadText.h"
#include "shell/CMnemonics.h"
#include "shell/CRecordDraft.h"
#include "shell/FormRows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <iterator>

namespace {

/// The longest text of a column of the store.
constexpr int kMostCharacters = 255;

struct ItemRow {
    Text label;
    QString CTRecord::*field;
    QString TimeEntryRules::EntryPage::*entered;
};
constexpr ItemRow kItems[] = {
    {Text::FieldClient, &CTRecord::item1, &TimeEntryRules::EntryPage::item1},
    {Text::FieldProject, &CTRecord::item2, &TimeEntryRules::EntryPage::item2},
    {Text::FieldActivity, &CTRecord::item3, &TimeEntryRules::EntryPage::item3},
    {Text::FieldCostCentre, &CTRecord::item4, &TimeEntryRules::EntryPage::item4},
    {Text::FieldCurrency, &CTRecord::item5, &TimeEntryRules::EntryPage::item5},
};

QLineEdit* AddLine(QGridLayout& form, const QString& label, const QString& name, CMnemonics& mnemonics) {
    auto* line = new QLineEdit;
    line->setMaxLength(kMostCharacters);
    const int row = form.rowCount();
    AddLabel(form, row, label, *line, name, mnemonics);
    form.addWidget(line, row, 1);
    return line;
}

/// Labels that users name themselves may leave few letters to share.
void PlanMnemonics(CMnemonics& mnemonics) {
    QStringList texts;
    for (const ItemRow& row : kItems) texts << LoadText(row.label);
    for (const Text text : {Text::FieldBillable, Text::FieldRate, Text::FieldAmount, Text::FieldBilled})
        texts << LoadText(text);
    mnemonics.Plan(texts);
}

/// A field cuts a pasted text at its limit, through the middle of a character beyond the basic plane if it
/// must be.
QString WholeCharacters(const QString& text) {
    return text.isEmpty() || !text.back().isHighSurrogate() ? text : text.chopped(1);
}

}  // namespace

CRecordDialogEntry::CRecordDialogEntry(CRecordDraft& draft, CMnemonics mnemonics) : m_draft(draft) {
    setObjectName(QStringLiteral("entryPage"));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    PlanMnemonics(mnemonics);
    AddItems(*form, mnemonics);
    setFocusProxy(m_items.front());
    form->setRowMinimumHeight(form->rowCount(), kFormSpace);
    AddMoney(*form, mnemonics);
    form->setColumnStretch(1, 1);
    form->setRowStretch(form->rowCount(), 1);
    Wire();
}

void CRecordDialogEntry::AddItems(QGridLayout& form, CMnemonics& mnemonics) {
    for (std::size_t i = 0; i < std::size(kItems); ++i)
        m_items[i] =
            AddLine(form, LoadText(kItems[i].label), QStringLiteral("item%1Field").arg(i + 1), mnemonics);
}

void CRecordDialogEntry::AddMoney(QGridLayout& form, CMnemonics& mnemonics) {
    m_billable = MakeCheckBox(LoadText(Text::FieldBillable), QStringLiteral("billableBox"), mnemonics);
    form.addWidget(m_billable, form.rowCount(), 1);
    m_rate = AddLine(form, LoadText(Text::FieldRate), QStringLiteral("rateField"), mnemonics);
    m_amount = AddLine(form, LoadText(Text::FieldAmount), QStringLiteral("amountField"), mnemonics);
    m_billed = MakeCheckBox(LoadText(Text::FieldBilled), QStringLiteral("billedBox"), mnemonics);
    form.addWidget(m_billed, form.rowCount(), 1);
}

void CRecordDialogEntry::Wire() {
    connect(m_rate, &QLineEdit::textEdited, this, [this] { Enter(*m_rate, &TimeEntryRules::EnterRate); });
    connect(m_amount, &QLineEdit::textEdited, this,
            [this] { Enter(*m_amount, &TimeEntryRules::EnterAmount); });
    connect(m_billable, &QCheckBox::clicked, this, &CRecordDialogEntry::SwitchBillable);
}

/// An empty field isn't marked: it changes nothing now either, and is saved as no value.
void CRecordDialogEntry::Enter(QLineEdit& typed, EnterMoney rule) {
    bool isRead = false;
    m_draft.Change([&](CTRecord& record) { isRead = rule(record, typed.text()); });
    MarkUnreadable(typed, !isRead && !typed.text().isEmpty(), LoadText(Text::NumberUnreadable));
    if (!isRead) return;
    ShowMoney(&typed);
    Q_EMIT Changed();
}

void CRecordDialogEntry::SwitchBillable(bool isBillable) {
    m_draft.Change([isBillable](CTRecord& record) { record.SetBillable(isBillable); });
    ShowMoney(nullptr);
    if (!isBillable) m_billed->setChecked(false);
    ShowEnabled();
    Q_EMIT Changed();
}

void CRecordDialogEntry::ShowMoney(const QLineEdit* typed) {
    const auto show = [typed](QLineEdit& line, const QString& text) {
        if (&line == typed) return;
        line.setText(text);
        MarkUnreadable(line, false, {});
    };
    show(*m_rate, m_draft.Record().GetRateText());
    show(*m_amount, m_draft.Record().GetAmountText());
}

void CRecordDialogEntry::ShowComputed() {
    const CTRecord& record = m_draft.Record();
    if (record.amountIsDerived) m_amount->setText(record.GetAmountText());
    if (record.rateIsDerived) m_rate->setText(record.GetRateText());
}

void CRecordDialogEntry::ShowEnabled() {
    for (QWidget* widget :
         {static_cast<QWidget*>(m_rate), static_cast<QWidget*>(m_amount), static_cast<QWidget*>(m_billed)})
        widget->setEnabled(m_billable->isChecked());
}

void CRecordDialogEntry::ShowRecord() {
    const CTRecord& record = m_draft.Record();
    for (std::size_t i = 0; i < std::size(kItems); ++i) m_items[i]->setText(record.*kItems[i].field);
    m_billable->setChecked(record.isBillable);
    m_billed->setChecked(record.isBilled);
    ShowMoney(nullptr);
    ShowEnabled();
}

TimeEntryRules::EntryPage CRecordDialogEntry::Page() const {
    TimeEntryRules::EntryPage page;
    for (std::size_t i = 0; i < std::size(kItems); ++i)
        page.*kItems[i].entered = WholeCharacters(m_items[i]->text());
    page.rate = m_rate->text();
    page.amount = m_amount->text();
    page.isBillable = m_billable->isChecked();
    page.isBilled = m_billed->isChecked();
    return page;
}
