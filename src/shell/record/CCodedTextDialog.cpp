#include "shell/record/CCodedTextDialog.h"

#include "config/CCfgStore.h"
#include "entry/CodedText.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CElidedLabel.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("CodedTextDialog");
}
constexpr QSize kUsualSize{480, 220};
constexpr int kFirstName =
    NumberOf(FieldId::ExpenseItem1);  ///< what the user calls the first item; the others follow
constexpr std::size_t kPayment = 3;

/// What both parts may have together, so that the joined text can be stored.
int RoomForParts() {
    const QString example = QStringLiteral("x");
    return kTextLength - static_cast<int>(JoinCodedText({example, example}).size()) + 2;
}

}  // namespace

CCodedTextDialog::CCodedTextDialog(const RecordDialogContext& context, QWidget* parent)
    : QDialog(parent), m_context(context) {
    setObjectName(QStringLiteral("codedTextDialog"));
    setWindowTitle(LoadText(Text::CodesTitle));
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogOk, mnemonics);
    auto* column = new QVBoxLayout(this);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    BuildRows(*form, mnemonics);
    column->addLayout(form);
    m_note = new CElidedLabel;
    NameWidget(*m_note, QStringLiteral("replacedNote"), LoadText(Text::CodesTitle));
    column->addWidget(m_note);
    column->addStretch();
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
}

void CCodedTextDialog::BuildRows(QGridLayout& form, CMnemonics& mnemonics) {
    form.addWidget(new QLabel(LoadText(Text::CodePart)), 0, 1);
    form.addWidget(new QLabel(LoadText(Text::NamePart)), 0, 2);
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const int item = static_cast<int>(i);
        m_parts[i] = AddParts(form, item, RecordDialogParts::LabelOf(m_context.catalogue, kFirstName + item),
                              mnemonics);
    }
    AddPayment(form, RecordDialogParts::LabelOf(m_context.catalogue, kFirstName + static_cast<int>(kPayment)),
               mnemonics);
    form.setColumnStretch(1, 1);
    form.setColumnStretch(2, 2);
}

CCodedTextDialog::Parts CCodedTextDialog::AddParts(QGridLayout& form, int item, const QString& label,
                                                   CMnemonics& mnemonics) {
    const Parts parts{new QLineEdit, new QLineEdit};
    const int row = form.rowCount();
    const QString name = QStringLiteral("item%1").arg(item + 1);
    AddLabel(form, row, label, *parts.code, name + QStringLiteral("Code"), mnemonics);
    parts.code->setAccessibleName(FormatText<Text::FieldWithPart>(label, LoadText(Text::CodePart)));
    NameWidget(*parts.name, name + QStringLiteral("Name"),
               FormatText<Text::FieldWithPart>(label, LoadText(Text::NamePart)));
    form.addWidget(parts.code, row, 1);
    form.addWidget(parts.name, row, 2);
    for (QLineEdit* line : {parts.code, parts.name}) {
        LimitLength(*line, RoomForParts());
        connect(line, &QLineEdit::textChanged, this, [parts] { ShareRoom(parts); });
    }
    return parts;
}

/// What one part takes the other can't have.
void CCodedTextDialog::ShareRoom(const Parts& parts) {
    parts.code->setMaxLength(RoomForParts() - static_cast<int>(parts.name->text().size()));
    parts.name->setMaxLength(RoomForParts() - static_cast<int>(parts.code->text().size()));
}

void CCodedTextDialog::AddPayment(QGridLayout& form, const QString& label, CMnemonics& mnemonics) {
    m_payment = new CItemCombo(&PaymentTexts);
    const int row = form.rowCount();
    AddLabel(form, row, label, *m_payment, QStringLiteral("paymentField"), mnemonics);
    NameWidget(*m_payment->lineEdit(), QStringLiteral("paymentFieldText"), label);
    form.addWidget(m_payment, row, 1, 1, 2);
}

void CCodedTextDialog::SetDraft(const CodedItems& items) {
    m_given = items;
    QStringList plain;
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const CodedText parts = SplitCodedText(items[i]);
        m_parts[i].code->setText(parts.code);
        m_parts[i].name->setText(parts.name);
        if (IsPlainText(items[i])) plain << items[i];
    }
    m_payment->ShowText(items[kPayment]);
    m_note->setVisible(!plain.isEmpty());
    m_note->SetFullText(FormatText<Text::CodesReplace>(plain.join(QStringLiteral(", "))));
    m_parts.front().code->setFocus();
}

CodedItems CCodedTextDialog::GetDraft() const {
    CodedItems items;
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        items[i] = ChangeCodedText(m_given[i], {m_parts[i].code->text(), m_parts[i].name->text()});
    items[kPayment] = m_payment->Text();
    return items;
}

void CCodedTextDialog::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunCodedTextDialog(QWidget* parent, CodedItems& items, const RecordDialogContext& context) {
    CCodedTextDialog dialog(context, parent);
    dialog.SetDraft(items);
    if (dialog.exec() != QDialog::Accepted) return false;
    items = dialog.GetDraft();
    return true;
}
