#include "shell/record/CExpenseItemsPage.h"

#include "entry/ExpenseDraft.h"
#include "fields/ExpenseFields.h"
#include "fields/ItemMembers.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/controls/CItemFields.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/record/CCodedTextDialog.h"
#include "shell/record/RecordDialogParts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

using RecordDialogParts::LabelOf;

namespace {

/// The fifth, the currency, stands beside the money.
constexpr auto kItems = ItemFields<CERecord>(kExpenseFields);

struct FlagRow {
    int field;
    bool CERecord::*value;
    bool isBesideTheLast;  ///< the one that it needs
};
constexpr FlagRow kFlags[] = {
    {NumberOf(FieldId::Flag1), &CERecord::flag1, false}, {NumberOf(FieldId::Flag2), &CERecord::flag2, true},
    {NumberOf(FieldId::Flag3), &CERecord::flag3, false}, {NumberOf(FieldId::Flag4), &CERecord::flag4, true},
    {NumberOf(FieldId::Flag5), &CERecord::flag5, false},
};

}  // namespace

CExpenseItemsPage::CExpenseItemsPage(ExpenseDraft& draft, const RecordDialogContext& context,
                                     const CItemFields& fields, CMnemonics mnemonics)
    : m_draft(draft), m_context(context) {
    setObjectName(QStringLiteral("itemsPage"));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    PlanMnemonics(mnemonics);
    AddItems(*form, fields, mnemonics);
    setFocusProxy(m_items.front());
    form->setRowMinimumHeight(form->rowCount(), kFormSpace);
    AddFlags(*form, mnemonics);
    form->setColumnStretch(1, 1);
    form->setRowStretch(form->rowCount(), 1);
}

/// Labels that users name themselves may leave few letters to share.
void CExpenseItemsPage::PlanMnemonics(CMnemonics& mnemonics) const {
    QStringList texts;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        texts << LabelOf(m_context.catalogue, NumberOf(kItems[i].id));
    texts << LoadText(Text::CodesButton);
    for (const FlagRow& row : kFlags) texts << LabelOf(m_context.catalogue, row.field);
    mnemonics.Plan(texts);
}

void CExpenseItemsPage::AddItems(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics) {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        m_items[i] = fields.AddRow(form, kItems[i].list, LabelOf(m_context.catalogue, NumberOf(kItems[i].id)),
                                   QStringLiteral("item%1Field").arg(i + 1), mnemonics);
        connect(m_items[i], &CItemCombo::Edited, this,
                [this, i] { m_draft.EnterItem(kItems[i].member, m_items[i]->Text()); });
    }
    auto* codes = new QPushButton(mnemonics.Give(LoadText(Text::CodesButton)));
    NameWidget(*codes, QStringLiteral("codesButton"), LoadText(Text::CodesTitle));
    codes->setAutoDefault(false);
    form.addWidget(codes, form.rowCount() - 1, 2);
    connect(codes, &QPushButton::clicked, this, &CExpenseItemsPage::EditCodes);
}

/// A flag that needs another one stands beside it.
void CExpenseItemsPage::AddFlags(QGridLayout& form, CMnemonics& mnemonics) {
    auto* flags = new QGridLayout;
    flags->setHorizontalSpacing(3 * kFormSpace);
    int row = -1;
    for (std::size_t i = 0; i < std::size(kFlags); ++i) {
        const bool isSecond = kFlags[i].isBesideTheLast;
        if (!isSecond) ++row;
        m_flags[i] = MakeCheckBox(LabelOf(m_context.catalogue, kFlags[i].field),
                                  QStringLiteral("flag%1Box").arg(i + 1), mnemonics);
        flags->addWidget(m_flags[i], row, isSecond ? 1 : 0);
        connect(m_flags[i], &QCheckBox::clicked, this, [this, i](bool isOn) {
            m_draft.SwitchFlag(kFlags[i].value, isOn);
            ShowFlags();
        });
    }
    flags->setColumnStretch(1, 1);
    form.addLayout(flags, form.rowCount(), 1, 1, 2);
}

void CExpenseItemsPage::ShowFlags() {
    for (std::size_t i = 0; i < std::size(kFlags); ++i) {
        m_flags[i]->setEnabled(m_draft.MaySetFlag(kFlags[i].value));
        m_flags[i]->setChecked(m_draft.Record().*kFlags[i].value);
    }
}

void CExpenseItemsPage::EditCodes() {
    CodedItems texts;
    for (std::size_t i = 0; i < m_items.size(); ++i) texts[i] = m_items[i]->Text();
    if (!RunCodedTextDialog(this, texts, m_context)) return;
    for (std::size_t i = 0; i < m_items.size(); ++i) m_draft.EnterItem(kItems[i].member, texts[i]);
    ShowRecord();
}

void CExpenseItemsPage::ShowRecord() {
    for (std::size_t i = 0; i < m_items.size(); ++i) m_items[i]->ShowText(m_draft.Record().*kItems[i].member);
    ShowFlags();
}
