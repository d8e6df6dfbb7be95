#pragma once

#include <QString>
#include <QStringList>

class CRowListener;

/// What a change is to the user. Stored as these numbers.
enum class ChangeKind : int {
    Other = 0,  ///< what its rows say
    Add = 1,
    Edit = 2,
    Delete = 3,
    Copy = 4,
    Mark = 5,
    Replace = 6,
    Import = 7,
    Restore = 8,
    TimerStop = 9,
    ItemAdd = 10,
    ItemEdit = 11,
    ItemDelete = 12,
    Tree = 13,
    Labels = 14,
    Demo = 15,
    Merge = 16,   ///< of two list items, with the records
    Rename = 17,  ///< of a list item, with the records
    Stored = 18,  ///< of what the settings hold under names
    Carry = 19,   ///< of a new text into what the settings hold under names; part of the change before it
    ReportSave = 20,
    ReportDelete = 21,
    ReportRename = 22,
    QuerySave = 23,
    QueryDelete = 24,
    QueryRename = 25,
    DefaultSave = 26,
    DefaultDelete = 27,
    DefaultRename = 28
};

/// Writes down what each transaction of the store changes, so that it can be undone. It never keeps a change
/// from being made.
class CStoreJournal {
 public:
    virtual ~CStoreJournal() = default;
    /// Who hears of the rows of a file of records, one file at a time.
    [[nodiscard]] virtual CRowListener& Rows() = 0;
    /// What the next transactions are to the user. names: those that are called by, as the kind wants them;
    /// none: those that the rows bear.
    virtual void SetKind(ChangeKind kind, const QStringList& names) = 0;
    [[nodiscard]] virtual ChangeKind Kind() const = 0;
    /// The next transaction takes a timer with it. image: what it takes to put it back. Forgotten once the
    /// kind is set anew.
    virtual void NoteTimer(const QString& recordId, const QByteArray& image) = 0;
    /// What the user has to be told about the last change, once; empty: nothing.
    [[nodiscard]] virtual QString TakeNotice() = 0;
};
