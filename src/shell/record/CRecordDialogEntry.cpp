#include "shell/record/CRecordDialogEntry.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/record/CRecordDraft.h"
#include "shell/record/RecordDialogParts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <iterator>

namespace {

/// An item: the number of its name, its list, where the record and the accepted page have it.
struct ItemRow {
    int field;
    int list;
    QString CTRecord::*value;
    QString TimeEntryRules::EntryPage::*entered;
};
constexpr ItemRow kItems[] = {
    {NumberOf(FieldId::TimeItem1), ListId::kClient, &CTRecord::item1, &TimeEntryRules::EntryPage::item1},
    {NumberOf(FieldId::TimeItem2), ListId::kProject, &CTRecord::item2, &TimeEntryRules::EntryPage::item2},
    {NumberOf(FieldId::TimeItem3), ListId::kTimeItem3, &CTRecord::item3, &TimeEntryRules::EntryPage::item3},
    {NumberOf(FieldId::TimeItem4), ListId::kTimeItem4, &CTRecord::item4, &TimeEntryRules::EntryPage::item4},
    {NumberOf(FieldId::TimeItem5), ListId::kItem5, &CTRecord::item5, &TimeEntryRules::EntryPage::item5},
};
constexpr int kRateName = NumberOf(FieldId::TimeRate);
constexpr int kAmountName = NumberOf(FieldId::TimeAmount);
constexpr int kBillableName = NumberOf(FieldId::Billable);
constexpr int kBilledName = NumberOf(FieldId::Billed);

}  // namespace

CRecordDialogEntry::CRecordDialogEntry(CRecordDraft& draft, const RecordDialogContext& context,
                                       CMnemonics mnemonics)
    : m_draft(draft), m_context(context), m_fields(context.catalogue, RecordMode::Time, context.settings) {
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

QString CRecordDialogEntry::LabelOf(int field) const {
    return RecordDialogParts::LabelOf(m_context.catalogue, field);
}

/// Labels that users name themselves may leave few letters to share.
void CRecordDialogEntry::PlanMnemonics(CMnemonics& mnemonics) const {
    QStringList texts;
    for (const ItemRow& row : kItems) texts << LabelOf(row.field);
    for (const int field : {kBillableName, kRateName, kAmountName, kBilledName}) texts << LabelOf(field);
    mnemonics.Plan(texts);
}

void CRecordDialogEntry::AddItems(QGridLayout& form, CMnemonics& mnemonics) {
    for (std::size_t i = 0; i < std::size(kItems); ++i)
        m_items[i] = m_fields.AddRow(form, kItems[i].list, LabelOf(kItems[i].field),
                                     QStringLiteral("item%1Field").arg(i + 1), mnemonics);
}

void CRecordDialogEntry::AddMoney(QGridLayout& form, CMnemonics& mnemonics) {
    m_billable = MakeCheckBox(LabelOf(kBillableName), QStringLiteral("billableBox"), mnemonics);
    form.addWidget(m_billable, form.rowCount(), 1);
    m_rate =
        m_fields.AddRow(form, ListId::kTimeRate, LabelOf(kRateName), QStringLiteral("rateField"), mnemonics);
    m_amount = m_fields.AddRow(form, ListId::kAmount, LabelOf(kAmountName), QStringLiteral("amountField"),
                               mnemonics);
    m_billed = MakeCheckBox(LabelOf(kBilledName), QStringLiteral("billedBox"), mnemonics);
    form.addWidget(m_billed, form.rowCount(), 1);
}

void CRecordDialogEntry::Wire() {
    connect(m_rate, &CItemCombo::Edited, this, [this] { Enter(*m_rate, &TimeEntryRules::EnterRate); });
    connect(m_amount, &CItemCombo::Edited, this, [this] { Enter(*m_amount, &TimeEntryRules::EnterAmount); });
    connect(m_billable, &QCheckBox::clicked, this, &CRecordDialogEntry::SwitchBillable);
}

/// An empty field isn't marked: it changes nothing now either, and is saved as no value.
void CRecordDialogEntry::Enter(CItemCombo& typed, EnterMoney rule) {
    bool isRead = false;
    m_draft.Change([&](CTRecord& record) { isRead = rule(record, typed.Text()); });
    MarkUnreadable(*typed.lineEdit(), !isRead && !typed.Text().isEmpty(), LoadText(Text::NumberUnreadable));
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

void CRecordDialogEntry::ShowMoney(const CItemCombo* typed) {
    const auto show = [typed](CItemCombo& field, const QString& text) {
        if (&field == typed) return;
        field.ShowText(text);
        MarkUnreadable(*field.lineEdit(), false, {});
    };
    show(*m_rate, m_draft.Record().GetRateText());
    show(*m_amount, m_draft.Record().GetAmountText());
}

void CRecordDialogEntry::ShowComputed() {
    const CTRecord& record = m_draft.Record();
    if (record.amountIsDerived) m_amount->ShowText(record.GetAmountText());
    if (record.rateIsDerived) m_rate->ShowText(record.GetRateText());
}

void CRecordDialogEntry::ShowEnabled() {
    for (QWidget* widget :
         {static_cast<QWidget*>(m_rate), static_cast<QWidget*>(m_amount), static_cast<QWidget*>(m_billed)})
        widget->setEnabled(m_billable->isChecked());
}

void CRecordDialogEntry::ShowRecord() {
    const CTRecord& record = m_draft.Record();
    for (std::size_t i = 0; i < std::size(kItems); ++i) m_items[i]->ShowText(record.*kItems[i].value);
    m_billable->setChecked(record.isBillable);
    m_billed->setChecked(record.isBilled);
    ShowMoney(nullptr);
    ShowEnabled();
}

TimeEntryRules::EntryPage CRecordDialogEntry::Page() const {
    TimeEntryRules::EntryPage page;
    for (std::size_t i = 0; i < std::size(kItems); ++i) page.*kItems[i].entered = m_items[i]->Text();
    page.rate = m_rate->Text();
    page.amount = m_amount->Text();
    page.isBillable = m_billable->isChecked();
    page.isBilled = m_billed->isChecked();
    return page;
}
