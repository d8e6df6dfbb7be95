#pragma once

class CRecordStore;

/// What became of changes that were to be made durable.
enum class CommitEnd {
    Durable,
    Due,    ///< the store could not be written; the changes are held and go with the next commit
    Undone  ///< nothing of them is left
};

/// One transaction on the record store, whatever is changed in it: all of it becomes durable with Commit, or
/// none. Other programs can't change the store while it is open, so what was read in it still holds when the
/// change that follows is made; they wait meanwhile, so nobody is asked anything in between.
///
/// What was changed before is committed first, so that undoing this one doesn't take it along. A change
/// within it that commits at once (Commit::Now) ends the transaction. What nobody has asked to commit by the
/// end of the scope is undone.
class [[nodiscard]] StoreTransaction {
 public:
    /// What is done with the changes when the commit fails.
    enum class OnFailure { Undo, Hold };

    explicit StoreTransaction(CRecordStore& store, OnFailure onFailure = OnFailure::Undo);
    ~StoreTransaction();
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    /// False when the store can't be changed; the user was told.
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    /// Anything but Durable was told to the user.
    [[nodiscard]] CommitEnd Commit();

 private:
    CRecordStore& m_store;
    OnFailure m_onFailure;
    bool m_isOpen;
};
