#include "entry/RecordMerge.h"

#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using Side = MergedRecord::Side;

/// "9:30" as hours and minutes.
std::pair<int, int> Clock(const QString& text) {
    return {text.section(u':', 0, 0).toInt(), text.section(u':', 1).toInt()};
}

DateTimeVal Time(const QString& text) {
    DateTimeVal time;
    if (!time.SetTime24(Clock(text).first, Clock(text).second)) qFatal("no time");
    return time;
}

void Set(CTRecord& record, const QString& field, const QString& value) {
    if (field == u"client"_s) record.item1 = value;
    if (field == u"project"_s) record.item2 = value;
    if (field == u"notes"_s) record.notes = value;
    if (field == u"day"_s) record.date.Set(11, value.toInt(), 2026);
    if (field == u"end"_s) record.SetEnd(Time(value));
    if (field == u"duration"_s) record.SetDuration(Clock(value).first, Clock(value).second, false);
    if (field == u"break"_s) record.SetBreak(Clock(value).first, Clock(value).second);
    if (field == u"rate"_s) record.SetRate(value.toFloat());
    if (field == u"amount"_s) record.SetAmount(value.toFloat());
    if (field == u"billable"_s) record.SetBillable(value == u"yes"_s);
    if (field == u"billed"_s) record.isBilled = value == u"yes"_s;
    if (field == u"exported"_s) record.isExported = value == u"yes"_s;
}

void Set(CERecord& record, const QString& field, const QString& value) {
    if (field == u"client"_s) record.item1 = value;
    if (field == u"distance"_s) {
        record.isDistance = true;
        record.TakeStoredDistance(value);
    }
    if (field == u"amount"_s) record.amount.Set(value.toFloat());
    if (field == u"reading"_s) record.odometerEnd = value;
    if (field == u"mark"_s) record.flag1 = value.contains(u'1');
    if (field == u"mark"_s) record.flag2 = value.contains(u'2');
    if (field == u"mark"_s) record.flag5 = value.contains(u'5');
}

/// "client Acme, rate 20": one thing after the other.
template <class Record>
std::unique_ptr<Record> Changed(const Record& record, const QString& changes) {
    auto changed = std::make_unique<Record>();
    changed->Copy(record);
    for (const QString& change : changes.split(u", "_s, Qt::SkipEmptyParts))
        Set(*changed, change.section(u' ', 0, 0), change.section(u' ', 1));
    return changed;
}

/// As a stored record is read: what was computed from what isn't known.
std::unique_ptr<CTRecord> Read(std::unique_ptr<CTRecord> record) {
    record->amountIsDerived = record->rateIsDerived = false;
    return record;
}

QString ContentOf(const CVORec& record) {
    QStringList shown;
    for (const FieldRow& field : FieldsOf(record.Kind())) {
        QString value = TextOf(record, field);
        if (field.form == FieldForm::Span) value = SpanOf(record, field).clockText;
        if (field.form == FieldForm::TimeOfDay) value = TimeTextOf(record, field);
        if (field.form == FieldForm::Date) value = ValueOf<RecordDate>(record, field).dayText;
        if (field.form == FieldForm::Flag && FlagOf(record, field)) value = u"yes"_s;
        if (!value.isEmpty() && value != u"--:--"_s)
            shown.append(QString::fromLatin1(field.name) + u' ' + value);
    }
    return shown.join(u", "_s);
}

QStringList NamesOf(const std::vector<const FieldRow*>& fields) {
    QStringList names;
    for (const FieldRow* field : fields) names.append(QString::fromLatin1(field->name));
    return names;
}

}  // namespace

/// An edited record meets what others have made of it meanwhile.
class TestRecordMerge : public QObject {
    Q_OBJECT

    const RegionScope m_region{CRegionalInfo()};

