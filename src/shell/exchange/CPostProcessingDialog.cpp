#include "shell/exchange/CPostProcessingDialog.h"

#include "lang/FormatText.h"
#include "platform/settings/CProfile.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

struct ChoiceRow {
    AfterExport what;
    Text label;
    const char* name;
};
/// Deleting stands last, apart from the others.
constexpr ChoiceRow kChoices[] = {
    {AfterExport::Nothing, Text::PostProcessingNothing, "nothingChoice"},
    {AfterExport::Mark, Text::PostProcessingMark, "markChoice"},
    {AfterExport::Delete, Text::PostProcessingDelete, "deleteChoice"},
};

/// What was chosen last; deleting is never what stands there from the start.
AfterExport PresetOf(const CProfile& profile) {
    const auto noted = static_cast<AfterExport>(
        profile.GetInt(LoadText(Text::SectionExport), LoadText(Text::EntryPostProcessing), 1));
    return noted == AfterExport::Mark ? noted : AfterExport::Nothing;
}

}  // namespace

CPostProcessingDialog::CPostProcessingDialog(int records, const QString& path, CProfile& profile,
                                             QWidget* parent)
    : QDialog(parent), m_choices(new QButtonGroup(this)) {
    setObjectName(QStringLiteral("postProcessingDialog"));
    setWindowTitle(LoadText(Text::PostProcessingTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->addWidget(
        MakeNote(FormatText<Text::PostProcessingHint>(records, path), QStringLiteral("postProcessingHint")));
    for (const ChoiceRow& row : kChoices) {
        auto* choice = new QRadioButton(mnemonics.Take(LoadText(row.label)));
        NameWidget(*choice, QString::fromLatin1(row.name), CMnemonics::Plain(LoadText(row.label)));
        choice->setChecked(row.what == PresetOf(profile));
        m_choices->addButton(choice, static_cast<int>(row.what));
        if (row.what == AfterExport::Delete) column->addSpacing(3 * kFormSpace);
        column->addWidget(choice);
    }
    column->addWidget(
        MakeNote(LoadText(Text::PostProcessingDeleteHint), QStringLiteral("postProcessingDeleteHint")));
    // A choice that can't be noted is only not offered the next time.
    connect(m_choices, &QButtonGroup::idClicked, this, [&profile](int choice) {
        static_cast<void>(
            profile.WriteInt(LoadText(Text::SectionExport), LoadText(Text::EntryPostProcessing), choice));
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setText(mnemonics.Give(LoadText(Text::PostProcessingAccept)));
    NameWidget(*buttons->button(QDialogButtonBox::Ok), QStringLiteral("acceptButton"),
               LoadText(Text::PostProcessingAccept));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    column->addStretch();
    column->addWidget(buttons);
}

AfterExport CPostProcessingDialog::Choice() const {
    const int choice = m_choices->checkedId();
    return choice < 0 ? AfterExport::Nothing : static_cast<AfterExport>(choice);
}
