#include "records/NamedChange.h"

#include "records/CRecordStore.h"

NamedChange::NamedChange(CRecordStore& store, ChangeKind kind, const QStringList& names)
    : m_journal(store.Manager().Journal()) {
    if (m_journal && m_journal->Kind() != ChangeKind::Other) m_journal = nullptr;
    if (m_journal) m_journal->SetKind(kind, names);
}

NamedChange::~NamedChange() {
    if (m_journal) m_journal->SetKind(ChangeKind::Other, {});
}
