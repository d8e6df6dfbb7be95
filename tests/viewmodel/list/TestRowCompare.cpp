#include "viewmodel/list/RowCompare.h"

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"
#include "viewmodel/list/CRowSorter.h"
#include "viewmodel/list/MergeSort.h"

#include <QTest>
#include <cstdint>
#include <numeric>

namespace {

/// A record in few words: "date 2026-11-19; start 9:00; item1 Alpha; ...".
CTRecord Record(const QString& words) {
    CTRecord record;
    record.Reset();
    for (const QString& part : words.split(QStringLiteral("; "), Qt::SkipEmptyParts)) {
        const QString name = part.section(u' ', 0, 0), value = part.section(u' ', 1);
        const int first = value.section(u':', 0, 0).toInt(), second = value.section(u':', 1).toInt();
        if (name == QStringLiteral("date")) {
            const QStringList ymd = value.split(u'-');
            record.date.Set(ymd[1].toInt(), ymd[2].toInt(), ymd[0].toInt());
        } else if (name == QStringLiteral("start")) {
            record.SetStart(first % 12 == 0 ? 12 : first % 12, second, first >= 12);
        } else if (name == QStringLiteral("end")) {
            record.SetEnd(first % 12 == 0 ? 12 : first % 12, second, first >= 12);
        } else if (name == QStringLiteral("span")) {
            record.SetDurationOnly(first, second);
        } else if (name == QStringLiteral("break")) {
            record.SetBreak(first, second);
        } else if (name == QStringLiteral("item1")) {
            record.item1 = value;
        } else if (name == QStringLiteral("rate")) {
            record.rate.Set(value.toFloat());
        } else if (name == QStringLiteral("billable")) {
            record.isBillable = true;
        } else if (name == QStringLiteral("notes")) {
            record.notes = value;
        }
    }
    return record;
}

/// The same of an expense: "date 2026-11-19; amount 12.5; flag3; ...".
CERecord Expense(const QString& words) {
    CERecord record;
    for (const QString& part : words.split(QStringLiteral("; "), Qt::SkipEmptyParts)) {
        const QString name = part.section(u' ', 0, 0), value = part.section(u' ', 1);
        const QStringList ymd = value.split(u'-');
        if (name == QStringLiteral("date"))
            record.date.Set(ymd[1].toInt(), ymd[2].toInt(), ymd[0].toInt());
        else if (name == QStringLiteral("amount"))
            record.amount.Set(value.toFloat());
        else if (name == QStringLiteral("rate"))
            record.rate.Set(value.toFloat());
        else if (name == QStringLiteral("distance"))
            record.distance.Set(value.toFloat());
        else if (name == QStringLiteral("item3"))
            record.item3 = value;
        else if (name == QStringLiteral("item5"))
            record.item5 = value;
        else if (name == QStringLiteral("trip"))
            record.isDistance = true;
        else if (name == QStringLiteral("flag5"))
            record.flag5 = true;
        else if (name == QStringLiteral("notes"))
            record.notes = value;
    }
    return record;
}

/// One of many records in words, with and without each value, with equal ones and others.
QString Mixed(int i) {
    const QString texts[] = {QStringLiteral("b"), QStringLiteral("A"), QStringLiteral("a"), QString(),
                             QStringLiteral("ä"), QStringLiteral("B"), QStringLiteral("aa")};
    QStringList words;
    if (i % 5) words << QStringLiteral("date 2026-11-%1").arg(1 + i * 7 % 28);
    if (i % 3) words << QStringLiteral("start %1:%2").arg(i * 5 % 24).arg(i % 60);
    if (i % 3) words << QStringLiteral("span %1:00").arg(i % 10);
    for (const char* name : {"item1", "item3", "item5"})
        words << QString::fromLatin1(name) + u' ' + texts[i * 3 % 7];
    for (const char* name : {"amount", "rate", "distance"})
        if (i % 4) words << QString::fromLatin1(name) + u' ' + QString::number(i * 11 % 13);
    if (i % 2) words << QStringLiteral("trip") << QStringLiteral("notes x") << QStringLiteral("billable");
    if (i % 4) words << QStringLiteral("flag5");
    return words.join(QStringLiteral("; "));
}

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

int Compare(int column, const QString& a, const QString& b, bool ascending) {
    const CRegionalInfo region;
    const auto key = [&](const QString& words) {
        return column < 17 ? MakeRowKey(Record(words), column, region)
                           : MakeRowKey(Expense(words), column, region);
    };
    return Sign(CompareRows(CompareFormOf(column), key(a), key(b), ascending));
}

}  // namespace

