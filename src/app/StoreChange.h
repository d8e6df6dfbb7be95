#pragma once

#include "records/CRecordStore.h"

/// One change of several rows: all of them or none. What isn't committed at the end of the scope is undone.
/// Whatever was open before is committed first, so that undoing this one doesn't take it along.
class StoreChange {
 public:
    explicit StoreChange(CRecordStore& store)
        : m_store(store),
          m_isOpen((!store.Manager().HasOpenChanges() || store.Commit()) && store.BeginBatch()) {}
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
    CRecordStore& m_store;
    bool m_isOpen;
};
