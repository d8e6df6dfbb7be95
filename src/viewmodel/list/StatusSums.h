#pragma once

#include "records/CutDistances.h"
#include "records/TextAddressCache.h"

#include <QHash>
#include <QString>
#include <vector>

class CERecord;
class CTRecord;
class CVORec;

/// Adds up records of one kind for the status bar: their number, and the amount by currency (item 5); of time
/// records the effective hours as well.
class StatusSums {
 public:
    struct Sum {
        QString key;
        double amount = 0.0;
        double hours = 0.0;
    };

    void Add(const CTRecord& record);
    void Add(const CERecord& record);
    void Add(const CVORec& record);

    [[nodiscard]] int Count() const { return m_count; }
    [[nodiscard]] const CutDistances& CutOfThem() const { return m_cut; }
    [[nodiscard]] bool AreExpenses() const { return m_areExpenses; }
    /// One for each currency, in order of their names.
    [[nodiscard]] std::vector<Sum> Sums() const;
    /// "(47)"; empty for no records.
    [[nodiscard]] QString CountText() const;
    /// Of time records "EUR 1240.00 15.5000 \ USD 80.00 2.0000", of expenses "EUR 1240.00 \ USD 80.00". A
    /// currency whose sums are 0 adds no text and yet its separator, unless it is the last; an amount of
    /// expenses without a currency adds none either. Both is wanted.
    [[nodiscard]] QString SumsText(int amountPrecision, int durationPrecision) const;

 private:
    [[nodiscard]] Sum& SumOf(const QString& key);
    [[nodiscard]] std::size_t PlaceOf(const QString& key);

    std::vector<Sum> m_sums;  ///< in order of their coming
    QHash<QString, std::size_t> m_places;
    TextAddressCache<std::size_t, 16> m_known;  ///< places by currency
    int m_count = 0;
    CutDistances m_cut;
    bool m_areExpenses = false;
};
