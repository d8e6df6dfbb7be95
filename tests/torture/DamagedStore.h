#pragma once

#include "records/RecordsFixture.h"
#include "records/StoreSalvage.h"

#include <QByteArray>
#include <QHash>
#include <random>

/// A store with a past: records were added, changed and deleted, so that it has pages which it doesn't use
/// any more. And what is in it.
class DamagedStore {
 public:
    static constexpr qsizetype kPage = 4096;

    /// hasChecks: false for one of an earlier version, without checksums.
    DamagedStore(int records, bool hasChecks);

    QByteArray bytes;
    QHash<QString, QString> content;  ///< by identity

    /// The bytes with some of the pages overwritten, by random bytes or by zeros.
    [[nodiscard]] QByteArray WithPagesDestroyed(int pages, std::mt19937& random) const;

 private:
    void Add(RecordsFixture& home, int number);
};

/// What a salvage made of it, held against what was in the store.
struct Trial {
    int right = 0;       ///< records as they were
    int wrong = 0;       ///< records with other values, of which nothing was said
    int returned = 0;    ///< records that were deleted before
    bool isSaid = true;  ///< what is missing was said, or that more may be missing
};
[[nodiscard]] Trial SalvageAndCompare(const DamagedStore& store, const QByteArray& damaged);
