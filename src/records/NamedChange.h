#pragma once

#include "records/CStoreJournal.h"

class CRecordStore;

/// While one lives, changes of the store are of a kind, unless a caller has named them already: an import
/// that adds records is an import.
class [[nodiscard]] NamedChange {
 public:
    /// names: what the change is called by, as the kind wants them.
    NamedChange(CRecordStore& store, ChangeKind kind, const QStringList& names = {});
    ~NamedChange();
    NamedChange(const NamedChange&) = delete;
    NamedChange& operator=(const NamedChange&) = delete;

 private:
    CStoreJournal* m_journal;  ///< null where the change has a name already
};
