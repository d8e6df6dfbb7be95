#pragma once

#include <QPlainTextEdit>
#include <QString>

/// A field for notes, 32000 characters at most: what goes beyond isn't taken, at the place where it comes.
class CNotesEdit final : public QPlainTextEdit {
    Q_OBJECT

 public:
    /// label: what the user calls the notes.
    CNotesEdit(const QString& label, const QString& objectName);

    /// Shows notes that come from outside; they aren't announced.
    void SetNotes(const QString& notes);
    /// As given while nothing was typed, line ends and all.
    [[nodiscard]] QString GetNotes() const;
    [[nodiscard]] int Length() const;

    static constexpr int kMostCharacters = 32000;

 Q_SIGNALS:
    void Edited();  ///< the user typed, pasted, deleted

 private:
    void NoteChange(int position, int removed, int added);
    void KeepLimit();

    QString m_given;
    int m_changeEnd = 0;       ///< behind what was last inserted
    bool m_isShowing = false;  ///< the text is being set from outside
};
