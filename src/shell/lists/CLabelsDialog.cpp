#include "shell/lists/CLabelsDialog.h"

#include "app/CPulldownCatalogue.h"
#include "lang/LoadText.h"
#include "lists/LabelChanges.h"
#include "platform/settings/CProfile.h"
#include "shell/lists/CLabelPreview.h"
#include "shell/lists/CLabelView.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString SizeSection() {
    return QStringLiteral("FieldNamesDialog");
}
constexpr QSize kUsualSize{820, 500};

/// In place of a set's number: no names of the user at all.
constexpr int kNoSet = 0;

}  // namespace

/// A set of names that a button offers.
struct CLabelsDialog::SetRow {
    int preset;
    const char* button;
    Text caption, tip;
    LabelQuestion question;
};

CLabelsDialog::CLabelsDialog(CPulldownCatalogue& catalogue, CProfile& profile, QWidget* parent)
    : QDialog(parent),
      m_catalogue(catalogue),
      m_profile(profile),
      m_editor(catalogue),
      m_times(RecordMode::Time, catalogue.Labels(), m_editor),
      m_expenses(RecordMode::Expense, catalogue.Labels(), m_editor) {
    static constexpr SetRow kSets[] = {
        {.preset = 1,
         .button = "preset1Button",
         .caption = Text::NamesPreset1,
         .tip = Text::TipNamesPreset1,
         .question = {Text::AskLabelsPreset1, Text::AskLabelsPresetTitle, Text::NamesUse}},
        {.preset = 2,
         .button = "preset2Button",
         .caption = Text::NamesPreset2,
         .tip = Text::TipNamesPreset2,
         .question = {Text::AskLabelsPreset2, Text::AskLabelsPresetTitle, Text::NamesUse}},
        {.preset = kNoSet,
         .button = "resetButton",
         .caption = Text::NamesReset,
         .tip = Text::TipNamesReset,
         .question = {Text::AskResetLabels, Text::AskResetLabelsTitle, Text::NamesTakeAway}},
    };
    setObjectName(QStringLiteral("labelsDialog"));
    setWindowTitle(LoadText(Text::NamesTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    auto* tables = new QHBoxLayout;
    tables->setSpacing(kFormSpace);
    CLabelView* first = AddTable(*tables, m_times, QStringLiteral("timeLabels"));
    AddTable(*tables, m_expenses, QStringLiteral("expenseLabels"));
    column->addLayout(tables, 1);
    column->addWidget(MakeNote(LoadText(Text::NamesHowTo), QStringLiteral("howTo")));
    column->addWidget(MakeNote(LoadText(Text::NamesAreStored), QStringLiteral("areStored")));
    auto* sets = new QHBoxLayout;
    for (const SetRow& set : kSets) AddSet(*sets, set, mnemonics);
    sets->addStretch();
    column->addLayout(sets);
    column->addSpacing(kFormSpace);
    column->addWidget(MakeDialogButtons(*this, Text::DialogOk, mnemonics));
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    first->setFocus();
}

CLabelView* CLabelsDialog::AddTable(QHBoxLayout& tables, CLabelModel& model, const QString& name) {
    auto* view = new CLabelView(model);
    NameWidget(*view, name,
               model.headerData(CLabelModel::kField, Qt::Horizontal, Qt::DisplayRole).toString());
    tables.addWidget(view);
    return view;
}

QPushButton* CLabelsDialog::AddSet(QHBoxLayout& row, const SetRow& set, CMnemonics& mnemonics) {
    auto* button = new QPushButton(mnemonics.Take(LoadText(set.caption)));
    NameWidget(*button, QString::fromLatin1(set.button), CMnemonics::Plain(LoadText(set.caption)));
    button->setToolTip(LoadText(set.tip));
    button->setAutoDefault(false);
    row.addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, &set] { Offer(set); });
    return button;
}

void CLabelsDialog::Offer(const SetRow& set) {
    const std::map<int, QString> names = set.preset == kNoSet ? NoNames() : PresetNames(set.preset);
    if (!AskAboutLabels(this, set.question, LabelChanges(m_catalogue.Labels(), names), m_profile)) return;
    // Where it fails the user was told, and all names are as before.
    static_cast<void>(set.preset == kNoSet ? m_editor.Reset() : m_editor.ApplyPreset(set.preset));
    m_times.ShowAll();
    m_expenses.ShowAll();
}

void CLabelsDialog::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}

bool RunLabelsDialog(QWidget* parent, CPulldownCatalogue& catalogue, CProfile& profile) {
    CLabelsDialog dialog(catalogue, profile, parent);
    return dialog.exec() == QDialog::Accepted || dialog.IsChanged();
}
