#pragma once

#include <QString>
#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// The page of a record dialog with the notes, 32000 characters at most: what goes beyond isn't taken, at the
/// place where it comes.
class CNotesPage final : public QWidget {
    Q_OBJECT

 public:
    /// label: what the user calls the notes.
    explicit CNotesPage(const QString& label);

    void SetNotes(const QString& notes);
    /// As given while nothing was typed, line ends and all.
    [[nodiscard]] QString GetNotes() const;

    static constexpr int kMostCharacters = 32000;

 Q_SIGNALS:
    void Edited();

 private:
    void NoteChange(int position, int removed, int added);
    void KeepLimit();
    void ShowRoom();

    QPlainTextEdit* m_text;
    QLabel* m_room;
    QString m_given;
    int m_changeEnd = 0;  ///< behind what was last inserted
};
