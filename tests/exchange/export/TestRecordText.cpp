#include "exchange/export/RecordText.h"

#include "../text/TextPieces.h"
#include "exchange/import/CRecordLines.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/RandomTexts.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

CTRecord WorkingDay() {
    CTRecord record;
    record.date.Set(11, 19, 2026);
    record.SetStart(9, 0, false);
    record.SetEnd(5, 30, true);
    record.SetBreak(0, 30);
    record.item1 = u"Client A"_s;
    record.item3 = u"Act"_s;
    record.notes = u"one, two"_s;
    record.SetBillable(true);
    record.SetRate(80.0F);
    return record;
}

CERecord Trip() {
    CERecord record;
    record.date.Set(11, 19, 2026);
    record.item4 = u"Card"_s;
    record.isDistance = true;
    record.distance.Set(120.5F);
    record.rate.Set(0.3F);
    record.amount.Set(36.15F);
    record.odometerEnd = u"12120.5"_s;
    record.flag2 = true;
    return record;
}

CRegionalInfo Region(int order, char16_t separator, bool is24Hour, char16_t decimal) {
    CRegionalInfo region;
    region.dateOrder = order;
    region.dateSeparator = separator;
    region.is24Hour = is24Hour;
    region.decimalChar = decimal;
    region.usesDotDecimal = decimal == u'.';
    return region;
}

/// What stands in the columns of a record that was written and read again.
QStringList ColumnsOf(const CVORec& record) {
    QStringList texts;
    for (const TextColumn& column : TextColumnsOf(record.Kind())) texts.append(TextIn(column, record));
    return texts;
}

QString Line(const CVORec& record, const Delimiters& delimiters) {
    return LineOf(record.Kind(), FieldsIn(record), delimiters);
}

void Compare(const CVORec& record, const Delimiters& delimiters, bool clock24) {
    CTextPieces source(Line(record, delimiters));
    CRecordLines lines(source, record.Kind(), {.delimiters = delimiters, .clock24 = clock24});
    QVERIFY(lines.Read() == CRecordLines::Next::Record);
    QCOMPARE(ColumnsOf(lines.Record()), ColumnsOf(record));
    QVERIFY(lines.Read() == CRecordLines::Next::End);
}

}  // namespace

