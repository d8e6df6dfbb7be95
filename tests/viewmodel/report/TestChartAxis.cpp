#include "viewmodel/report/ChartAxis.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Words(const std::vector<double>& ticks) {
    QStringList words;
    for (const double tick : ticks) words.append(QString::number(tick, 'g', 12));
    return words.join(u' ');
}

}  // namespace

class TestChartAxis final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Ticks_data() {
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::addColumn<int>("most");
        QTest::addColumn<int>("places");
        QTest::addColumn<QString>("ticks");
        QTest::newRow("by two") << 0.0 << 7.3 << 5 << 2 << u"0 2 4 6 8"_s;
        QTest::newRow("by one where there is place") << 0.0 << 7.3 << 9 << 2 << u"0 1 2 3 4 5 6 7 8"_s;
        QTest::newRow("by five") << 0.0 << 21.0 << 6 << 2 << u"0 5 10 15 20 25"_s;
        QTest::newRow("a number on a tick is the end") << 0.0 << 100.0 << 6 << 2 << u"0 20 40 60 80 100"_s;
        QTest::newRow("a number on a tick but for its last bit")
            << 0.0 << 0.1 + 0.2 << 5 << 2 << u"0 0.1 0.2 0.3"_s;
        QTest::newRow("such a number below 0") << -(0.1 + 0.2) << 0.0 << 5 << 2 << u"-0.3 -0.2 -0.1 0"_s;
        QTest::newRow("0 belongs to numbers that are far from it")
            << 90.0 << 100.0 << 3 << 2 << u"0 50 100"_s;
        QTest::newRow("on both sides of 0") << -3.2 << 7.0 << 6 << 2 << u"-5 0 5 10"_s;
        QTest::newRow("below 0") << -7.3 << -1.0 << 5 << 2 << u"-8 -6 -4 -2 0"_s;
        QTest::newRow("nothing but 0") << 0.0 << 0.0 << 5 << 2 << u"0 1"_s;
        QTest::newRow("no finer than whole numbers") << 0.0 << 1.5 << 6 << 0 << u"0 1 2"_s;
        QTest::newRow("finer with a decimal place") << 0.0 << 1.5 << 6 << 1 << u"0 0.5 1 1.5"_s;
        QTest::newRow("a number below the last place") << 0.0 << 0.001 << 5 << 2 << u"0 0.01"_s;
        QTest::newRow("without decimal places as fine as it needs")
            << 0.0 << 0.001 << 3 << -1 << u"0 0.0005 0.001"_s;
        QTest::newRow("place for one tick gets two") << 0.0 << 7.0 << 1 << 2 << u"0 10"_s;
        QTest::newRow("place for one gets three with 0 between") << -1.0 << 7.0 << 1 << 2 << u"-10 0 10"_s;
        QTest::newRow("millions") << 0.0 << 1234567.0 << 4 << 2 << u"0 500000 1000000 1500000"_s;
        QTest::newRow("numbers that hardly exist") << -1e300 << 1e300 << 3 << 2 << u"-1e+300 0 1e+300"_s;
    }
    void Ticks() {
        QFETCH(double, low);
        QFETCH(double, high);
        QFETCH(int, most);
        QFETCH(int, places);
        QTEST(Words(MakeAxis(low, high, most, places).Ticks()), "ticks");
    }

    void Share() {
        const ChartAxis axis = MakeAxis(-5.0, 10.0, 4, 2);
        QCOMPARE(axis.Low(), -5.0);
        QCOMPARE(axis.High(), 10.0);
        QCOMPARE(axis.Share(-5.0), 0.0);
        QCOMPARE(axis.Share(10.0), 1.0);
        QCOMPARE(axis.Share(2.5), 0.5);
    }
};

TEST_CLASS(TestChartAxis);
#include "TestChartAxis.moc"
