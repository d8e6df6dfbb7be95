#pragma once

#include "records/StoreTransaction.h"

#include <QString>
#include <QStringList>

/// What a change of records came to, its commit included. True only where everything that was wanted is done
/// and on the disk; every failure was told to the user when it happened.
struct [[nodiscard]] Outcome {
    enum class End {
        Done,
        Declined,   ///< the user was asked and said no
        Cancelled,  ///< the user ended it on the way
        Failed
    };
    /// Where it failed.
    enum class Failure {
        None,
        Opening,  ///< the store can't be changed now
        Record,   ///< one of the records, failedId
        Item,     ///< of a pick list, which belongs to the change
        Commit
    };

    End end = End::Failed;
    Failure failure = Failure::None;
    CommitEnd commit = CommitEnd::Undone;  ///< what became of the changes
    QStringList
        ids;  ///< the records that were added, changed or deleted, in this order; none where they were undone
    QString failedId;          ///< empty: no single record is to blame
    bool hasNewItems = false;  ///< a pick list got an item with the record
    int carried = 0;           ///< stored queries and defaults that took over the new text of an item
    bool isCarried = true;     ///< false: they could not, which was told; the records have it all the same

    explicit operator bool() const { return end == End::Done; }

    /// There was nothing to do.
    [[nodiscard]] static Outcome Nothing() { return Done({}); }
    [[nodiscard]] static Outcome Done(const QStringList& ids) {
        return {.end = End::Done, .commit = CommitEnd::Durable, .ids = ids, .failedId = {}};
    }
    [[nodiscard]] static Outcome Declined() { return {.end = End::Declined, .ids = {}, .failedId = {}}; }
    [[nodiscard]] static Outcome Failed(Failure failure) {
        return {.end = End::Failed, .failure = failure, .ids = {}, .failedId = {}};
    }
};
