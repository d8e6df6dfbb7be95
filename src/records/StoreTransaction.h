#pragma once

#include "records/CRecordStore.h"

/// What became of changes that were to be made durable. There is nothing in between: a change that waited for
/// a better moment could undo what was stored meanwhile.
enum class CommitEnd {
    Durable,
    Undone  ///< nothing of them is left
};

/// One transaction on the record store, whatever is changed in it: all of it becomes durable with Commit, or
/// none. Other programs can't change the store while it is open, so what was read in it still holds when the
/// change that follows is made; they wait meanwhile, so nobody is asked or told anything in between.
///
/// What was changed before is committed first, so that undoing this one doesn't take it along. A change
/// within it that commits at once (Commit::Now) ends the transaction. What nobody has asked to commit by the
/// end of the scope is undone.
class [[nodiscard]] StoreTransaction {
 public:
    explicit StoreTransaction(CRecordStore& store);
    ~StoreTransaction();
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    /// False when the store can't be changed; the user is told at the end of the scope.
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    /// Anything but Durable the user is told at the end of the scope.
    [[nodiscard]] CommitEnd Commit();

 private:
    CRecordStore& m_store;
    CRecordStore::TellLater m_tellLater;
    bool m_isOpen;
};