class TestRecordText final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        home->settings->precisionDuration = 2;
    }
    void cleanup() { home.reset(); }

    void heads() {
        const ColumnNames names{home->catalogue->Labels(), *home->settings};
        QCOMPARE(
            HeadLine(RecordKind::Time, PresetDelimiters(), names),
            u"\"Date\",\"Start\",\"End\",\"Duration\",\"Break\",\"Client\",\"Project\",\"Rate\","
            "\"Activity\",\"Cost centre\",\"Currency\",\"Amount\",\"Billable\",\"Billed\",\"Notes\"\n"_s);
        QCOMPARE(HeadLine(RecordKind::Expense, {{}, u";"_s, u"|"_s}, names),
                 u"Date;Client;Project;Description;miles;Odometer start;Odometer end;Rate;Payment;Currency;"
                 "Amount;Billable;Billed;Reimbursable;Reimbursed;Personal;Notes|"_s);
        QVERIFY(home->catalogue->SetNames({{109, u"Matter"_s}, {137, u"Remark"_s}}));
        home->settings->metricUnits = true;
        QVERIFY(HeadLine(RecordKind::Time, PresetDelimiters(), names)
                    .contains(u"\"Break\",\"Matter\",\"Project\""_s));
        QVERIFY(HeadLine(RecordKind::Expense, PresetDelimiters(), names)
                    .contains(u"\"Description\",\"km\",\"Odometer start\""_s));
        QVERIFY(HeadLine(RecordKind::Expense, PresetDelimiters(), names).endsWith(u",\"Remark\"\n"_s));
    }

    void aTime() {
        QCOMPARE(Line(WorkingDay(), PresetDelimiters()),
                 u"\"11/19/2026\",\"09:00 AM\",\"05:30 PM\",\"8.50\",\"0.50\",\"Client A\",\"\",\"80.000\","
                 "\"Act\",\"\",\"\",\"640.00\",\"Yes\",\"No\",\"one, two\",\n"_s);
        QCOMPARE(Line(CTRecord(), PresetDelimiters()),
                 u"\"\",\"--:--\",\"--:--\",\"--:--\",\"--:--\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"No\","
                 "\"No\",\"\",\n"_s);
    }

    void anExpense() {
        QCOMPARE(Line(Trip(), PresetDelimiters()),
                 u"\"11/19/2026\",\"\",\"\",\"\",\"120.50\",\"\",\"12120.5\",\"0.300\",\"Card\",\"\","
                 "\"36.15\",\"No\",\"Yes\",\"No\",\"No\",\"No\",\"\"\n"_s);
        CERecord plain = Trip();
        plain.isDistance = false;
        QCOMPARE(Line(plain, PresetDelimiters()).section(u',', 4, 7), u"\"n/a\",\"n/a\",\"n/a\",\"n/a\""_s);
    }

    void delimiters() {
        QCOMPARE(Line(WorkingDay(), {{}, u"\t"_s, u"\n"_s}).left(21), u"11/19/2026\t09:00 AM\t0"_s);
        QVERIFY(Line(WorkingDay(), {{}, u"\t"_s, u"\n"_s}).endsWith(u"one, two\t\n"_s));
        QCOMPARE(ItemLine(u"Client"_s, u"a \"b\""_s, PresetDelimiters()), u"\"Client\",\"a \"b\"\"\n"_s);
    }

    void aDistanceThatIsntReadWhole() {
        CERecord record;
        record.isDistance = true;
        record.TakeStoredDistance(u"12,75"_s);
        QCOMPARE(Line(record, {{}, u";"_s, u"\n"_s}).section(u';', 4, 4), u"12,75"_s);
    }

    void backAgain_data() {
        QTest::addColumn<CRegionalInfo>("region");
        QTest::newRow("en_US") << Region(0, u'/', false, u'.');
        QTest::newRow("en_GB") << Region(1, u'/', true, u'.');
        QTest::newRow("de_DE") << Region(1, u'.', true, u',');
        QTest::newRow("sv_SE") << Region(2, u'-', true, u',');
        QTest::newRow("ja_JP") << Region(2, u'/', true, u'.');
    }
    void backAgain() {
        QFETCH(CRegionalInfo, region);
        home.reset();
        home = std::make_unique<TestHome>(region);
        home->settings->precisionDuration = 2;
        for (const Delimiters& delimiters :
             {PresetDelimiters(), Delimiters{{}, u"\t"_s, u"\n"_s}, Delimiters{u"'"_s, u";"_s, u"|"_s}}) {
            Compare(WorkingDay(), delimiters, region.is24Hour);
            CERecord trip = Trip();
            trip.odometerEnd = u"12120"_s;
            Compare(trip, delimiters, region.is24Hour);
            CERecord plain;
            plain.date.Set(1, 2, 2000);
            plain.amount.Set(12.5F);
            Compare(plain, delimiters, region.is24Hour);
        }
    }

    void anyMinuteOfTheDay() {
        CTRecord record;
        record.date.Set(2, 29, 2024);
        for (int minute = 0; minute < 24 * 60; minute += 7) {
            DateTimeVal time;
            QVERIFY(time.SetTime24(minute / 60, minute % 60));
            record.SetStart(time);
            record.SetDuration(minute / 60, minute % 60, false);
            Compare(record, PresetDelimiters(), false);
        }
    }

    /// But for delimiters and line ends, which nothing marks, every text comes back.
    void hostileTexts() {
        const QStringList texts = RandomTexts(300, 4711);
        const auto text = [&texts](qsizetype place) {
            return QString(texts[place % texts.size()]).remove(u'"').remove(u'\n');
        };
        for (qsizetype i = 0; i < texts.size(); ++i) {
            CTRecord time = WorkingDay();
            time.item1 = text(i);
            time.item5 = text(i + 1);
            time.notes = text(i + 2) + u",,\"x\" y"_s;
            Compare(time, PresetDelimiters(), false);
            CERecord expense = Trip();
            expense.item2 = text(i + 3);
            expense.notes = text(i + 4);
            Compare(expense, PresetDelimiters(), false);
        }
    }

    void theLongestNotes() {
        CTRecord time = WorkingDay();
        time.notes = QString(32000, u'x');
        time.item1 = QString(255, u'y');
        Compare(time, PresetDelimiters(), false);
    }
};

TEST_CLASS(TestRecordText);
#include "TestRecordText.moc"
