#include "shell/list/CSortDialog.h"

#include "lang/LoadText.h"
#include "shell/controls/CSearchList.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/WordSearch.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

namespace {

QString SizeSection() {
    return QStringLiteral("SortDialog");
}
constexpr QSize kUsualSize{360, 340};

QRadioButton* MakeDirection(Text text, const QString& objectName, CMnemonics& mnemonics) {
    auto* button = new QRadioButton(mnemonics.Take(LoadText(text)));
    NameWidget(*button, objectName, CMnemonics::Plain(LoadText(text)));
    return button;
}

}  // namespace

CSortDialog::CSortDialog(Choice choice, CProfile& profile, QWidget* parent)
    : QDialog(parent),
      m_choice(std::move(choice)),
      m_profile(profile),
      m_list(new CSearchList({Text::PickSearch, Text::PickRows, Text::PickNothingFound})) {
    setObjectName(QStringLiteral("sortDialog"));
    setWindowTitle(LoadText(Text::SortTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    m_list->HideSearch();
    column->addWidget(m_list, 1);
    column->addWidget(MakeDirections(mnemonics));
    auto* buttons = MakeDialogButtons(*this, Text::SortTitle, mnemonics);
    column->addWidget(buttons);
    connect(m_list, &CSearchList::CurrentChanged, this, [this, buttons](int picked) {
        buttons->button(QDialogButtonBox::Ok)->setEnabled(picked >= 0);
        Propose(picked);
    });
    connect(m_list, &CSearchList::Chosen, this, &CSortDialog::accept);
    std::vector<SearchRow> rows;
    for (const QString& caption : m_choice.columns) rows.push_back({.text = caption});
    m_list->SetRows(std::move(rows), m_choice.present, [columns = m_choice.columns](const QString& words) {
        return FindByWords(columns, words);
    });
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    m_list->setFocus();
}

QWidget* CSortDialog::MakeDirections(CMnemonics& mnemonics) {
    auto* box = new QGroupBox(LoadText(Text::SortDirection));
    m_ascending = MakeDirection(Text::SortAscending, QStringLiteral("sortAscending"), mnemonics);
    m_descending = MakeDirection(Text::SortDescending, QStringLiteral("sortDescending"), mnemonics);
    auto* column = new QVBoxLayout(box);
    column->addWidget(m_ascending);
    column->addWidget(m_descending);
    return box;
}

void CSortDialog::Propose(int column) {
    if (column < 0) return;
    const bool isAscending = m_choice.isAscendingByHeader(column);
    (isAscending ? m_ascending : m_descending)->setChecked(true);
}

int CSortDialog::Picked() const {
    return m_list->Current();
}

bool CSortDialog::IsAscending() const {
    return m_ascending->isChecked();
}

void CSortDialog::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}
