#include "exchange/import/RecordLine.h"

#include "exchange/text/TextColumns.h"
#include "fields/FieldRow.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What a record shows in the columns of text files, with "|" between them.
QString ColumnsOf(const CVORec& record) {
    QStringList texts;
    for (const TextColumn& column : TextColumnsOf(record.Kind())) texts.append(TextIn(column, record));
    return texts.join(u'|');
}

LineForm Form(RecordForm form = RecordForm::Present, bool clock24 = false) {
    return {.delimiters = PresetDelimiters(), .form = form, .clock24 = clock24};
}

/// Fields as a line of plain ones, for the present form.
CTRecord TimeOf(const QString& line, const LineForm& form = Form()) {
    CTRecord record;
    [&] { QCOMPARE(CRecordLineReader(form).Read(line, record), LineCode::Parsed); }();
    return record;
}
CERecord ExpenseOf(const QString& line, const LineForm& form = Form()) {
    CERecord record;
    [&] { QCOMPARE(CRecordLineReader(form).Read(line, record), LineCode::Parsed); }();
    return record;
}

/// "rate 1,5=1" for each value that isn't read as it is written.
QString MisreadOf(const QString& line, CVORec& record, const LineForm& form) {
    CRecordLineReader reader(form);
    [&] { QCOMPARE(reader.Read(line, record), LineCode::Parsed); }();
    QStringList values;
    for (const auto& [field, text, read] : reader.Misread())
        values.append(QString::fromLatin1(field->name) + u' ' + text + u'=' + read);
    return values.join(u'|');
}

constexpr QStringView kTail = u",,,,,,,,,,notes";  // behind the break of a time

}  // namespace

