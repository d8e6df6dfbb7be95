#pragma once

#include <QString>
#include <QWidget>

class CNotesEdit;
class QLabel;

/// The page of a record dialog with the notes, and the room that is left for them.
class CNotesPage final : public QWidget {
    Q_OBJECT

 public:
    /// label: what the user calls the notes.
    explicit CNotesPage(const QString& label);

    void SetNotes(const QString& notes);
    /// As given while nothing was typed, line ends and all.
    [[nodiscard]] QString GetNotes() const;

 Q_SIGNALS:
    void Edited();

 private:
    void ShowRoom();

    CNotesEdit* m_text;
    QLabel* m_room;
};
