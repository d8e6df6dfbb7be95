#pragma once

#include "app/Hints.h"
#include "viewmodel/work/Work.h"

#include <QStringList>
#include <cstdint>
#include <vector>

class CTRecord;
class CVelmarchDoc;
class CVORec;

/// What was worked on last, whatever the filter says: each work once, the newest first, with the terms of its
/// newest record. Made when it is asked for after a change: first of the last weeks, and further back only
/// where these know too little. Records of days to come are plans and don't count. While expenses are shown
/// it is what was known before.
class CRecentWork {
 public:
    /// What is enough to choose from; older weeks are looked at while there is less.
    static constexpr std::size_t kEnough = 9;

    struct Entry {
        Work work;
        WorkTerms terms;
    };

    explicit CRecentWork(CVelmarchDoc& document) : m_document(document) {}

    void OnHint(Hint hint);
    [[nodiscard]] const std::vector<Entry>& Entries();
    /// Notes of one line, the newest first.
    [[nodiscard]] const QStringList& Notes();
    /// Those of the same work, else of the client's newest record; none for a client without a record.
    [[nodiscard]] WorkTerms TermsFor(const Work& work);

 private:
    /// Minutes since the year 0, roughly; what is later is greater.
    using Moment = std::int64_t;

    void Look();
    void Collect(const std::vector<const CVORec*>& records, Moment from, Moment to);
    [[nodiscard]] WorkTerms TermsOfClient(const QString& client);

    CVelmarchDoc& m_document;
    std::vector<Entry> m_entries;
    QStringList m_notes;
    bool m_isStale = true;
    int m_day = 0;  ///< on which it was made
};