class TestRecordLine final : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    /// Hours and amounts with two places, the month first, 12 hours.
    void init() {
        home = std::make_unique<TestHome>();
        home->settings->precisionDuration = 2;
    }
    void cleanup() { home.reset(); }

    void aTimeInFull() {
        const CTRecord record = TimeOf(
            u"\"11/19/2026\",\"09:00 AM\",\"05:30 PM\",\"8.50\",\"0.50\",\"Client A\",\"Project\",\"80\",\"Act\",\"CC\",\"EUR\",\"640.00\",\"Yes\",\"No\",\"two, \"three\"\""_s);
        QCOMPARE(ColumnsOf(record),
                 u"11/19/2026|09:00 AM|05:30 PM|8.50|0.50|Client A|Project|80.000|Act|CC|EUR|640.00|Yes|No|"
                 u"two, \"three\""_s);
        QCOMPARE(record.spans.effective.clockText, u"8:00"_s);
        QVERIFY(!record.isExported);
    }

    void anExpenseInFull() {
        const CERecord record = ExpenseOf(
            u"\"11/19/2026\",\"A\",\"B\",\"C\",\"120.5\",\"1000\",\"1120.5\",\"0.3\",\"D\",\"E\",\"36.15\",\"Yes\",\"No\",\"Yes\",\"No\",\"Yes\",\"n\""_s);
        QCOMPARE(ColumnsOf(record),
                 u"11/19/2026|A|B|C|120.50|1000|1120.5|0.300|D|E|36.15|Yes|No|Yes|No|Yes|n"_s);
        QVERIFY(record.isDistance);
    }

    void codes_data() {
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<RecordForm>("form");
        QTest::addColumn<QString>("line");
        QTest::addColumn<LineCode>("code");
        const auto time = RecordKind::Time, expense = RecordKind::Expense;
        const auto now = RecordForm::Present, old = RecordForm::Older;
        const auto fields = [](int count) { return u"11/19/2026"_s + QString(count - 1, u','); };
        QTest::newRow("15 fields") << time << now << fields(15) + u'x' << LineCode::Parsed;
        QTest::newRow("14 fields: the notes stay empty")
            << time << now << fields(14) + u'x' << LineCode::Parsed;
        QTest::newRow("13 fields") << time << now << fields(13) + u'x' << LineCode::TooFewFields;
        QTest::newRow("13 fields of the older form") << time << old << fields(13) + u'x' << LineCode::Parsed;
        QTest::newRow("12 fields of the older form")
            << time << old << fields(12) + u'x' << LineCode::TooFewFields;
        QTest::newRow("16 fields of an expense") << expense << old << fields(16) + u'x' << LineCode::Parsed;
        QTest::newRow("15 fields of an expense")
            << expense << now << fields(15) + u'x' << LineCode::TooFewFields;
        QTest::newRow("the month 13")
            << time << now << u"13/01/2026"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("the month 0") << time << now << u"0/1/2026"_s + fields(15).mid(10)
                                     << LineCode::BadDate;
        QTest::newRow("the day 32") << time << now << u"1/32/2026"_s + fields(15).mid(10)
                                    << LineCode::BadDate;
        QTest::newRow("the day 0") << expense << now << u"1/0/2026"_s + fields(17).mid(10)
                                   << LineCode::BadDate;
        QTest::newRow("the 30th of February")
            << time << now << u"2/30/2026"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("the 29th in a year that has none")
            << expense << now << u"2/29/2026"_s + fields(17).mid(10) << LineCode::BadDate;
        QTest::newRow("the 29th in one that has")
            << time << now << u"2/29/2028"_s + fields(15).mid(10) << LineCode::Parsed;
        QTest::newRow("the 29th of 1900")
            << time << now << u"2/29/1900"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("the 31st of April in the older form")
            << time << old << u"31.4.2026"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("two numbers are no date")
            << time << now << u"11/19"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("no date") << time << now << fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("a year of five digits")
            << time << now << u"1/1/12026"_s + fields(15).mid(10) << LineCode::BadDate;
        QTest::newRow("behind a quote no separator")
            << time << now << u"\"11/19/2026\"x\"y\","_s << LineCode::TooFewFields;
    }
    void codes() {
        QFETCH(RecordKind, kind);
        QFETCH(RecordForm, form);
        QFETCH(QString, line);
        CTRecord time;
        CERecord expense;
        CVORec& record = kind == RecordKind::Time ? static_cast<CVORec&>(time) : expense;
        QTEST(CRecordLineReader(Form(form)).Read(line, record), "code");
    }

    void dates_data() {
        QTest::addColumn<RecordForm>("form");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("date");
        QTest::newRow("by the region") << RecordForm::Present << u"11/19/2026"_s << u"11/19/2026"_s;
        QTest::newRow("two digits of the year") << RecordForm::Present << u"1/2/49"_s << u"01/02/2049"_s;
        QTest::newRow("of the last century") << RecordForm::Present << u"1/2/50"_s << u"01/02/1950"_s;
        QTest::newRow("older, slashes: the month first")
            << RecordForm::Older << u"3/4/2026"_s << u"03/04/2026"_s;
        QTest::newRow("older, full stops: the day first")
            << RecordForm::Older << u"3.4.2026"_s << u"04/03/2026"_s;
        QTest::newRow("older, dashes: the day first") << RecordForm::Older << u"3-4-26"_s << u"04/03/2026"_s;
    }
    void dates() {
        QFETCH(RecordForm, form);
        QFETCH(QString, text);
        QTEST(ExpenseOf(text + QString(16, u','), Form(form)).date.longText, "date");
    }

    void times_data() {
        QTest::addColumn<bool>("clock24");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("start");
        QTest::newRow("with a word") << false << u"05:07 PM"_s << u"05:07 PM"_s;
        QTest::newRow("in small letters") << false << u"5:07 am"_s << u"05:07 AM"_s;
        QTest::newRow("without one it counts to 24") << false << u"17:07"_s << u"05:07 PM"_s;
        QTest::newRow("midnight") << false << u"0:00"_s << u"12:00 AM"_s;
        QTest::newRow("noon") << false << u"12:00"_s << u"12:00 PM"_s;
        QTest::newRow("23:59") << true << u"23:59"_s << u"11:59 PM"_s;
        QTest::newRow("24:05 is half past nothing") << true << u"24:05"_s << u"12:05 PM"_s;
        QTest::newRow("25:00 is none") << true << u"25:00"_s << u"--:--"_s;
        QTest::newRow("of 24 hours a word is dropped") << true << u"05:07 PM"_s << u"05:07 AM"_s;
        QTest::newRow("with a word 13 is no hour") << false << u"13:07 PM"_s << u"--:--"_s;
        QTest::newRow("nor is 0") << false << u"0:07 AM"_s << u"--:--"_s;
        QTest::newRow("an unknown word") << false << u"5:07 noon"_s << u"--:--"_s;
        QTest::newRow("minute 60") << true << u"9:60"_s << u"--:--"_s;
        QTest::newRow("unset as the export writes it") << false << u"--:--"_s << u"--:--"_s;
        QTest::newRow("nothing") << false << QString() << u"--:--"_s;
        QTest::newRow("one number") << true << u"9"_s << u"--:--"_s;
        QTest::newRow("below nothing") << true << u"-3:10"_s << u"--:--"_s;
    }
    void times() {
        QFETCH(bool, clock24);
        QFETCH(QString, text);
        const CTRecord record =
            TimeOf(u"1/1/2026,"_s + text + u",,,"_s + kTail.toString(), Form(RecordForm::Present, clock24));
        QTEST(TimeTextOfRecord(record, 3), "start");
    }

    void lengths_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("length");
        QTest::newRow("a half") << u"7.5"_s << u"7:30"_s;
        QTest::newRow("two places") << u"7.33"_s << u"7:20"_s;
        QTest::newRow("the last minute") << u"1.98"_s << u"1:59"_s;
        QTest::newRow("rounded up to the hour") << u"1.999"_s << u"2:00"_s;
        QTest::newRow("less than half a minute") << u"0.008"_s << u"0:00"_s;
        QTest::newRow("whole hours") << u"100"_s << u"100:00"_s;
        QTest::newRow("no hours") << u"0"_s << u"0:00"_s;
        QTest::newRow("unset as the export writes it") << u"--:--"_s << u"--:--"_s;
        QTest::newRow("a word") << u"all day"_s << u"--:--"_s;
        QTest::newRow("below nothing") << u"-1.5"_s << u"--:--"_s;
        QTest::newRow("more than a record holds") << u"99999999999"_s << u"--:--"_s;
    }
    void lengths() {
        QFETCH(QString, text);
        const CTRecord record = TimeOf(u"1/1/2026,,,"_s + text + u","_s + kTail.toString());
        QTEST(record.spans.duration.clockText, "length");
    }

    void timesAndLengths_data() {
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QString>("shown");
        QTest::newRow("start and end make the length")
            << u"09:00 AM,05:00 PM,,"_s << u"09:00 AM|05:00 PM|8.00|--:--"_s;
        QTest::newRow("a length that differs stays, and the times with it")
            << u"09:00 AM,05:00 PM,7.5,"_s << u"09:00 AM|05:00 PM|7.50|--:--"_s;
        QTest::newRow("a start and a length make the end")
            << u"09:00 AM,,7.5,"_s << u"09:00 AM|04:30 PM|7.50|--:--"_s;
        QTest::newRow("an end and a length make the start")
            << u"--:--,05:00 PM,7.5,"_s << u"09:30 AM|05:00 PM|7.50|--:--"_s;
        QTest::newRow("a length alone") << u",,7.5,"_s << u"--:--|--:--|7.50|--:--"_s;
        QTest::newRow("a break alone") << u",,,0.5"_s << u"--:--|--:--|--:--|0.50"_s;
        QTest::newRow("past midnight") << u"22:00,02:00,4,"_s << u"10:00 PM|02:00 AM|4.00|--:--"_s;
    }
    void timesAndLengths() {
        QFETCH(QString, fields);
        const CTRecord record = TimeOf(u"1/1/2026,"_s + fields + kTail.toString());
        QTEST(ColumnsOf(record).section(u'|', 1, 4), "shown");
    }

    void money_data() {
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("flags");
        QTest::addColumn<QString>("shown");
        const QString billable = u"Yes,No"_s;
        QTest::newRow("both stay as they are") << u"33.333"_s << u"66.67"_s << billable << u"33.333|66.67"_s;
        QTest::newRow("even where they don't fit") << u"10"_s << u"99"_s << billable << u"10.000|99.00"_s;
        QTest::newRow("the rate alone gives the amount")
            << u"10"_s << QString() << billable << u"10.000|20.00"_s;
        QTest::newRow("the amount alone gives the rate")
            << QString() << u"30"_s << billable << u"15.000|30.00"_s;
        QTest::newRow("none") << QString() << QString() << billable << u"|"_s;
        QTest::newRow("a word is none") << u"much"_s << u"30"_s << billable << u"15.000|30.00"_s;
        QTest::newRow("below nothing is none") << u"-5"_s << u"30"_s << billable << u"15.000|30.00"_s;
        QTest::newRow("not billable: no money") << u"10"_s << u"20"_s << u"No,No"_s << u"|"_s;
        QTest::newRow("yes in other letters isn't") << u"10"_s << u"20"_s << u"YES,No"_s << u"|"_s;
    }
    void money() {
        QFETCH(QString, rate);
        QFETCH(QString, amount);
        QFETCH(QString, flags);
        const CTRecord record = TimeOf(u"1/1/2026,,,2,,,,"_s + rate + u",,,,"_s + amount + u',' + flags);
        QTEST(record.GetRateText() + u'|' + record.GetAmountText(), "shown");
    }

    void distances_data() {
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no distance entry: what follows is skipped unread")
            << u"n/a,1,2,3"_s << u"n/a|n/a|n/a|n/a"_s;
        QTest::newRow("an empty distance makes one all the same") << u",,,"_s << u"|||"_s;
        QTest::newRow("a word is no distance, and makes one") << u"far,x,,y"_s << u"|||"_s;
        QTest::newRow("readings in their shortest form")
            << u"12.50,1000.0,1012.50,0.3"_s << u"12.50|1000|1012.5|0.300"_s;
        QTest::newRow("a long reading keeps its digits")
            << u"1,1234567.8,12345678,1"_s << u"1.00|1234567.8|12345678|1.000"_s;
    }
    void distances() {
        QFETCH(QString, fields);
        const CERecord record = ExpenseOf(u"1/1/2026,,,,"_s + fields + QString(9, u','));
        QTEST(ColumnsOf(record).section(u'|', 4, 7), "shown");
    }

    void misreadTimes_data() {
        QTest::addColumn<bool>("clock24");
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QString>("misread");
        const QString none;
        QTest::newRow("none") << false << u"9:00 AM,5:00 PM,8,0.5,A,B,80,,,,640,Yes,No"_s << none;
        QTest::newRow("what isn't set") << false << u"--:--,,--:--,--:--,,,,,,,,,"_s << none;
        QTest::newRow("blanks around a number") << false << u",,\" 8 \",,,,,,,,,No,No"_s << none;
        QTest::newRow("a time with seconds")
            << false << u"09:00:30,,,,,,,,,,,No,No"_s << u"start 09:00:30="_s;
        QTest::newRow("a word that is dropped")
            << true << u"09:00 AM,05:00 PM,,,,,,,,,,No,No"_s << u"end 05:00 PM=05:00 AM"_s;
        QTest::newRow("lengths") << false << u",,all day,\"1,5\",,,,,,,,No,No"_s
                                 << u"duration all day=|break 1,5=1"_s;
        QTest::newRow("a length of hours and minutes")
            << false << u",,8:30,,,,,,,,,No,No"_s << u"duration 8:30=8"_s;
        QTest::newRow("numbers with groups") << false << u",,2,,,,\"1,234.50\",,,,\"2,469.00\",Yes,No"_s
                                             << u"rate 1,234.50=1|amount 2,469.00=2"_s;
        QTest::newRow("more than a number holds")
            << false << u",,2,,,,1e39,,,,nan,Yes,No"_s << u"rate 1e39=|amount nan="_s;
        QTest::newRow("a currency") << false << u",,2,,,,80 EUR,,,,,Yes,No"_s << u"rate 80 EUR=80"_s;
        QTest::newRow("below nothing") << false << u",,-1,,,,-80,,,,,Yes,No"_s << u"duration -1=|rate -80="_s;
        QTest::newRow("money of what isn't billable")
            << false << u",,2,,,,80,,,,160,No,No"_s << u"rate 80=|amount 160="_s;
        QTest::newRow("another word for yes")
            << false << u",,,,,,,,,,,true,yes"_s << u"isBillable true=No|isBilled yes=No"_s;
    }
    void misreadTimes() {
        QFETCH(bool, clock24);
        QFETCH(QString, fields);
        CTRecord record;
        QTEST(MisreadOf(u"11/19/2026,"_s + fields + u",n"_s, record, Form(RecordForm::Present, clock24)),
              "misread");
    }

    void misreadExpenses_data() {
        QTest::addColumn<QString>("fields");
        QTest::addColumn<QString>("misread");
        QTest::newRow("none") << u"120.5,1000,1120.5,0.3,,,36.15,Yes,No,Yes,No,Yes"_s << QString();
        QTest::newRow("skipped unread") << u"n/a,x,y,z,,,5,No,No,No,No,No"_s << QString();
        QTest::newRow("a distance with its unit")
            << u"120.5 km,\"1,000\",far,,,,much,No,No,No,No,x"_s
            << u"distance 120.5 km=120.5|odometerStart 1,000=1|odometerEnd far=|amount much=|flag5 x=No"_s;
    }
    void misreadExpenses() {
        QFETCH(QString, fields);
        CERecord record;
        QTEST(MisreadOf(u"11/19/2026,A,B,C,"_s + fields + u",n"_s, record, Form()), "misread");
    }

    void onlyTheBeginningOfAValueIsShown() {
        CTRecord record;
        QCOMPARE(MisreadOf(u"11/19/2026,"_s + QString(500, u'x') + u",,,,,,,,,,,No,No,n"_s, record, Form()),
                 u"start "_s + QString(30, u'x') + u'=');
    }

    void notesOfExpensesAreJoined() {
        const QString head =
            u"\"1/1/2026\",\"\",\"\",\"\",\"n/a\",\"n/a\",\"n/a\",\"n/a\",\"\",\"\",\"\",\"No\",\"No\",\"No\",\"No\",\"No\","_s;
        QCOMPARE(ExpenseOf(head + u"\"one\",\"two\",three"_s).notes, u"one,two,three"_s);
        QCOMPARE(ExpenseOf(head + u"\"one, two\""_s).notes, u"one, two"_s);
        QCOMPARE(ExpenseOf(head).notes, QString());
    }

    void theRestOfATimeIsItsNotes() {
        const QString head = u"1/1/2026"_s + QString(14, u',');
        QCOMPARE(TimeOf(head + u"\"a\",\"b\","_s).notes, u"a\",\"b"_s);
        QCOMPARE(TimeOf(head + u"\"two\nlines\","_s).notes, u"two\nlines"_s);
    }

    /// 14 fields in the form of 15: which one is missing isn't seen, so each value is one place too far left.
    void theRuleIsByCount() {
        const CTRecord record =
            TimeOf(u"1/1/2026,09:00 AM,05:00 PM,8,Client,Project,80,Act,CC,EUR,640,Yes,No,notes"_s);
        QCOMPARE(record.item1, u"Project"_s);
        QCOMPARE(record.notes, QString());
    }

    void longTexts_data() {
        QTest::addColumn<int>("item");
        QTest::addColumn<int>("notes");
        QTest::addColumn<bool>("fits");
        QTest::newRow("the longest") << 255 << 32000 << true;
        QTest::newRow("an item of 256") << 256 << 0 << false;
        QTest::newRow("notes of 32,001") << 0 << 32001 << false;
    }
    void longTexts() {
        QFETCH(int, item);
        QFETCH(int, notes);
        const CTRecord time =
            TimeOf(u"1/1/2026,,,,,"_s + QString(item, u'x') + QString(9, u',') + QString(notes, u'y'));
        QCOMPARE(time.item1.size(), item);
        QCOMPARE(time.notes.size(), notes);
        QTEST(FitsTheStore(time), "fits");
    }

    void aDecimalComma() {
        CRegionalInfo german;
        german.usesDotDecimal = false;
        german.decimalChar = u',';
        german.dateOrder = 1;
        german.dateSeparator = u'.';
        german.is24Hour = true;
        home.reset();
        home = std::make_unique<TestHome>(german);
        home->settings->precisionDuration = 2;
        LineForm form = Form(RecordForm::Present, true);
        form.delimiters.separator = u";"_s;
        const CTRecord record = TimeOf(u"19.11.2026;9:00;17:30;8,5;0.5;;;80,5;;;;644,00;Yes;Yes;n"_s, form);
        QCOMPARE(ColumnsOf(record), u"19.11.2026|09:00|17:30|8,50|0,50|||80,500||||644,00|Yes|Yes|n"_s);
    }
};

TEST_CLASS(TestRecordLine);
#include "TestRecordLine.moc"
