#include "records/StoreTransaction.h"

namespace {

/// Whether nothing is left of earlier changes.
bool IsClear(CRecordStore& store) {
    const CVOSrcMgr& manager = store.Manager();
    return manager.IsBatchUntouched() || !manager.HasOpenChanges() || store.Commit();
}

}  // namespace

StoreTransaction::StoreTransaction(CRecordStore& store)
    : m_store(store), m_tellLater(store), m_isOpen(IsClear(store) && store.BeginBatch()) {}

StoreTransaction::~StoreTransaction() {
    CVOSrcMgr& manager = m_store.Manager();
    if (m_isOpen && manager.HasOpenChanges()) manager.Discard();
}

CommitEnd StoreTransaction::Commit() {
    if (!m_isOpen) return CommitEnd::Undone;
    m_isOpen = false;
    return m_store.Commit() ? CommitEnd::Durable : CommitEnd::Undone;
}
