#include "platform/sqlite/CCheckSum.h"

#include "support/TestProgram.h"

#include <QTest>
#include <functional>
#include <limits>

/// The sums are those of FNV-1a over a letter for the kind of a value, its length where it has one, and its
/// bytes, low ones first; worked out by a few lines of another language. Every store holds them.
class TestCCheckSum : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Sums_data();
    void Sums();
};

using Values = std::function<void(CCheckSum&)>;

void TestCCheckSum::Sums_data() {
    QTest::addColumn<Values>("values");
    QTest::addColumn<qint64>("sum");
    const auto integer = [](const char* name, std::int64_t value, qint64 sum) {
        QTest::newRow(name) << Values([value](CCheckSum& to) { to.AddInteger(value); }) << sum;
    };
    integer("zero", 0, 6572866748833048228);
    integer("one byte", 1, 8805182155800637637);
    integer("a whole byte", 255, -9188527471417777093);
    integer("a zero in front of the highest byte", 256, 2344685482694113663);
    integer("below zero", -1, -3637633662451172068);
    integer("four zeros in front", 4294967296, -346161976862219467);
    integer("the least", std::numeric_limits<std::int64_t>::min(), 6572726011344637220);
    QTest::newRow("a text") << Values([](CCheckSum& to) { to.AddText("abc"); }) << qint64{459814121887470336};
    QTest::newRow("a text whose length takes two bytes")
        << Values([](CCheckSum& to) { to.AddText(QByteArray(300, 'x')); }) << qint64{-5100497067940259244};
    QTest::newRow("a real number") << Values([](CCheckSum& to) { to.AddReal(1.5); })
                                   << qint64{-5669751000617483472};
    QTest::newRow("a row") << Values([](CCheckSum& to) {
        to.AddInteger(9);
        to.AddText("M\xC3\xBCller");
        to.AddNull();
        to.AddReal(-1);
    }) << qint64{-2748508504330139210};
}

void TestCCheckSum::Sums() {
    QFETCH(Values, values);
    CCheckSum sum;
    values(sum);
    QTEST(qint64{sum.Value()}, "sum");
}

TEST_CLASS(TestCCheckSum);
#include "TestCCheckSum.moc"
