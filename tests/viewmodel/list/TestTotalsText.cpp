#include "viewmodel/list/TotalsText.h"

#include "config/Settings.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"
#include "viewmodel/list/StatusSums.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CTRecord Worked(const QString& currency, float amount, int hours, int minutes) {
    CTRecord record;
    record.item5 = currency;
    if (amount > 0.0F) record.amount.Set(amount);
    record.spans.effective.Set(hours, minutes);
    return record;
}

CERecord Spent(const QString& currency, float amount) {
    CERecord record;
    record.item5 = currency;
    record.amount.Set(amount);
    return record;
}

}  // namespace

class TestTotalsText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void NoRecords() {
        QCOMPARE(TotalsText(StatusSums(), Settings()), QString());
        QCOMPARE(TotalsCount(StatusSums()), QString());
        QCOMPARE(SelectedCount(3, 1234), u"3 of 1,234 selected"_s);
    }

    /// Each currency has its amount, all together have their hours.
    void Times() {
        StatusSums sums;
        sums.Add(Worked(u"USD"_s, 80.0F, 2, 0));
        sums.Add(Worked(u"EUR"_s, 1240.0F, 15, 30));
        sums.Add(Worked(u"EUR"_s, 0.0F, 0, 45));
        sums.Add(Worked({}, 0.0F, 1000, 5));
        Settings settings;
        QCOMPARE(TotalsText(sums, settings), u"EUR 1,240.00 · USD 80.00 · 1,018.3333 h"_s);
        settings.spanDisplayFormat = 1;
        QCOMPARE(TotalsText(sums, settings), u"EUR 1,240.00 · USD 80.00 · 1,018:20 h"_s);
        QCOMPARE(TotalsCount(sums), u"4 records"_s);
    }

    void AmountsAlone() {
        StatusSums sums;
        sums.Add(Worked({}, 12.5F, 0, 0));
        QCOMPARE(TotalsText(sums, Settings()), u"12.50"_s);
        QCOMPARE(TotalsCount(sums), u"1 record"_s);
    }

    /// Without a currency they are added up as well.
    void Expenses() {
        StatusSums sums;
        sums.Add(Spent({}, 7.5F));
        QCOMPARE(TotalsCount(sums), u"1 expense"_s);
        sums.Add(Spent(u"EUR"_s, 1000.0F));
        sums.Add(Spent({}, 2.5F));
        QCOMPARE(TotalsText(sums, Settings()), u"10.00 · EUR 1,000.00"_s);
        QCOMPARE(TotalsCount(sums), u"3 expenses"_s);
    }

    void Hours_data() {
        QTest::addColumn<double>("hours");
        QTest::addColumn<QString>("clock");
        QTest::newRow("none") << 0.0 << u"0:00 h"_s;
        QTest::newRow("minutes of one digit") << 3.0 + 5.0 / 60 << u"3:05 h"_s;
        QTest::newRow("rounded to the minute") << 0.99999 << u"1:00 h"_s;
    }
    void Hours() {
        QFETCH(double, hours);
        Settings settings;
        settings.spanDisplayFormat = 1;
        QTEST(HoursText(hours, settings), "clock");
    }
};

TEST_CLASS(TestTotalsText);
#include "TestTotalsText.moc"
