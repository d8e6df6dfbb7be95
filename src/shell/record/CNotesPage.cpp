#include "shell/record/CNotesPage.h"

#include "lang/FormatText.h"
#include "shell/look/FormRows.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

/// The count is shown when this many characters or fewer are left.
constexpr int kNearLimit = 1000;

/// The document's own last paragraph mark isn't part of the text.
int LengthOf(const QTextDocument& document) {
    return document.characterCount() - 1;
}

}  // namespace

CNotesPage::CNotesPage(const QString& label) : m_text(new QPlainTextEdit), m_room(new QLabel) {
    setObjectName(QStringLiteral("notesPage"));
    NameWidget(*m_text, QStringLiteral("notesField"), label);
    NameWidget(*m_room, QStringLiteral("notesRoom"), label);
    m_text->setTabChangesFocus(true);
    setFocusProxy(m_text);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addWidget(m_text);
    column->addWidget(m_room);
    connect(m_text->document(), &QTextDocument::contentsChange, this, &CNotesPage::NoteChange);
    connect(m_text, &QPlainTextEdit::textChanged, this, &CNotesPage::KeepLimit);
    ShowRoom();
}

void CNotesPage::SetNotes(const QString& notes) {
    m_given = notes;
    m_text->setPlainText(notes);
    m_text->document()->setModified(false);
}

QString CNotesPage::GetNotes() const {
    if (!m_text->document()->isModified()) return m_given;
    // The raw text keeps non-breaking spaces, which the plain one turns into ordinary ones.
    QString notes = m_text->document()->toRawText();
    for (const QChar::SpecialCharacter mark : {QChar::ParagraphSeparator, QChar::LineSeparator})
        notes.replace(QChar(mark), QLatin1Char('\n'));
    return notes;
}

void CNotesPage::NoteChange(int position, int, int added) {
    m_changeEnd = position + added;
}

void CNotesPage::KeepLimit() {
    QTextDocument& document = *m_text->document();
    int over = LengthOf(document) - kMostCharacters;
    if (over > 0) {
        const int end = qMin(m_changeEnd, LengthOf(document));
        // A character of two halves goes as a whole.
        if (document.characterAt(end - over).isLowSurrogate()) ++over;
        QTextCursor cursor(&document);
        cursor.joinPreviousEditBlock();
        cursor.setPosition(end);
        cursor.setPosition(end - over, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        cursor.endEditBlock();
    }
    ShowRoom();
    Q_EMIT Edited();
}

void CNotesPage::ShowRoom() {
    const int length = LengthOf(*m_text->document());
    m_room->setText(length > kMostCharacters - kNearLimit
                        ? FormatText<Text::NotesNearLimit>(length, kMostCharacters)
                        : LoadText(Text::NotesHint));
}
