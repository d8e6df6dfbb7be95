#include "records/NamedChange.h"

#include "records/CRecordStore.h"

NamedChange::NamedChange(CRecordStore& store, ChangeKind kind) : m_journal(store.Manager().Journal()) {
    if (m_journal && m_journal->Kind() != ChangeKind::Other) m_journal = nullptr;
    if (m_journal) m_journal->SetKind(kind);
}

NamedChange::~NamedChange() {
    if (m_journal) m_journal->SetKind(ChangeKind::Other);
}
