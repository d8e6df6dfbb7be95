#include "shell/core/StatusSums.h"

#include "lang/LoadText.h"
#include "platform/CRegionalInfo.h"
#include "records/CTRecord.h"

#include <QTest>

namespace {

CTRecord Entry(const char* currency, float amount, int hours, int minutes) {
    CTRecord record;
    record.Reset();
    record.item5 = QString::fromUtf8(currency);
    if (hours >= 0) record.SetDurationOnly(hours, minutes);
    if (amount >= 0.0F) {
        record.SetBillable(true);
        record.amount.Set(amount);
    }
    return record;
}

QString SumsOf(std::initializer_list<CTRecord> records) {
    StatusSums sums;
    for (const CTRecord& record : records) sums.Add(record);
    return sums.SumsText(2, 4);
}

}  // namespace

class TestStatusSums final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void nothing() {
        const StatusSums sums;
        QCOMPARE(sums.CountText(), QString());
        QCOMPARE(sums.SumsText(2, 4), QString());
    }

    void withoutAmountAndDuration() {
        StatusSums sums;
        sums.Add(Entry("EUR", -1.0F, -1, 0));
        QCOMPARE(sums.CountText(), QStringLiteral("(1)"));
        QCOMPARE(sums.SumsText(2, 4), QString());
    }

    void sums() {
        const RegionScope region{CRegionalInfo()};
        QCOMPARE(SumsOf({Entry("EUR", 640.0F, 8, 0), Entry("EUR", 600.0F, 7, 30)}),
                 QStringLiteral("EUR 1240.00 15.5000"));
        QCOMPARE(SumsOf({Entry("", -1.0F, 1, 30)}), QStringLiteral("1.5000"));
        QCOMPARE(SumsOf({Entry("EUR", 640.0F, 8, 0), Entry("USD", 80.0F, 2, 0)}),
                 QStringLiteral("EUR 640.00 8.0000 \\ USD 80.00 2.0000"));
    }

    /// A currency whose sums are 0 has no text, but its separator stands unless it is the last.
    void separatorWithoutText() {
        const RegionScope region{CRegionalInfo()};
        QCOMPARE(SumsOf({Entry("AUD", -1.0F, -1, 0), Entry("EUR", -1.0F, 1, 0)}),
                 QStringLiteral(" \\ EUR 1.0000"));
        QCOMPARE(SumsOf({Entry("AUD", -1.0F, 1, 0), Entry("EUR", -1.0F, -1, 0)}),
                 QStringLiteral("AUD 1.0000 \\ "));
    }

    /// In double precision: ten thousand times 0.1 is 1000.00.
    void manySmallSums() {
        const RegionScope region{CRegionalInfo()};
        StatusSums sums;
        for (int i = 0; i < 10000; ++i) sums.Add(Entry("EUR", 0.1F, -1, 0));
        QCOMPARE(sums.CountText(), QStringLiteral("(10000)"));
        QCOMPARE(sums.SumsText(2, 4), QStringLiteral("EUR 1000.00 "));
    }
};

QTEST_GUILESS_MAIN(TestStatusSums)
#include "TestStatusSums.moc"