    static void Columns() {
        QTest::addColumn<QString>("here");   ///< entered in the dialog
        QTest::addColumn<QString>("there");  ///< stored meanwhile
        QTest::addColumn<QString>("merged");
        QTest::addColumn<QString>("clashes");
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void TimeRecord_data() {
        Columns();
        QTest::newRow("nothing happened anywhere") << ""
                                                   << ""
                                                   << ""
                                                   << "";
        QTest::newRow("an entry stays") << "client B"
                                        << ""
                                        << "client B"
                                        << "";
        QTest::newRow("a field that wasn't entered takes the stored value")
            << "client B"
            << "project Y, notes seen"
            << "client B, project Y, notes seen"
            << "";
        QTest::newRow("the same entry here and there") << "client B"
                                                       << "client B"
                                                       << "client B"
                                                       << "";
        QTest::newRow("two entries into one field") << "client B"
                                                    << "client C"
                                                    << "client B"
                                                    << "item1";
        QTest::newRow("the date stands alone") << "day 20"
                                               << "duration 3:00"
                                               << "day 20, duration 3:00"
                                               << "";
        QTest::newRow("a mark") << "client B"
                                << "exported yes"
                                << "client B, exported yes"
                                << "";
        QTest::newRow("an entry taken back") << "client B, client A"
                                             << "client C"
                                             << "client C"
                                             << "";
        QTest::newRow("times belong together: they come from here, or from there")
            << "break 0:30"
            << "duration 3:00"
            << "break 0:30"
            << "end,duration,break,effective";
        QTest::newRow("an amount that followed the times wasn't entered") << "duration 3:00"
                                                                          << "rate 20"
                                                                          << "rate 20, duration 3:00"
                                                                          << "";
        QTest::newRow("nor was it there") << "rate 20"
                                          << "duration 3:00"
                                          << "duration 3:00, rate 20"
                                          << "";
        QTest::newRow("a rate here, a rate there") << "rate 20"
                                                   << "rate 30"
                                                   << "rate 20"
                                                   << "rate,amount";
        QTest::newRow("an entered amount, and other times there: the rate follows")
            << "amount 60"
            << "duration 3:00"
            << "duration 3:00, amount 60"
            << "";
        QTest::newRow("a mark that needs the other one: unbilled here, billed there")
            << "billable no"
            << "billed yes"
            << "billable no"
            << "rate,amount,isBillable,isBilled";
    }
    /// 8:00 to 10:00 at 10 an hour.
    void TimeRecord() {
        QFETCH(QString, here);
        QFETCH(QString, there);
        QFETCH(QString, merged);
        QFETCH(QString, clashes);
        CTRecord empty;
        empty.SetStart(Time(u"8:00"_s));
        const auto began = Read(
            Changed(empty, u"day 19, end 10:00, billable yes, rate 10, client A, project X, notes first"_s));
        const auto entered = Changed(*began, here);
        const auto stored = Read(Changed(*began, there));
        const MergedRecord result = MergeRecords({*began, *began, *entered}, *stored, Side::Entered);
        QCOMPARE(ContentOf(*result.record), ContentOf(*Changed(*began, merged)));
        QCOMPARE(NamesOf(result.clashes).join(u','), clashes);
    }

    void Expense_data() {
        Columns();
        QTest::newRow("an entry and a mark") << "client B"
                                             << "mark 12"
                                             << "client B, mark 12"
                                             << "";
        QTest::newRow("a mark here, another one there") << "mark 5"
                                                        << "mark 12"
                                                        << "mark 125"
                                                        << "";
        QTest::newRow("the second mark goes with the first") << "mark 1"
                                                             << "mark 12"
                                                             << "mark 1"
                                                             << "flag2";
        QTest::newRow("money belongs together") << "amount 30"
                                                << "distance 12.00"
                                                << "amount 30"
                                                << "isDistance,distance,amount";
        QTest::newRow("a reading too") << "reading 2000"
                                       << "amount 30"
                                       << "reading 2000"
                                       << "amount,odometerEnd";
    }
    /// 20 for client A.
    void Expense() {
        QFETCH(QString, here);
        QFETCH(QString, there);
        QFETCH(QString, merged);
        QFETCH(QString, clashes);
        const auto began = Changed(CERecord(), u"amount 20, client A, reading 1000"_s);
        const auto entered = Changed(*began, here);
        const auto stored = Changed(*began, there);
        const MergedRecord result = MergeRecords({*began, *began, *entered}, *stored, Side::Entered);
        QCOMPARE(ContentOf(*result.record), ContentOf(*Changed(*began, merged)));
        QCOMPARE(NamesOf(result.clashes).join(u','), clashes);
    }

    void TheStoredSideOfAClash() {
        CTRecord empty;
        const auto began = Changed(empty, u"client A, project X"_s);
        const auto entered = Changed(*began, u"client B, project Y"_s);
        const auto stored = Changed(*began, u"client C"_s);
        const MergedRecord result = MergeRecords({*began, *began, *entered}, *stored, Side::Stored);
        QCOMPARE(ContentOf(*result.record), u"item1 C, item2 Y"_s);
        QCOMPARE(NamesOf(result.clashes), QStringList{u"item1"_s});
    }

    /// The dialog counted 2:10 while the console stopped the timer at 2:15: nobody has entered a time.
    void WhatATimerCountedWasNotEntered() {
        CTRecord empty;
        empty.SetStart(Time(u"8:00"_s));
        const auto began = Changed(empty, u"duration 2:00, client A"_s);
        const auto untouched = Changed(*began, u"duration 2:10"_s);
        const auto entered = Changed(*untouched, u"client B"_s);
        const auto stored = Changed(*began, u"duration 2:15"_s);
        const MergedRecord result = MergeRecords({*began, *untouched, *entered}, *stored, Side::Entered);
        QCOMPARE(ContentOf(*result.record), ContentOf(*Changed(*began, u"duration 2:15, client B"_s)));
        QVERIFY(result.clashes.empty());
        const MergedRecord alone = MergeRecords({*began, *untouched, *entered}, *began, Side::Entered);
        QCOMPARE(ContentOf(*alone.record), ContentOf(*entered));
    }

    /// The text behind a distance of another region stays what it is.
    void AnUntouchedDistanceStaysAsStored() {
        const auto began = Changed(CERecord(), u"distance 12.00, client A"_s);
        const auto entered = Changed(*began, u"client B"_s);
        const auto stored = Changed(*began, u"distance 12,75"_s);
        const MergedRecord result = MergeRecords({*began, *began, *entered}, *stored, Side::Entered);
        QCOMPARE(static_cast<const CERecord&>(*result.record).StoredDistance(), u"12,75"_s);
        QCOMPARE(static_cast<const CERecord&>(*result.record).item1, u"B"_s);
    }

    void SameContentWhateverTheIdentity() {
        const auto one = Changed(CTRecord(), u"client A"_s);
        const auto other = Changed(*one, u""_s);
        other->GenUnique();
        QVERIFY(HaveSameContent(*one, *other));
        other->isExported = true;
        QVERIFY(!HaveSameContent(*one, *other));
    }
};

TEST_CLASS(TestRecordMerge);
#include "TestRecordMerge.moc"
