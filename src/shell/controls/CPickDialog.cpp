#include "shell/controls/CPickDialog.h"

#include "lang/LoadText.h"
#include "shell/controls/CSearchList.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "viewmodel/commands/WordSearch.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString SizeSection(bool hasSearch) {
    return hasSearch ? QStringLiteral("PickDialog") : QStringLiteral("ShortPickDialog");
}
constexpr QSize kUsualSize{320, 400};
constexpr QSize kUsualShortSize{280, 180};

}  // namespace

CPickDialog::CPickDialog(const Choice& choice, CProfile& profile, QWidget* parent)
    : QDialog(parent),
      m_profile(profile),
      m_hasSearch(choice.hasSearch),
      m_list(new CSearchList({Text::PickSearch, Text::PickRows, Text::PickNothingFound})) {
    setObjectName(QStringLiteral("pickDialog"));
    setWindowTitle(choice.title);
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_list);
    if (!choice.hasSearch) m_list->HideSearch();
    if (!choice.note.isEmpty()) {
        auto* note = new QLabel(choice.note);
        note->setObjectName(QStringLiteral("pickNote"));
        note->setTextFormat(Qt::PlainText);
        note->setWordWrap(true);
        column->addWidget(note);
    }
    auto* buttons = MakeDialogButtons(*this, choice.accept, mnemonics);
    column->addWidget(buttons);
    connect(m_list, &CSearchList::CurrentChanged, this,
            [buttons](int row) { buttons->button(QDialogButtonBox::Ok)->setEnabled(row >= 0); });
    connect(m_list, &CSearchList::Chosen, this, &CPickDialog::accept);
    std::vector<SearchRow> rows;
    for (const QString& text : choice.rows) rows.push_back({.text = text});
    m_list->SetRows(std::move(rows), choice.present,
                    [texts = choice.rows](const QString& words) { return FindByWords(texts, words); });
    RestoreDialogSize(*this, m_profile, SizeSection(m_hasSearch), m_hasSearch ? kUsualSize : kUsualShortSize);
    m_list->setFocus();
}

int CPickDialog::Picked() const {
    return m_list->Current();
}

void CPickDialog::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection(m_hasSearch));
    QDialog::done(result);
}

std::optional<int> RunPickDialog(QWidget* parent, const CPickDialog::Choice& choice, CProfile& profile) {
    CPickDialog dialog(choice, profile, parent);
    if (dialog.exec() != QDialog::Accepted || dialog.Picked() < 0) return std::nullopt;
    return dialog.Picked();
}
