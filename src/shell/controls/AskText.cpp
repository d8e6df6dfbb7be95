#include "shell/controls/AskText.h"

#include "records/CVORec.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QVBoxLayout>

std::optional<QString> AskText(QWidget* parent, const TextQuestion& question) {
    constexpr int kLeastWidth = 320;
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("textDialog"));
    dialog.setWindowTitle(question.title);
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(dialog, Text::DialogOk, mnemonics);
    auto* field = new QLineEdit(question.opening);
    LimitLength(*field, kTextLength);
    field->setMinimumWidth(kLeastWidth);
    field->selectAll();
    auto* column = new QVBoxLayout(&dialog);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    AddLabel(*form, 0, question.label, *field, QStringLiteral("textField"), mnemonics);
    form->addWidget(field, 0, 1);
    column->addLayout(form);
    column->addStretch();
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted) return {};
    return field->text();
}
