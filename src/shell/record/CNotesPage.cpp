#include "shell/record/CNotesPage.h"

#include "lang/FormatText.h"
#include "shell/look/FormRows.h"
#include "shell/record/CNotesEdit.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

/// The count is shown when this many characters or fewer are left.
constexpr int kNearLimit = 1000;

}  // namespace

CNotesPage::CNotesPage(const QString& label)
    : m_text(new CNotesEdit(label, QStringLiteral("notesField"))), m_room(new QLabel) {
    setObjectName(QStringLiteral("notesPage"));
    NameWidget(*m_room, QStringLiteral("notesRoom"), label);
    setFocusProxy(m_text);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_text);
    column->addWidget(m_room);
    connect(m_text, &QPlainTextEdit::textChanged, this, &CNotesPage::ShowRoom);
    connect(m_text, &CNotesEdit::Edited, this, &CNotesPage::Edited);
    ShowRoom();
}

void CNotesPage::SetNotes(const QString& notes) {
    m_text->SetNotes(notes);
}

QString CNotesPage::GetNotes() const {
    return m_text->GetNotes();
}

void CNotesPage::ShowRoom() {
    const int length = m_text->Length();
    m_room->setText(length > CNotesEdit::kMostCharacters - kNearLimit
                        ? FormatText<Text::NotesNearLimit>(length, CNotesEdit::kMostCharacters)
                        : LoadText(Text::NotesHint));
}
