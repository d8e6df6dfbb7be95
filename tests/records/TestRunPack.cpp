#include "records/RunPack.h"

#include "support/TestProgram.h"

#include <QTest>

class TestRunPack : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Pack_data();
    void Pack();
    void ASingleByteGivesNothing();
    void Unpack_data();
    void Unpack();
    void RoundTrip();
};

namespace {

QByteArray Hex(const char* digits) {
    return QByteArray::fromHex(digits);
}

/// 0, 1, 2 ... : no byte equals its neighbour.
QByteArray Differing(int count) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i) bytes.append(static_cast<char>(i % 251));
    return bytes;
}

}  // namespace

void TestRunPack::Pack_data() {
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("packed");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("two equal bytes are a run") << Hex("4141") << Hex("8041");
    QTest::newRow("129 equal bytes fill a run") << QByteArray(129, 'A') << Hex("ff41");
    QTest::newRow("130 equal bytes are a run of 129 and a literal")
        << QByteArray(130, 'A') << Hex("ff410041");
    QTest::newRow("131 equal bytes are two runs") << QByteArray(131, 'A') << Hex("ff418041");
    QTest::newRow("a literal stops before a run") << Hex("01020303") << Hex("0101028003");
    QTest::newRow("a run, then literals") << Hex("0303030102") << Hex("8103010102");
    QTest::newRow("a single byte left at the end") << Hex("030304") << Hex("80030004");
    QTest::newRow("128 differing bytes fill a group") << Differing(128) << Hex("7f") + Differing(128);
    QTest::newRow("129 differing bytes take two groups")
        << Differing(129) << Hex("7f") + Differing(128) + Hex("0080");
}

void TestRunPack::Pack() {
    QFETCH(QByteArray, plain);
    QFETCH(QByteArray, packed);
    QCOMPARE(RunPack(plain), packed);
    QCOMPARE(RunUnpack(packed, plain.size()), std::optional(plain));
}

void TestRunPack::ASingleByteGivesNothing() {
    QCOMPARE(RunPack(Hex("41")), QByteArray());
    QCOMPARE(RunUnpack(Hex("0041"), 1), std::optional(Hex("41")));
}

void TestRunPack::Unpack_data() {
    QTest::addColumn<QByteArray>("packed");
    QTest::addColumn<int>("limit");
    QTest::addColumn<bool>("good");
    QTest::newRow("a control byte for literals alone") << Hex("00") << 100 << false;
    QTest::newRow("a control byte for a run alone") << Hex("80") << 100 << false;
    QTest::newRow("literals cut short") << Hex("02aabb") << 100 << false;
    QTest::newRow("a good group, then one cut short") << Hex("0041ff") << 200 << false;
    QTest::newRow("a run as long as the limit") << Hex("ff41") << 129 << true;
    QTest::newRow("a run over the limit") << Hex("ff41") << 128 << false;
    QTest::newRow("literals over the limit") << Hex("014142") << 1 << false;
    QTest::newRow("nothing within a limit of 0") << QByteArray() << 0 << true;
}

void TestRunPack::Unpack() {
    QFETCH(QByteArray, packed);
    QFETCH(int, limit);
    QTEST(RunUnpack(packed, limit).has_value(), "good");
}

void TestRunPack::RoundTrip() {
    // A fixed pseudo-random sequence with runs of all lengths.
    std::uint32_t state = 12345;
    QByteArray plain;
    while (plain.size() < 100000) {
        state = state * 1664525U + 1013904223U;
        plain.append(static_cast<qsizetype>(1 + (state >> 24U) % ((state >> 16U) % 3 == 0 ? 300 : 2)),
                     static_cast<char>(state >> 8U));
    }
    const auto unpacked = RunUnpack(RunPack(plain), plain.size());
    QVERIFY(unpacked.has_value());
    QCOMPARE(*unpacked, plain);
}

TEST_CLASS(TestRunPack);
#include "TestRunPack.moc"
