#include "shell/record/CNotesEdit.h"

#include "shell/look/FormRows.h"

#include <QScopedValueRollback>
#include <QTextCursor>
#include <QTextDocument>

CNotesEdit::CNotesEdit(const QString& label, const QString& objectName) {
    NameWidget(*this, objectName, label);
    setTabChangesFocus(true);
    connect(document(), &QTextDocument::contentsChange, this, &CNotesEdit::NoteChange);
    connect(this, &QPlainTextEdit::textChanged, this, &CNotesEdit::KeepLimit);
}

/// The document's own last paragraph mark isn't part of the text.
int CNotesEdit::Length() const {
    return document()->characterCount() - 1;
}

void CNotesEdit::SetNotes(const QString& notes) {
    const QScopedValueRollback showing(m_isShowing, true);
    m_given = notes;
    setPlainText(notes);
    document()->setModified(false);
}

QString CNotesEdit::GetNotes() const {
    if (!document()->isModified()) return m_given;
    // The raw text keeps non-breaking spaces, which the plain one turns into ordinary ones.
    QString notes = document()->toRawText();
    for (const QChar::SpecialCharacter mark : {QChar::ParagraphSeparator, QChar::LineSeparator})
        notes.replace(QChar(mark), QLatin1Char('\n'));
    return notes;
}

void CNotesEdit::NoteChange(int position, int, int added) {
    m_changeEnd = position + added;
}

void CNotesEdit::KeepLimit() {
    QTextDocument& text = *document();
    int over = Length() - kMostCharacters;
    if (over > 0) {
        const int end = qMin(m_changeEnd, Length());
        // A character of two halves goes as a whole.
        if (text.characterAt(end - over).isLowSurrogate()) ++over;
        QTextCursor cursor(&text);
        cursor.joinPreviousEditBlock();
        cursor.setPosition(end);
        cursor.setPosition(end - over, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        cursor.endEditBlock();
    }
    if (!m_isShowing) Q_EMIT Edited();
}
