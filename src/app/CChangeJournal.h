#pragma once

#include "records/CVORec.h"
#include "records/StoreTransaction.h"

#include <QString>

/// One change of a record: what it was and what it is now. Added: nothing before; deleted: nothing after.
struct RecordChange {
    RecordKind kind;
    QString id;            ///< the identity before the change; that of an added record is its own
    const CVORec* before;  ///< as it was stored
    const CVORec* after;
};

/// Hears what each change of a record replaced, so that it can be undone. The records live for the call only.
class CChangeJournal {
 public:
    virtual ~CChangeJournal() = default;
    /// A change was made. It isn't durable before NoteEnd says so.
    virtual void NoteChange(const RecordChange& change) = 0;
    /// What became of the changes since the last end.
    virtual void NoteEnd(CommitEnd end) = 0;
};
