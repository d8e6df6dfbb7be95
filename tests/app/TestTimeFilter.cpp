#include "app/CTimerService.h"
#include "app/TimeFilter.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Knows one record with a timer.
class OneTimer final : public CTimerService {
 public:
    [[nodiscard]] TimerState StateOf(const QString& recordId) const override {
        return recordId == u"TIMED"_s ? TimerState::Paused : TimerState::None;
    }
    bool RunNewTimerAction() override { return true; }
    bool StartFromZero(const QString&) override { return false; }
    [[nodiscard]] bool Drop(const QString&) override { return true; }
};

using Change = std::function<void(TimeFilter&, CTRecord&)>;

}  // namespace

Q_DECLARE_METATYPE(Change)

class TestTimeFilter final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void ResetIsAny();
    void Period_data();
    void Period();
    void PeriodThatIsNoDateMeansToday();
    void Criteria_data();
    void Criteria();
    void Words_data();
    void Words();
    void WithoutTimers();
    void PreparedKeepsItsDates();
    void MillionRecords();

 private:
    [[nodiscard]] PeriodContext Context() const {
        return {.clock = m_clock, .region = m_region, .firstDayOfWeek = 1};
    }

    const CTestClock m_clock;  // Thursday, 19 November 2026
    const CRegionalInfo m_region;
};

void TestTimeFilter::ResetIsAny() {
    TimeFilter filter;
    filter.items[2] = u"x"_s;
    filter.billable = filter.billed = filter.exported = filter.timer = FlagCriterion::kSet;
    filter.Reset();
    for (const QString& item : filter.items) QCOMPARE(item, u"(any)"_s);
    for (const int criterion : {filter.billable, filter.billed, filter.exported, filter.timer})
        QCOMPARE(criterion, 100);
    QCOMPARE(filter.preset, 6);
    QVERIFY(filter.Matches(CTRecord(), Context(), nullptr));
}

void TestTimeFilter::Period_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("month");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("matches");
    QTest::newRow("the first day counts") << 4 << 11 << 1 << 2026 << true;
    QTest::newRow("the last day counts") << 4 << 11 << 30 << 2026 << true;
    QTest::newRow("a day before the first") << 4 << 10 << 31 << 2026 << false;
    QTest::newRow("a day after the last") << 4 << 12 << 1 << 2026 << false;
    QTest::newRow("the same day a year before") << 4 << 11 << 19 << 2025 << false;
    QTest::newRow("the same day a year after") << 4 << 11 << 19 << 2027 << false;
    QTest::newRow("today") << 1 << 11 << 19 << 2026 << true;
    QTest::newRow("yesterday isn't today") << 1 << 11 << 18 << 2026 << false;
    QTest::newRow("next quarter matches nothing, not even today") << 28 << 11 << 19 << 2026 << false;
    QTest::newRow("nor its own first day") << 28 << 10 << 1 << 2027 << false;
    QTest::newRow("a record without date is in no period") << 14 << -1 << -1 << -1 << false;
    QTest::newRow("all takes any date") << 6 << 1 << 1 << 1999 << true;
    QTest::newRow("all takes a record without date") << 6 << -1 << -1 << -1 << true;
}

void TestTimeFilter::Period() {
    QFETCH(int, preset);
    QFETCH(int, month);
    QFETCH(int, day);
    QFETCH(int, year);
    TimeFilter filter;
    QCOMPARE(filter.ApplyPreset(preset, Context()), preset != PeriodCode::kAll);
    CTRecord record;
    record.date.Set(month, day, year);
    QTEST(filter.Matches(record, Context(), nullptr), "matches");
}

void TestTimeFilter::PeriodThatIsNoDateMeansToday() {
    TimeFilter filter;
    filter.EnablePeriod(true);  // no dates chosen yet
    CTRecord record;
    record.date.Set(11, 19, 2026);
    QVERIFY(filter.Matches(record, Context(), nullptr));
    record.date.Set(11, 20, 2026);
    QVERIFY(!filter.Matches(record, Context(), nullptr));
}

