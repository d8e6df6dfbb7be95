#pragma once

#include "platform/pages/CPageWalk.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <compare>
#include <cstdint>
#include <map>

/// A day as an index holds it; zeros for a record without.
struct StoredDay {
    int year = 0, month = 0, day = 0;
    auto operator<=>(const StoredDay&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// What a damaged store tells of its records beside the records: the indexes of days and the checksums.
class KnownRows {
 public:
    /// Takes a row if it is one of these. A row of a tree counts more than one of a loose page.
    void Note(const CPageWalk::Found& found);

    /// What the checksum of an identity says of a row.
    enum class Match { Unknown, Same, Other };
    [[nodiscard]] Match Compare(const QByteArray& id, std::int64_t sum) const;

    /// The records that are known and not among these; with their days, where an index knows them.
    struct Lost {
        int count = 0;
        std::map<StoredDay, int> days;
    };
    [[nodiscard]] Lost LostBeside(const QSet<QByteArray>& found) const;

 private:
    QHash<QByteArray, std::int64_t> m_checks;
    QHash<QByteArray, StoredDay> m_days;
};
