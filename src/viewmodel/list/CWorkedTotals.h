#pragma once

#include "app/Hints.h"
#include "calendar/DateTimeVal.h"

#include <QHash>
#include <QString>
#include <QStringList>

class CVelmarchDoc;
class CVORec;

/// The hours worked today and this week, whatever the filter says: of the time records in memory, without
/// what a running timer has counted so far. All are added up once after they were read; from then on hints
/// tell what to take in, so that a change costs what it changes.
class CWorkedTotals {
 public:
    explicit CWorkedTotals(CVelmarchDoc& document) : m_document(document) {}

    void OnHint(Hint hint, const QStringList& ids);
    [[nodiscard]] double Today() const;
    [[nodiscard]] double ThisWeek() const;

 private:
    struct Worked {
        DateTimeVal day;
        double hours = 0.0;
    };
    void TakeAll();
    void Take(const QString& id);
    void Take(const CVORec& record);
    void NoteDays();

    CVelmarchDoc& m_document;
    DateTimeVal m_today, m_first, m_last;  ///< as of the last count; the week's first and last day
    bool m_isKnown = false;                ///< the records were added up since they were read
    QHash<QString, Worked> m_week;         ///< the records of this week
};
