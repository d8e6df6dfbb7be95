#pragma once

#include "records/KnownRows.h"

#include <QByteArrayView>
#include <QStringList>
#include <map>

class CRecordStore;
enum class RecordKind : int;

/// What could be saved of a damaged store.
struct SalvagedRecords {
    std::map<RecordKind, int> saved;
    KnownRows::Lost lost;      ///< what the store tells of besides
    bool isLossKnown = false;  ///< false: more may be lost than it tells of
    QStringList doubtful;      ///< identities of saved records whose content doesn't fit their checksum
};

/// Reads every record that can be read from the bytes of a store, however damaged, and writes it into another
/// one, which is open and has its empty tables. False when that can't be written: its manager says why.
[[nodiscard]] bool SalvageStore(QByteArrayView bytes, CRecordStore& target, SalvagedRecords& out);
