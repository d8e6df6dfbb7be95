#include "viewmodel/list/StatusSums.h"

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

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

CERecord Expense(const char* currency, float amount) {
    CERecord record;
    record.item5 = QString::fromUtf8(currency);
    record.amount.Set(amount);
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

    void expenses_data() {
        QTest::addColumn<QString>("words");  // "EUR 5, USD 7"; a currency alone has no amount
        QTest::addColumn<QString>("sums");
        QTest::newRow("one currency") << "EUR 36.15, EUR 100"
                                      << "EUR 136.15";
        QTest::newRow("two, in order of their names") << "USD 80, EUR 640"
                                                      << "EUR 640.00 \\ USD 80.00";
        QTest::newRow("no amount") << "EUR"
                                   << "";
        QTest::newRow("no amount, not the last") << "EUR, USD 80"
                                                 << " \\ USD 80.00";
        QTest::newRow("no amount, the last") << "AUD 5, EUR"
                                             << "AUD 5.00 \\ ";
        QTest::newRow("an amount without a currency isn't shown") << " 5"
                                                                  << "";
        QTest::newRow("but keeps its separator") << " 5, EUR 7"
                                                 << " \\ EUR 7.00";
        QTest::newRow("a sum below 0 has no text") << "EUR -5"
                                                   << "";
        QTest::newRow("one that takes the other away") << "EUR 5, EUR -5"
                                                       << "";
        QTest::newRow("case counts: two currencies") << "eur 5, EUR 7"
                                                     << "EUR 7.00 \\ eur 5.00";
    }
    void expenses() {
        const RegionScope region{CRegionalInfo()};
        QFETCH(QString, words);
        StatusSums sums;
        const QStringList entries = words.split(QStringLiteral(", "));
        for (const QString& entry : entries) {
            const QString amount = entry.section(u' ', 1);
            sums.Add(
                Expense(qPrintable(entry.section(u' ', 0, 0)), amount.isEmpty() ? -1.0F : amount.toFloat()));
        }
        QTEST(sums.SumsText(2, 4), "sums");
        QCOMPARE(sums.CountText(), QStringLiteral("(%1)").arg(entries.size()));
    }

    /// Of either kind by the base, and a list of the sums for others to write.
    void sumsInOrder() {
        StatusSums sums;
        const CTRecord first = Entry("USD", 80.0F, 2, 0), second = Entry("EUR", 640.0F, 8, 0);
        const CTRecord third = Entry("", -1.0F, 0, 30);
        for (const CVORec* record : {static_cast<const CVORec*>(&first), static_cast<const CVORec*>(&second),
                                     static_cast<const CVORec*>(&third)})
            sums.Add(*record);
        const std::vector<StatusSums::Sum> list = sums.Sums();
        QCOMPARE(list.size(), 3U);
        QCOMPARE(list[0].key, QString());
        QCOMPARE(list[0].hours, 0.5);
        QCOMPARE(list[1].key, QStringLiteral("EUR"));
        QCOMPARE(list[1].amount, 640.0);
        QCOMPARE(list[2].hours, 2.0);
        const CERecord expense = Expense("CHF", 12.5F);
        sums.Add(static_cast<const CVORec&>(expense));
        QCOMPARE(sums.Sums().size(), 4U);
        QCOMPARE(sums.Sums()[1].key, QStringLiteral("CHF"));
        QCOMPARE(sums.Sums()[1].amount, 12.5);
        QCOMPARE(sums.CountText(), QStringLiteral("(4)"));
    }

    /// More currencies than are known at once, each in many texts of its own, one of them empty.
    void manyCurrencies() {
        StatusSums sums;
        for (int i = 0; i < 5000; ++i) {
            const QByteArray name = i % 50 == 0 ? QByteArray() : "C" + QByteArray::number(i % 50);
            sums.Add(Expense(name.constData(), 1.0F));
        }
        const std::vector<StatusSums::Sum> list = sums.Sums();
        QCOMPARE(list.size(), 50U);
        for (const StatusSums::Sum& sum : list) QCOMPARE(sum.amount, 100.0);
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

TEST_CLASS(TestStatusSums);
#include "TestStatusSums.moc"
