#pragma once

#include <QMap>
#include <QString>

class CTRecord;

/// Adds up records for the status bar: their number, and amount and effective hours by currency (item 5).
class StatusSums {
 public:
    void Add(const CTRecord& record);

    [[nodiscard]] int Count() const { return m_count; }
    /// "(47)"; empty for no records.
    [[nodiscard]] QString CountText() const;
    /// "EUR 1240.00 15.5000 \ USD 80.00 2.0000". A currency whose sums are both 0 adds no text and yet its
    /// separator, unless it is the last: that is wanted.
    [[nodiscard]] QString SumsText(int amountPrecision, int durationPrecision) const;

 private:
    struct Sum {
        double amount = 0.0;
        double hours = 0.0;
    };
    QMap<QString, Sum> m_sums;
    int m_count = 0;
};
