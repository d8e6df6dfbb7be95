#include "shell/record/CRecordDialogEntry.h"

#include "config/CCfgStore.h"
#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/record/RecordDialogParts.h"

#include <QCheckBox>
#include <QGridLayout>

namespace {

constexpr auto kItems = ItemFields<CTRecord>(kTimeFields);
constexpr int kRateName = NumberOf(FieldId::TimeRate);
constexpr int kAmountName = NumberOf(FieldId::TimeAmount);
constexpr int kBillableName = NumberOf(FieldId::Billable);
constexpr int kBilledName = NumberOf(FieldId::Billed);

}  // namespace

CRecordDialogEntry::CRecordDialogEntry(TimeDraft& draft, const RecordDialogContext& context,
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
    for (const auto& item : kItems) texts << LabelOf(NumberOf(item.id));
    for (const int field : {kBillableName, kRateName, kAmountName, kBilledName}) texts << LabelOf(field);
    mnemonics.Plan(texts);
}

void CRecordDialogEntry::AddItems(QGridLayout& form, CMnemonics& mnemonics) {
    for (std::size_t i = 0; i < m_items.size(); ++i)
        m_items[i] = m_fields.AddRow(form, kItems[i].list, LabelOf(NumberOf(kItems[i].id)),
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
    for (std::size_t i = 0; i < m_items.size(); ++i)
        connect(m_items[i], &CItemCombo::Edited, this, [this, i] {
            m_draft.EnterItem(kItems[i].member, m_items[i]->Text());
            Q_EMIT ItemEntered();
            Q_EMIT Entered();
        });
    connect(m_rate, &CItemCombo::Edited, this, [this] { Enter(*m_rate, &TimeDraft::EnterRate); });
    connect(m_amount, &CItemCombo::Edited, this, [this] { Enter(*m_amount, &TimeDraft::EnterAmount); });
    connect(m_billable, &QCheckBox::clicked, this, &CRecordDialogEntry::SwitchBillable);
    connect(m_billed, &QCheckBox::clicked, this, [this](bool isOn) {
        m_draft.SwitchBilled(isOn);
        Q_EMIT Entered();
    });
}

void CRecordDialogEntry::Enter(CItemCombo& typed, EnterMoney enter) {
    const Typed read = (m_draft.*enter)(typed.Text());
    if (read == Typed::Value) ShowMoney(&typed);
    MarkMoney();
    if (read == Typed::Value) Q_EMIT Changed();
    Q_EMIT Entered();
}

void CRecordDialogEntry::SwitchBillable(bool isBillable) {
    m_draft.SwitchBillable(isBillable);
    ShowMoney(nullptr);
    MarkMoney();
    m_billed->setChecked(m_draft.Record().isBilled);
    ShowEnabled();
    Q_EMIT Changed();
    Q_EMIT Entered();
}

void CRecordDialogEntry::ShowMoney(const CItemCombo* typed) {
    if (m_rate != typed) m_rate->ShowText(m_draft.RateText());
    if (m_amount != typed) m_amount->ShowText(m_draft.AmountText());
}

void CRecordDialogEntry::MarkMoney() {
    const DraftFindings findings = m_draft.Findings();
    for (const DraftField place : {DraftField::Rate, DraftField::Amount})
        RecordDialogParts::MarkFinding(*LineOf(place), findings, place);
}

QLineEdit* CRecordDialogEntry::LineOf(DraftField place) const {
    return (place == DraftField::Rate ? m_rate : m_amount)->lineEdit();
}

void CRecordDialogEntry::ShowComputed() {
    const CTRecord& record = m_draft.Record();
    if (record.amountIsDerived) m_amount->ShowText(m_draft.AmountText());
    if (record.rateIsDerived) m_rate->ShowText(m_draft.RateText());
    MarkMoney();
}

void CRecordDialogEntry::ShowEnabled() {
    for (QWidget* widget :
         {static_cast<QWidget*>(m_rate), static_cast<QWidget*>(m_amount), static_cast<QWidget*>(m_billed)})
        widget->setEnabled(m_billable->isChecked());
}

void CRecordDialogEntry::ShowItems() {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const QString& text = m_draft.Record().*kItems[i].member;
        if (m_items[i]->Text() != text) m_items[i]->ShowText(text);
    }
}

void CRecordDialogEntry::ShowRecord() {
    const CTRecord& record = m_draft.Record();
    ShowItems();
    m_billable->setChecked(record.isBillable);
    m_billed->setChecked(record.isBilled);
    ShowMoney(nullptr);
    MarkMoney();
    ShowEnabled();
}