class TestRowCompare final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void compare_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("ascending");
        QTest::addColumn<int>("descending");
        const auto row = [](const char* name, int column, const char* a, const char* b, int up, int down) {
            QTest::newRow(name) << column << QString::fromUtf8(a) << QString::fromUtf8(b) << up << down;
        };
        row("two records without a date are equal", 0, "", "", 0, 0);
        row("no date before a date, turned by the direction", 0, "", "date 2026-11-19", -1, 1);
        row("a date behind no date", 0, "date 2026-11-19", "", 1, -1);
        row("a month 13 counts as none", 0, "date 2026-13-1", "date 2026-1-1", -1, 1);
        row("the earlier day first", 0, "date 2026-11-18", "date 2026-11-19", -1, 1);
        row("year before month before day", 0, "date 2025-12-31", "date 2026-1-1", -1, 1);
        row("the same day by start time", 0, "date 2026-11-19; start 8:00", "date 2026-11-19; start 9:00", -1,
            1);
        row("12 AM is before 1 AM", 0, "date 2026-11-19; start 0:00", "date 2026-11-19; start 1:00", -1, 1);
        row("noon is behind 11 AM", 0, "date 2026-11-19; start 12:00", "date 2026-11-19; start 11:00", 1, -1);
        row("the same day, one without a start comes first", 0, "date 2026-11-19",
            "date 2026-11-19; start 0:00", -1, 1);
        row("the same day and start are equal", 0, "date 2026-11-19; start 9:00",
            "date 2026-11-19; start 9:00", 0, 0);
        row("the same day, both without a start", 0, "date 2026-11-19", "date 2026-11-19", 0, 0);
        row("an earlier day without a start", 0, "date 2026-11-18", "date 2026-11-19; start 0:00", -1, 1);

        row("two without a duration are equal", 1, "", "", 0, 0);
        row("no duration first in both directions", 1, "", "span 1:00", -1, -1);
        row("a duration behind none in both directions", 1, "span 1:00", "", 1, 1);
        row("the shorter: minus ascending", 1, "span 0:30", "span 1:00", -1, 1);
        row("the longer: plus ascending", 1, "span 1:00", "span 0:30", 1, -1);
        row("equal durations give the direction, in both orders", 1, "span 1:00", "span 1:00", 1, -1);
        row("100 hours are longer than 99", 1, "span 100:00", "span 99:59", 1, -1);
        row("breaks compare as durations do", 3, "break 0:15", "break 0:30", -1, 1);
        row("net times too", 2, "span 2:00; break 1:00", "span 2:00; break 0:30", -1, 1);
        row("no net time when the break is longer", 2, "span 1:00; break 2:00", "span 0:01", -1, -1);

        row("texts by their letters", 4, "item1 Alpha", "item1 Beta", -1, 1);
        row("case doesn't count", 4, "item1 alpha", "item1 ALPHA", 0, 0);
        row("umlauts fold as well", 4, "item1 ÄRZTE", "item1 ärzte", 0, 0);
        row("an empty text first, last when descending", 4, "", "item1 a", -1, 1);

        row("two without a start are equal", 6, "", "", 0, 0);
        row("no start first", 6, "", "start 0:00", -1, 1);
        row("start times by the clock", 6, "start 9:00", "start 13:00", -1, 1);
        row("end times by the clock", 7, "end 23:59", "end 0:00", 1, -1);

        row("two without a rate are equal", 8, "", "", 0, 0);
        row("no rate first, last when descending", 8, "", "rate 1", -1, 1);
        row("rates as numbers, not as text", 8, "rate 9", "rate 10", -1, 1);
        row("equal rates give the direction", 8, "rate 9", "rate 9", 1, -1);

        row("two alike flags: minus ascending, in both orders", 13, "billable", "billable", -1, 1);
        row("two clear flags as well", 13, "", "", -1, 1);
        row("two different flags: plus ascending", 13, "billable", "", 1, -1);
        row("the other way round the same", 13, "", "billable", 1, -1);
        row("notes: both there", 15, "notes x", "notes y", -1, 1);
        row("notes: one there", 15, "notes x", "", 1, -1);

        row("expenses by day", 17, "date 2026-11-18", "date 2026-11-19", -1, 1);
        row("expenses of one day are equal: they have no time", 17, "date 2026-11-19", "date 2026-11-19", 0,
            0);
        row("an expense without a date before one with it", 17, "", "date 2026-11-19", -1, 1);
        row("two expenses without a date", 17, "", "", 0, 0);
        row("amounts as numbers", 18, "amount 9", "amount 10", -1, 1);
        row("no amount first, last when descending", 18, "", "amount 0", -1, 1);
        row("two without an amount", 18, "", "", 0, 0);
        row("equal amounts give the direction", 18, "amount 9", "amount 9", 1, -1);
        row("negative amounts are no amounts below 0 but less", 18, "amount -5", "amount 3", -1, 1);
        row("descriptions without case", 21, "item3 taxi", "item3 TAXI", 0, 0);
        row("currencies", 26, "item5 EUR", "item5 USD", -1, 1);
        row("distances as texts: 10.00 before 9.00", 23, "distance 10", "distance 9", -1, 1);
        row("no distance before any", 23, "", "distance 9", -1, 1);
        row("rates per distance as numbers", 24, "rate 0.5", "rate 10", -1, 1);
        row("two distance entries: minus ascending", 22, "trip", "trip", -1, 1);
        row("one distance entry: plus ascending", 22, "trip", "", 1, -1);
        row("one with the fifth flag", 31, "", "flag5", 1, -1);
        row("notes of expenses: both there", 32, "notes x", "notes y", -1, 1);
        row("two exported or not alike", 33, "", "", -1, 1);
    }
    void compare() {
        QFETCH(int, column);
        QFETCH(QString, a);
        QFETCH(QString, b);
        QTEST(Compare(column, a, b, true), "ascending");
        QTEST(Compare(column, a, b, false), "descending");
    }

    /// Every column of the other kind compares equal, and no record is read as what it isn't.
    void columnsOfTheOtherKind() {
        const CRegionalInfo region;
        for (int column = 0; column < 34; ++column) {
            const RowKey key = column < 17
                                   ? MakeRowKey(Expense(QStringLiteral("amount 5; trip")), column, region)
                                   : MakeRowKey(Record(QStringLiteral("span 1:00; notes x")), column, region);
            QCOMPARE(key.order, std::uint64_t(0));
            QCOMPARE(key.text, QString());
        }
    }

    /// Many rows at once come into the order that comparing them one by one gives.
    void sorterAgreesWithTheComparison_data() {
        QTest::addColumn<int>("column");
        for (int column = 0; column < 34; ++column) QTest::addRow("column %d", column) << column;
    }
    void sorterAgreesWithTheComparison() {
        QFETCH(int, column);
        const CRegionalInfo region;
        std::vector<std::unique_ptr<CVORec>> records;
        for (int i = 0; i < 300; ++i) {
            const QString words = Mixed(i);
            if (column < 17)
                records.push_back(std::make_unique<CTRecord>(Record(words)));
            else
                records.push_back(std::make_unique<CERecord>(Expense(words)));
        }
        for (const bool ascending : {true, false}) {
            CRowSorter sorter(column, region, records.size());
            std::vector<RowKey> keys;
            for (const auto& record : records) {
                sorter.Put(keys.size(), *record);
                keys.push_back(MakeRowKey(*record, column, region));
            }
            std::vector<std::uint32_t> expected(records.size());
            std::iota(expected.begin(), expected.end(), 0U);
            MergeSort(expected, [&](std::uint32_t a, std::uint32_t b) {
                return CompareRows(CompareFormOf(column), keys[a], keys[b], ascending);
            });
            QCOMPARE(sorter.Sorted(ascending), expected);
        }
    }

    /// Nothing to sort, and days as far apart as they can be.
    void sorterAtTheEnds() {
        const CRegionalInfo region;
        QVERIFY(CRowSorter(0, region, 0).Sorted(true).empty());
        const char* const days[] = {"date 9999-12-31; start 23:59", "date 1601-1-1", "", "date 2026-11-19",
                                    "date 9999-12-31; start 23:58"};
        CRowSorter sorter(0, region, 5), other(0, region, 5);
        for (std::size_t row = 0; row < 5; ++row) {
            sorter.Put(row, Record(QString::fromLatin1(days[row])));
            other.Put(row, Record(QString::fromLatin1(days[row])));
        }
        QCOMPARE(sorter.Sorted(true), (std::vector<std::uint32_t>{2, 1, 3, 4, 0}));
        QCOMPARE(other.Sorted(false), (std::vector<std::uint32_t>{0, 4, 3, 1, 2}));
    }

    /// A row whose record is gone is one without a value.
    void sorterStandsRowsWithoutRecord() {
        const CRegionalInfo region;
        for (const int column : {0, 1, 4, 6, 8, 13}) {
            const CTRecord record =
                Record(QStringLiteral("date 2026-11-19; start 9:00; span 1:00; item1 x; rate 5"));
            CRowSorter sorter(column, region, 3);
            sorter.Put(2, record);
            sorter.Put(0, record);
            std::vector<std::uint32_t> rows = sorter.Sorted(true);
            if (column != 13) QCOMPARE(rows.front(), 1U);
            std::ranges::sort(rows);
            QCOMPARE(rows, (std::vector<std::uint32_t>{0, 1, 2}));
        }
    }

    /// Whatever is answered, the sort ends, keeps every element and asks for none that isn't there.
    void sortStandsAnyComparison_data() {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < 5; ++kind) QTest::addRow("comparison %d", kind) << kind;
    }
    void sortStandsAnyComparison() {
        QFETCH(int, kind);
        for (const std::size_t count : {0U, 1U, 2U, 3U, 7U, 100U, 1000U, 4097U}) {
            std::vector<std::uint32_t> items(count);
            std::iota(items.begin(), items.end(), 0U);
            std::uint64_t random = 1, questions = 0;
            MergeSort(items, [&](std::uint32_t a, std::uint32_t b) {
                ++questions;
                [&] { QVERIFY(a < count && b < count); }();
                random = random * 6364136223846793005ULL + 1442695040888963407ULL;
                const int answers[] = {1, -1, 0, random >> 63 ? 1 : -1, a % 2 == b % 2 ? -1 : 1};
                return answers[kind];
            });
            QVERIFY(questions <= count * 14);  // 2 to the 13th is more than the longest
            std::sort(items.begin(), items.end());
            for (std::uint32_t i = 0; i < count; ++i) QCOMPARE(items[i], i);
        }
    }

    void sortOrders() {
        std::vector<int> items{5, 3, 9, 1, 3, 7, 0};
        MergeSort(items, [](int a, int b) { return a - b; });
        QCOMPARE(items, (std::vector<int>{0, 1, 3, 3, 5, 7, 9}));
        std::vector<std::pair<int, char>> pairs{{1, 'a'}, {0, 'b'}, {1, 'c'}, {0, 'd'}};
        MergeSort(pairs, [](const auto& a, const auto& b) { return a.first - b.first; });
        QCOMPARE(pairs[0].second, 'b');
        QCOMPARE(pairs[1].second, 'd');
        QCOMPARE(pairs[2].second, 'a');
    }
};

TEST_CLASS(TestRowCompare);
#include "TestRowCompare.moc"
