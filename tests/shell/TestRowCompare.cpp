#include "shell/core/RowCompare.h"

#include "lang/LoadText.h"
#include "platform/CRegionalInfo.h"
#include "records/CTRecord.h"
#include "shell/core/MergeSort.h"

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

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

int Compare(int column, const QString& a, const QString& b, bool ascending) {
    const CRegionalInfo region;
    return Sign(CompareRows(CompareFormOf(column), MakeRowKey(Record(a), column, region),
                            MakeRowKey(Record(b), column, region), ascending));
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
        row("breaks compare as durations do", 2, "break 0:15", "break 0:30", -1, 1);
        row("net times too", 3, "span 2:00; break 1:00", "span 2:00; break 0:30", -1, 1);
        row("no net time when the break is longer", 3, "span 1:00; break 2:00", "span 0:01", -1, -1);

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
    }
    void compare() {
        QFETCH(int, column);
        QFETCH(QString, a);
        QFETCH(QString, b);
        QTEST(Compare(column, a, b, true), "ascending");
        QTEST(Compare(column, a, b, false), "descending");
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
            QVERIFY(questions <= count * 13);  // 2 to the 13th is more than the longest
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

QTEST_GUILESS_MAIN(TestRowCompare)
#include "TestRowCompare.moc"
