#pragma once

#include <QString>

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
    Demo = 15
};

/// Writes down what each transaction of the store changes, so that it can be undone. It never keeps a change
/// from being made.
class CStoreJournal {
 public:
    virtual ~CStoreJournal() = default;
    /// Who hears of the rows of a file of records, one file at a time.
    [[nodiscard]] virtual CRowListener& Rows() = 0;
    /// What the next transactions are to the user.
    virtual void SetKind(ChangeKind kind) = 0;
    [[nodiscard]] virtual ChangeKind Kind() const = 0;
    /// What the user has to be told about the last change, once; empty: nothing.
    [[nodiscard]] virtual QString TakeNotice() = 0;
};
