#include "entry/RecordMarks.h"

#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The flags that are set, as letters: "b" billable, "d" billed, "x" exported; of expenses "1" to "5", "x".
CTRecord TimeWith(const QString& flags) {
    CTRecord record;
    record.isBillable = flags.contains(u'b');
    record.isBilled = flags.contains(u'd');
    record.isExported = flags.contains(u'x');
    return record;
}

QString FlagsOf(const CTRecord& record) {
    return QString(record.isBillable ? u"b"_s : u""_s) + (record.isBilled ? u"d"_s : u""_s) +
           (record.isExported ? u"x"_s : u""_s);
}

CERecord ExpenseWith(const QString& flags) {
    CERecord record;
    record.flag1 = flags.contains(u'1');
    record.flag2 = flags.contains(u'2');
    record.flag3 = flags.contains(u'3');
    record.flag4 = flags.contains(u'4');
    record.flag5 = flags.contains(u'5');
    record.isExported = flags.contains(u'x');
    return record;
}

QString FlagsOf(const CERecord& record) {
    QString flags;
    const bool marks[] = {record.flag1, record.flag2, record.flag3, record.flag4, record.flag5};
    for (int i = 0; i < 5; ++i)
        if (marks[i]) flags += QString::number(i + 1);
    return record.isExported ? flags + u'x' : flags;
}

}  // namespace

class TestRecordMarks : public QObject {
    Q_OBJECT

    static void AddColumns() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("changed");
        QTest::addColumn<QString>("after");
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void TimeRecords_data();
    void TimeRecords();
    void MoneyStays();
    void Expenses_data();
    void Expenses();
    void OtherRecords();
};

void TestRecordMarks::TimeRecords_data() {
    AddColumns();
    QTest::newRow("first: billable") << u""_s << 0 << true << u"b"_s;
    QTest::newRow("first, is there already") << u"b"_s << 0 << false << u"b"_s;
    QTest::newRow("first and second: billable and billed") << u""_s << 1 << true << u"bd"_s;
    QTest::newRow("first and second of a billable one: the second was missing")
        << u"b"_s << 1 << true << u"bd"_s;
    QTest::newRow("first and second, are there already") << u"bd"_s << 1 << false << u"bd"_s;
    QTest::newRow("the second alone decides: the first isn't added") << u"d"_s << 1 << false << u"d"_s;
    QTest::newRow("third is of expenses") << u""_s << 2 << false << u""_s;
    QTest::newRow("third and fourth too") << u""_s << 3 << false << u""_s;
    QTest::newRow("fifth too") << u""_s << 4 << false << u""_s;
    QTest::newRow("exported") << u"b"_s << 5 << true << u"bx"_s;
    QTest::newRow("exported, is already") << u"x"_s << 5 << false << u"x"_s;
    QTest::newRow("not exported") << u"bx"_s << 6 << true << u"b"_s;
    QTest::newRow("not exported, isn't") << u"b"_s << 6 << false << u"b"_s;
    QTest::newRow("no mark at all") << u""_s << 7 << false << u""_s;
    QTest::newRow("below all marks") << u""_s << -1 << false << u""_s;
}

void TestRecordMarks::TimeRecords() {
    QFETCH(QString, before);
    QFETCH(int, code);
    CTRecord record = TimeWith(before);
    QTEST(SetMark(record, static_cast<RecordMark>(code)), "changed");
    QTEST(FlagsOf(record), "after");
    const bool isKnown = code == 0 || code == 1 || code == 5 || code == 6;
    QCOMPARE(IsMarkOf(RecordKind::Time, static_cast<RecordMark>(code)), isKnown);
}

void TestRecordMarks::MoneyStays() {
    CTRecord record = TimeWith(u"b"_s);
    record.SetDurationOnly(2, 0);
    record.SetRate(40.0F);
    QVERIFY(SetMark(record, RecordMark::FirstAndSecond));
    QCOMPARE(record.amount.value, 80.0F);
    QVERIFY(record.amountIsDerived);
}

void TestRecordMarks::Expenses_data() {
    AddColumns();
    QTest::newRow("first") << u""_s << 0 << true << u"1"_s;
    QTest::newRow("first, is there already") << u"1"_s << 0 << false << u"1"_s;
    QTest::newRow("first and second") << u""_s << 1 << true << u"12"_s;
    QTest::newRow("first and second, the first is there") << u"1"_s << 1 << true << u"12"_s;
    QTest::newRow("first and second, are there already") << u"12"_s << 1 << false << u"12"_s;
    QTest::newRow("third") << u"1"_s << 2 << true << u"13"_s;
    QTest::newRow("third, is there already") << u"3"_s << 2 << false << u"3"_s;
    QTest::newRow("third and fourth") << u""_s << 3 << true << u"34"_s;
    QTest::newRow("third and fourth, the third is there") << u"3"_s << 3 << true << u"34"_s;
    QTest::newRow("the fourth alone decides: the third isn't added") << u"4"_s << 3 << false << u"4"_s;
    QTest::newRow("fifth") << u"34"_s << 4 << true << u"345"_s;
    QTest::newRow("fifth, is there already") << u"5"_s << 4 << false << u"5"_s;
    QTest::newRow("exported") << u"5"_s << 5 << true << u"5x"_s;
    QTest::newRow("exported, is already") << u"x"_s << 5 << false << u"x"_s;
    QTest::newRow("not exported") << u"12x"_s << 6 << true << u"12"_s;
    QTest::newRow("not exported, isn't") << u"12"_s << 6 << false << u"12"_s;
    QTest::newRow("no mark at all") << u""_s << 7 << false << u""_s;
}

void TestRecordMarks::Expenses() {
    QFETCH(QString, before);
    QFETCH(int, code);
    CERecord record = ExpenseWith(before);
    QTEST(SetMark(record, static_cast<RecordMark>(code)), "changed");
    QTEST(FlagsOf(record), "after");
    QCOMPARE(IsMarkOf(RecordKind::Expense, static_cast<RecordMark>(code)), code >= 0 && code <= 6);
}

void TestRecordMarks::OtherRecords() {
    CPRecord item;
    QVERIFY(!SetMark(item, RecordMark::First));
    QVERIFY(!IsMarkOf(RecordKind::PulldownItem, RecordMark::First));
}

TEST_CLASS(TestRecordMarks);
#include "TestRecordMarks.moc"