void TestTimeFilter::Criteria_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char* name, bool matches, const Change& change) {
        QTest::newRow(name) << change << matches;
    };
    row("nothing asked", true, [](TimeFilter&, CTRecord&) {});
    row("a part of an item", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"me"_s;
        r.item1 = u"Acme"_s;
    });
    row("a part in other letters", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"ACM"_s;
        r.item1 = u"Acme"_s;
    });
    row("umlauts in other letters", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"MÜLLER"_s;
        r.item1 = u"Frau müller"_s;
    });
    row("no part of the item", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"Bolt"_s;
        r.item1 = u"Acme"_s;
    });
    row("a part, but case counts", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"acm"_s;
        r.item1 = u"Acme"_s;
        f.matchCase = true;
    });
    row("a part with the same letters", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"Acm"_s;
        r.item1 = u"Acme"_s;
        f.matchCase = true;
    });
    row("a part where the whole counts", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"Acm"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = true;
    });
    row("the whole in other letters", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"ACME"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = true;
    });
    row("the whole, and case counts", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"ACME"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = f.matchCase = true;
    });
    row("the whole with the same letters", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = u"Acme"_s;
        r.item1 = u"Acme"_s;
        f.matchWhole = f.matchCase = true;
    });
    row("the second item", false, [](TimeFilter& f, CTRecord& r) {
        f.items[1] = u"x"_s;
        r.item1 = u"x"_s;
    });
    row("the second item matches", true, [](TimeFilter& f, CTRecord& r) {
        f.items[1] = u"x"_s;
        r.item2 = u"x"_s;
    });
    row("the third item", true, [](TimeFilter& f, CTRecord& r) {
        f.items[2] = u"x"_s;
        r.item3 = u"x"_s;
    });
    row("the fourth item", true, [](TimeFilter& f, CTRecord& r) {
        f.items[3] = u"x"_s;
        r.item4 = u"x"_s;
    });
    row("the fifth item", true, [](TimeFilter& f, CTRecord& r) {
        f.items[4] = u"x"_s;
        r.item5 = u"x"_s;
    });
    row("one of two items fails", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0] = f.items[4] = u"x"_s;
        r.item1 = u"x"_s;
    });
    row("an empty text occurs in every item", true, [](TimeFilter& f, CTRecord& r) {
        f.items[0].clear();
        r.item1 = u"Acme"_s;
    });
    row("an empty text as a whole wants an empty item", false, [](TimeFilter& f, CTRecord& r) {
        f.items[0].clear();
        r.item1 = u"Acme"_s;
        f.matchWhole = true;
    });
    row("billable wanted", true, [](TimeFilter& f, CTRecord& r) {
        f.billable = 1;
        r.isBillable = true;
    });
    row("billable wanted, isn't", false, [](TimeFilter& f, CTRecord&) { f.billable = 1; });
    row("billable unwanted", false, [](TimeFilter& f, CTRecord& r) {
        f.billable = 0;
        r.isBillable = true;
    });
    row("billable unwanted, isn't", true, [](TimeFilter& f, CTRecord&) { f.billable = 0; });
    row("billed wanted, isn't", false, [](TimeFilter& f, CTRecord& r) {
        f.billed = 1;
        r.isBillable = true;
    });
    row("billed wanted", true, [](TimeFilter& f, CTRecord& r) {
        f.billed = 1;
        r.isBilled = true;
    });
    row("exported wanted, isn't", false, [](TimeFilter& f, CTRecord& r) {
        f.exported = 1;
        r.isBilled = true;
    });
    row("exported wanted", true, [](TimeFilter& f, CTRecord& r) {
        f.exported = 1;
        r.isExported = true;
    });
    row("another number lets nothing pass, set", false, [](TimeFilter& f, CTRecord& r) {
        f.billable = 2;
        r.isBillable = true;
    });
    row("another number lets nothing pass, clear", false, [](TimeFilter& f, CTRecord&) { f.billable = 2; });
    row("a timer wanted", true, [](TimeFilter& f, CTRecord& r) {
        f.timer = 1;
        r.SetId(u"TIMED"_s);
    });
    row("a timer wanted, has none", false, [](TimeFilter& f, CTRecord& r) {
        f.timer = 1;
        r.SetId(u"OTHER"_s);
    });
    row("a timer unwanted", false, [](TimeFilter& f, CTRecord& r) {
        f.timer = 0;
        r.SetId(u"TIMED"_s);
    });
    row("a timer unwanted, has none", true, [](TimeFilter& f, CTRecord& r) {
        f.timer = 0;
        r.SetId(u"OTHER"_s);
    });
}

void TestTimeFilter::Criteria() {
    QFETCH(Change, change);
    TimeFilter filter;
    CTRecord record;
    change(filter, record);
    const OneTimer timers;
    QTEST(filter.Matches(record, Context(), &timers), "matches");
}

/// Of the client "Acme" and the notes "yeast".
void TestTimeFilter::Words_data() {
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("matches");
    QTest::newRow("none") << QString() << true;
    QTest::newRow("in an item and in the notes, in any case") << u"yeast ACM"_s << true;
    QTest::newRow("a part, whatever counts for items") << u"yea"_s << true;
    QTest::newRow("one of two is nowhere") << u"yeast bolt"_s << false;
}

void TestTimeFilter::Words() {
    QFETCH(QString, words);
    TimeFilter filter;
    filter.words = words;
    filter.matchWhole = filter.matchCase = true;
    CTRecord record;
    record.item1 = u"Acme"_s;
    record.notes = u"yeast"_s;
    QTEST(filter.Matches(record, Context(), nullptr), "matches");
}

void TestTimeFilter::WithoutTimers() {
    TimeFilter filter;
    CTRecord record;
    record.SetId(u"TIMED"_s);
    filter.timer = FlagCriterion::kClear;
    QVERIFY(filter.Matches(record, Context(), nullptr));
    filter.timer = FlagCriterion::kSet;
    QVERIFY(!filter.Matches(record, Context(), nullptr));
}

void TestTimeFilter::PreparedKeepsItsDates() {
    TimeFilter filter;
    QVERIFY(filter.ApplyPreset(1, Context()));
    const TimeFilter::Prepared prepared(filter, Context(), nullptr);
    filter.Reset();
    CTRecord record;
    record.date.Set(11, 19, 2026);
    QVERIFY(prepared.Matches(record));
    record.date.Set(11, 18, 2026);
    QVERIFY2(!prepared.Matches(record), "what was prepared stands by itself");
}

/// A lifetime of records by this month: a walk of well under a second.
void TestTimeFilter::MillionRecords() {
    std::vector<CTRecord> days(365);
    for (int i = 0; i < 365; ++i) days[static_cast<std::size_t>(i)].date.Set(1 + i / 31, 1 + i % 31, 2026);
    TimeFilter filter;
    QVERIFY(filter.ApplyPreset(4, Context()));
    const TimeFilter::Prepared prepared(filter, Context(), nullptr);
    int matching = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1'000'000; ++i)
        matching += prepared.Matches(days[static_cast<std::size_t>(i % 365)]) ? 1 : 0;
    const qint64 took = timer.elapsed();
    // November is 30 of the 365 days (place 310 to 339), 2739 whole rounds and 265 days of another.
    QCOMPARE(matching, 2739 * 30);
    QVERIFY2(took < 1000, qPrintable(QString::number(took)));
}

TEST_CLASS(TestTimeFilter);
#include "TestTimeFilter.moc"
