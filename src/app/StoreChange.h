#pragma once

#include "records/CRecordStore.h"

/// One change of several rows: all of them or none. What isn't committed at the end of the scope is undone.
/// Whatever was changed before is committed first, so that undoing this one doesn't take it along.
class StoreChange {
 public:
    explicit StoreChange(CRecordStore& store)
        : m_store(store), m_isOpen(IsClear(store.Manager(), store) && store.BeginBatch()) {}
    ~StoreChange() {
        if (m_isOpen) m_store.Manager().Discard();
    }
    StoreChange(const StoreChange&) = delete;
    StoreChange& operator=(const StoreChange&) = delete;

    /// False when the store can't be changed; the user was told.
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    /// False, and everything undone, when it failed.
    [[nodiscard]] bool Commit() {
        if (!m_isOpen) return false;
        const bool isDone = m_store.Commit();
        if (!isDone) m_store.Manager().Discard();
        m_isOpen = false;
        return isDone;
    }

 private:
    static bool IsClear(const CVOSrcMgr& manager, CRecordStore& store) {
        return manager.IsBatchUntouched() || !manager.HasOpenChanges() || store.Commit();
    }
    CRecordStore& m_store;
    bool m_isOpen;
};

/// Keeps other programs from changing the store between a look at it and the change that follows from what
/// was seen, such as the edit of one field of a record. The hold ends with the next commit, or at the end of
/// the scope if nothing was changed. Nobody is asked anything meanwhile: others wait.
class StoreHold {
 public:
    explicit StoreHold(CRecordStore& store) : m_manager(store.Manager()), m_isHeld(store.BeginBatch()) {}
    ~StoreHold() {
        if (m_manager.IsBatchUntouched()) m_manager.Discard();
    }
    StoreHold(const StoreHold&) = delete;
    StoreHold& operator=(const StoreHold&) = delete;

    /// False when the store can't be changed; the user was told.
    [[nodiscard]] bool IsHeld() const { return m_isHeld; }

 private:
    CVOSrcMgr& m_manager;
    bool m_isHeld;
};
