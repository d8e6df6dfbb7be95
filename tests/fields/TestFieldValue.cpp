#include "fields/FieldValue.h"

#include "fields/FieldTable.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// 09:00 to 17:30 less half an hour at 80.
CTRecord WorkingDay() {
    CTRecord record;
    record.date.Set(11, 19, 2026);
    record.SetStart(9, 0, false);
    record.SetEnd(5, 30, true);
    record.SetBreak(0, 30);
    record.item1 = u"Client A"_s;
    record.item4 = u"CC 4"_s;
    record.notes = u"two\nlines"_s;
    record.SetBillable(true);
    record.SetRate(80.0F);
    return record;
}

CERecord Trip() {
    CERecord record;
    record.item4 = u"Card"_s;
    record.isDistance = true;
    record.distance.Set(120.5F);
    record.amount.Set(36.15F);
    record.odometerEnd = u"12120"_s;
    record.flag2 = true;
    return record;
}

const FieldRow& Time(FieldId id) {
    return *FindField(RecordKind::Time, NumberOf(id));
}
const FieldRow& Expense(FieldId id) {
    return *FindField(RecordKind::Expense, NumberOf(id));
}

}  // namespace

class TestFieldValue final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void texts_data() {
        QTest::addColumn<FieldId>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("an item") << FieldId::TimeItem4 << u"CC 4"_s;
        QTest::newRow("an item that isn't given") << FieldId::TimeItem3 << QString();
        QTest::newRow("notes") << FieldId::TimeNotes << u"two\nlines"_s;
        QTest::newRow("a rate") << FieldId::TimeRate << u"80.000"_s;
        QTest::newRow("an amount") << FieldId::TimeAmount << u"640.00"_s;
        QTest::newRow("a flag has none") << FieldId::Billable << QString();
        QTest::newRow("nor has a day") << FieldId::Date << QString();
        QTest::newRow("nor a span") << FieldId::Duration << QString();
        QTest::newRow("an item of an expense") << FieldId::ExpenseItem4 << u"Card"_s;
        QTest::newRow("a distance") << FieldId::Distance << u"120.50"_s;
        QTest::newRow("money of an expense") << FieldId::ExpenseAmount << u"36.15"_s;
        QTest::newRow("no rate") << FieldId::ExpenseRate << QString();
    }
    void texts() {
        QFETCH(FieldId, field);
        const FieldRow& row = *FindField(NumberOf(field));
        const CTRecord day = WorkingDay();
        const CERecord trip = Trip();
        QTEST(TextOf(KindOf(row) == RecordKind::Time ? static_cast<const CVORec&>(day) : trip, row), "text");
    }

    void readings() {
        const std::span<const FieldRow> fields = FieldsOf(RecordKind::Expense);
        QCOMPARE(TextOf(Trip(), fields[11]), u"12120"_s);
        QCOMPARE(TextOf(Trip(), fields[10]), QString());
    }

    void flags() {
        QVERIFY(FlagOf(WorkingDay(), Time(FieldId::Billable)));
        QVERIFY(!FlagOf(WorkingDay(), Time(FieldId::Billed)));
        QVERIFY(FlagOf(WorkingDay(), Time(FieldId::TimeNotes)));  // there are some
        QVERIFY(!FlagOf(CTRecord(), Time(FieldId::TimeNotes)));
        QVERIFY(!FlagOf(WorkingDay(), Time(FieldId::TimeItem1)));  // no flag at all
        QVERIFY(FlagOf(Trip(), Expense(FieldId::Flag2)));
        QVERIFY(!FlagOf(Trip(), Expense(FieldId::Flag1)));
    }

    void spans() {
        QCOMPARE(SpanOf(WorkingDay(), Time(FieldId::Duration)).clockText, u"8:30"_s);
        QCOMPARE(SpanOf(WorkingDay(), Time(FieldId::Break)).clockText, u"0:30"_s);
        QCOMPARE(SpanOf(WorkingDay(), Time(FieldId::Effective)).clockText, u"8:00"_s);
        QCOMPARE(ValueOf<RecordDate>(WorkingDay(), Time(FieldId::Date)).day, 19);
    }

    void times() {
        const auto end = TimeOf(WorkingDay(), Time(FieldId::End));
        QVERIFY(end);
        QCOMPARE(end->hour, 5);
        QCOMPARE(end->minute, 30);
        QVERIFY(end->isPm);
        QVERIFY(!TimeOf(CTRecord(), Time(FieldId::Start)));
        QCOMPARE(TimeTextOf(WorkingDay(), Time(FieldId::Start)), u"09:00 AM"_s);
        QCOMPARE(TimeTextOf(WorkingDay(), Time(FieldId::End)), u"05:30 PM"_s);
        QCOMPARE(TimeTextOf(CTRecord(), Time(FieldId::End)), u"--:--"_s);
    }
};

TEST_CLASS(TestFieldValue);
#include "TestFieldValue.moc"
