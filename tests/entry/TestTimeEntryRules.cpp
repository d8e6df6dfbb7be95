#include "entry/TimeEntryRules.h"

#include "app/CTimerService.h"
#include "config/Settings.h"
#include "entry/NewListItems.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CTRecord.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace TimeEntryRules;

namespace {

/// "09:05" or nothing.
std::optional<DateTimeVal> Time(const QString& text) {
    DateTimeVal time;
    if (text.isEmpty() || !time.ParseTimeText(text, true)) return std::nullopt;
    return time;
}

/// "1:30" or nothing.
std::optional<EnteredSpan> Span(const QString& text) {
    if (text.isEmpty()) return std::nullopt;
    return EnteredSpan{text.section(u':', 0, 0).toInt(), text.section(u':', 1, 1).toInt()};
}

/// "9:00-17:30 8:30", a dash for what isn't set; times in 24 hours.
QString Shown(const CTRecord& record) {
    const auto time = [](bool isSet, int hour12, int minute, bool isPm) {
        if (!isSet) return QStringLiteral("-");
        return QString::asprintf("%d:%02d", hour12 % 12 + (isPm ? 12 : 0), minute);
    };
    const SpanField& duration = record.spans.duration;
    return time(record.HasStart(), record.startHour, record.startMinute, record.startIsPm) + u' ' +
           time(record.HasEnd(), record.endHour, record.endMinute, record.endIsPm) + u' ' +
           (duration.IsSet() ? duration.clockText : QStringLiteral("-"));
}

/// A record as Shown writes it.
CTRecord Record(const QString& text) {
    const QStringList parts = text.split(u' ');
    CTRecord record;
    if (parts[2] != QStringLiteral("-")) {
        const EnteredSpan span = *Span(parts[2]);
        record.SetDurationOnly(span.hours, span.minutes);
    }
    if (const auto start = Time(parts[0])) {
        record.startHour = start->hour12;
        record.startMinute = start->minute;
        record.startIsPm = start->isPm != 0;
    }
    if (const auto end = Time(parts[1])) {
        record.endHour = end->hour12;
        record.endMinute = end->minute;
        record.endIsPm = end->isPm != 0;
    }
    return record;
}

class OneTimer final : public CTimerService {
 public:
    TimerState state = TimerState::None;
    [[nodiscard]] TimerState StateOf(const QString&) const override { return state; }
    bool RunNewTimerAction() override { return true; }
    bool StartFromZero(const QString&) override { return true; }
    [[nodiscard]] bool Drop(const QString&) override { return true; }
};

}  // namespace

/// Entered values and what the record makes of them. Records are written "start end duration".
class TestTimeEntryRules : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void MayEnter_data();
    void MayEnter();
    void Start_data();
    void Start();
    void End_data();
    void End();
    void Duration_data();
    void Duration();
    void ClearedDurationLeavesTheMoney();
    void Break_data();
    void Break();
    void FromTimer_data();
    void FromTimer();
    void Money_data();
    void Money();
    void MoneyFollowsTheTimes();
    void AcceptPage_data();
    void AcceptPage();
    void AcceptCutsItems();
};

void TestTimeEntryRules::MayEnter_data() {
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("may");
    QTest::newRow("no timer") << 4 << true;
    QTest::newRow("running") << 2 << false;
    QTest::newRow("paused") << 1 << false;
    QTest::newRow("stopped") << 0 << true;
}

void TestTimeEntryRules::MayEnter() {
    QFETCH(int, state);
    QFETCH(bool, may);
    OneTimer timers;
    timers.state = static_cast<TimerState>(state);
    CScriptedPrompt prompt;
    if (!may) prompt.ExpectTold(Text::TimesDrivenByTimer);
    QCOMPARE(MayEnterTimes(timers, QString(32, u'A'), &prompt), may);
    QCOMPARE(MayEnterTimes(timers, QString(32, u'A'), nullptr), may);
}

void TestTimeEntryRules::Start_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<bool>("isDurationLocked");
    QTest::addColumn<int>("roundType");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* situation, const char* before, const char* entered, bool locked, int type,
                        int minutes, const char* after) {
        QTest::newRow(situation) << QString::fromLatin1(before) << QString::fromLatin1(entered) << locked
                                 << type << minutes << QString::fromLatin1(after);
    };
    row("lock off: the duration follows", "8:00 10:00 2:00", "09:00", false, 0, 0, "9:00 10:00 1:00");
    row("lock on: the end follows", "8:00 10:00 2:00", "09:00", true, 0, 0, "9:00 11:00 2:00");
    row("lock off, but no end: the end follows the duration", "- - 1:00", "09:00", false, 0, 0,
        "9:00 10:00 1:00");
    row("an end over midnight", "- - 1:00", "23:30", false, 0, 0, "23:30 0:30 1:00");
    row("the duration derived back over midnight", "22:30 0:30 2:00", "23:30", false, 0, 0,
        "23:30 0:30 1:00");
    row("no duration, no end", "- - -", "09:00", false, 0, 0, "9:00 - -");
    row("start and end equal: no duration, not zero", "7:00 8:00 1:00", "08:00", false, 0, 0, "8:00 8:00 -");
    row("an end before the start in the morning: no duration", "7:00 8:00 1:00", "09:00", false, 0, 0,
        "9:00 8:00 -");
    row("an evening start an hour after the end: no duration", "7:00 19:00 12:00", "20:00", false, 0, 0,
        "20:00 19:00 -");
    row("cleared: nothing else changes", "8:00 10:00 2:00", "", false, 0, 0, "- 10:00 2:00");
    row("rounded up, and the duration from the rounded time", "8:00 10:00 2:00", "09:01", false, 16, 15,
        "9:15 10:00 0:45");
    row("rounded to the nearest", "8:00 10:00 2:00", "09:07", false, 32, 15, "9:00 10:00 1:00");
    row("rounding past noon", "8:00 14:00 6:00", "11:58", false, 16, 5, "12:00 14:00 2:00");
    row("rounding past midnight", "- - 1:00", "23:58", false, 16, 5, "0:00 1:00 1:00");
}

void TestTimeEntryRules::Start() {
    QFETCH(QString, before);
    QFETCH(QString, entered);
    QFETCH(bool, isDurationLocked);
    QFETCH(int, roundType);
    QFETCH(int, roundMinutes);
    QFETCH(QString, after);
    Settings settings;
    settings.lockDurationOnTimeEdit = isDurationLocked;
    settings.roundStartType = roundType;
    settings.roundStartMinutes = roundMinutes;
    settings.roundEndType = 16;
    settings.roundEndMinutes = 37;  // must not matter here
    CTRecord record = Record(before);
    QCOMPARE(Shown(record), before);
    EnterStart(record, Time(entered), settings);
    QCOMPARE(Shown(record), after);
}

void TestTimeEntryRules::End_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<bool>("isDurationLocked");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* situation, const char* before, const char* entered, bool locked,
                        int minutes, const char* after) {
        QTest::newRow(situation) << QString::fromLatin1(before) << QString::fromLatin1(entered) << locked
                                 << minutes << QString::fromLatin1(after);
    };
    row("lock off: the duration follows", "8:00 10:00 2:00", "11:00", false, 0, "8:00 11:00 3:00");
    row("lock on: the start follows", "8:00 10:00 2:00", "11:00", true, 0, "9:00 11:00 2:00");
    row("no start: the start follows the duration", "- - 1:30", "10:00", false, 0, "8:30 10:00 1:30");
    row("cleared: nothing else changes", "8:00 10:00 2:00", "", false, 0, "8:00 - 2:00");
    row("rounded up", "8:00 10:00 2:00", "10:01", false, 15, "8:00 10:15 2:15");
}

void TestTimeEntryRules::End() {
    QFETCH(QString, before);
    QFETCH(QString, entered);
    QFETCH(bool, isDurationLocked);
    QFETCH(int, roundMinutes);
    QFETCH(QString, after);
    Settings settings;
    settings.lockDurationOnTimeEdit = isDurationLocked;
    settings.roundEndType = 16;
    settings.roundEndMinutes = roundMinutes;
    settings.roundStartType = 16;
    settings.roundStartMinutes = 37;  // must not matter here
    CTRecord record = Record(before);
    EnterEnd(record, Time(entered), settings);
    QCOMPARE(Shown(record), after);
}

void TestTimeEntryRules::Duration_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<bool>("isStartLocked");
    QTest::addColumn<bool>("accumulate");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<bool>("isStepped");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* situation, const char* before, const char* entered, bool locked,
                        bool accumulate, int minutes, bool isStepped, const char* after) {
        QTest::newRow(situation) << QString::fromLatin1(before) << QString::fromLatin1(entered) << locked
                                 << accumulate << minutes << isStepped << QString::fromLatin1(after);
    };
    row("a start only, start locked", "8:00 - -", "1:30", true, false, 0, false, "8:00 9:30 1:30");
    row("a start only, start not locked", "8:00 - -", "1:30", false, false, 0, false, "8:00 9:30 1:30");
    row("an end only", "- 10:00 -", "1:30", true, false, 0, false, "8:30 10:00 1:30");
    row("both times, start locked: the end moves", "8:00 10:00 2:00", "3:00", true, false, 0, false,
        "8:00 11:00 3:00");
    row("both times, start not locked: the start moves", "8:00 10:00 2:00", "1:00", false, false, 0, false,
        "9:00 10:00 1:00");
    row("no times", "- - -", "1:00", true, false, 0, false, "- - 1:00");
    row("minutes of 60 and more carry", "- - -", "0:90", true, false, 0, false, "- - 1:30");
    row("over midnight", "23:30 - -", "1:00", true, false, 0, false, "23:30 0:30 1:00");
    row("more than a day", "- - -", "30:00", true, false, 0, false, "- - 30:00");
    row("cleared: the times stay", "8:00 10:00 2:00", "", true, false, 0, false, "8:00 10:00 -");
    row("cleared with accumulation on", "8:00 10:00 2:00", "", true, true, 0, false, "8:00 10:00 -");
    row("accumulated", "- - 1:50", "0:20", true, true, 0, false, "- - 2:10");
    row("accumulated, then rounded", "- - 1:50", "0:20", true, true, 15, false, "- - 2:15");
    row("accumulation without a former duration", "- - -", "0:20", true, true, 0, false, "- - 0:20");
    row("rounded up", "8:00 - -", "0:31", true, false, 15, false, "8:00 8:45 0:45");
    row("stepped: rounded, but not added up", "8:00 8:10 0:10", "0:31", true, true, 15, true,
        "8:00 8:45 0:45");
}

void TestTimeEntryRules::Duration() {
    QFETCH(QString, before);
    QFETCH(QString, entered);
    QFETCH(bool, isStartLocked);
    QFETCH(bool, accumulate);
    QFETCH(int, roundMinutes);
    QFETCH(bool, isStepped);
    QFETCH(QString, after);
    Settings settings;
    settings.lockStartOnDurationEdit = isStartLocked;
    settings.accumulateOnReentry = accumulate;
    settings.roundDurationType = 16;
    settings.roundDurationMinutes = roundMinutes;
    CTRecord record = Record(before);
    EnterDuration(record, Span(entered), settings, isStepped ? SpanSource::Stepped : SpanSource::Entered);
    QCOMPARE(Shown(record), after);
}

void TestTimeEntryRules::ClearedDurationLeavesTheMoney() {
    CTRecord record = Record(QStringLiteral("8:00 10:00 2:00"));
    record.SetBillable(true);
    record.SetRate(10);
    EnterDuration(record, std::nullopt, Settings());
    QVERIFY(!record.spans.effective.IsSet());
    QCOMPARE(record.amount.value, 20.0F);
}

void TestTimeEntryRules::Break_data() {
    QTest::addColumn<QString>("duration");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<bool>("accumulate");
    QTest::addColumn<int>("roundMinutes");
    QTest::addColumn<QString>("breakTime");
    QTest::addColumn<QString>("effective");
    const auto row = [](const char* situation, const char* duration, const char* before, const char* entered,
                        bool accumulate, int minutes, const char* after, const char* effective) {
        QTest::newRow(situation) << QString::fromLatin1(duration) << QString::fromLatin1(before)
                                 << QString::fromLatin1(entered) << accumulate << minutes
                                 << QString::fromLatin1(after) << QString::fromLatin1(effective);
    };
    row("a break", "8:00", "", "0:30", false, 0, "0:30", "7:30");
    row("a former break is replaced", "8:00", "1:00", "0:30", false, 0, "0:30", "7:30");
    row("accumulated", "8:00", "0:50", "0:20", true, 0, "1:10", "6:50");
    row("rounded as durations are", "8:00", "", "0:31", false, 15, "0:45", "7:15");
    row("cleared", "8:00", "0:30", "", false, 0, "--:--", "8:00");
    row("longer than the duration: no effective time", "2:00", "", "2:30", false, 0, "2:30", "--:--");
}

void TestTimeEntryRules::Break() {
    QFETCH(QString, duration);
    QFETCH(QString, before);
    QFETCH(QString, entered);
    QFETCH(bool, accumulate);
    QFETCH(int, roundMinutes);
    QFETCH(QString, breakTime);
    QFETCH(QString, effective);
    Settings settings;
    settings.accumulateOnReentry = accumulate;
    settings.roundDurationType = 16;
    settings.roundDurationMinutes = roundMinutes;
    CTRecord record = Record(QStringLiteral("- - ") + duration);
    if (const auto span = Span(before)) record.SetBreak(span->hours, span->minutes);
    EnterBreak(record, Span(entered), settings);
    QCOMPARE(record.spans.breakTime.clockText, breakTime);
    QCOMPARE(record.spans.effective.clockText, effective);
    QCOMPARE(record.spans.duration.clockText, duration);
}

void TestTimeEntryRules::FromTimer_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("fromTimer");
    QTest::addColumn<QString>("after");
    QTest::newRow("a live count isn't rounded") << "8:00 - -" << true << "8:00 8:31 0:31";
    QTest::newRow("the last count is rounded, and not added to the former")
        << "8:00 8:31 0:31" << false << "8:00 8:45 0:45";
}

void TestTimeEntryRules::FromTimer() {
    QFETCH(QString, before);
    QFETCH(bool, fromTimer);
    QFETCH(QString, after);
    Settings settings;
    settings.accumulateOnReentry = true;
    settings.roundDurationType = 16;
    settings.roundDurationMinutes = 15;
    CTRecord record = Record(before);
    SetFromTimer(record, 0, 31, fromTimer, settings);
    QCOMPARE(Shown(record), after);
}

void TestTimeEntryRules::Money_data() {
    QTest::addColumn<bool>("isBillable");
    QTest::addColumn<bool>("asRate");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("amount");
    QTest::newRow("a rate gives the amount") << true << true << "10" << true << 10.0 << 15.0;
    QTest::newRow("an amount gives the rate") << true << false << "30" << true << 20.0 << 30.0;
    QTest::newRow("a text that is no number") << true << true << "ten" << false << -1.0 << -1.0;
    QTest::newRow("an empty text") << true << false << "" << false << -1.0 << -1.0;
    QTest::newRow("a negative rate is no rate") << true << true << "-5" << true << -1.0 << -1.0;
    QTest::newRow("a record that isn't billable has no rate")
        << false << true << "10" << false << -1.0 << -1.0;
    QTest::newRow("nor an amount") << false << false << "10" << false << -1.0 << -1.0;
}

void TestTimeEntryRules::Money() {
    QFETCH(bool, isBillable);
    QFETCH(bool, asRate);
    QFETCH(QString, text);
    QFETCH(bool, taken);
    QFETCH(double, rate);
    QFETCH(double, amount);
    const RegionScope region{CRegionalInfo()};
    CTRecord record = Record(QStringLiteral("8:00 9:30 1:30"));
    record.SetBillable(isBillable);
    QCOMPARE(asRate ? EnterRate(record, text) : EnterAmount(record, text), taken);
    QCOMPARE(static_cast<double>(record.rate.value), rate);
    QCOMPARE(static_cast<double>(record.amount.value), amount);
}

void TestTimeEntryRules::MoneyFollowsTheTimes() {
    const RegionScope region{CRegionalInfo()};
    const Settings settings;
    CTRecord record = Record(QStringLiteral("8:00 9:30 1:30"));
    record.SetBillable(true);
    QVERIFY(EnterRate(record, QStringLiteral("10")));
    QCOMPARE(record.amount.value, 15.0F);
    QVERIFY(EnterAmount(record, QStringLiteral("30")));
    QCOMPARE(record.rate.value, 20.0F);
    QVERIFY(record.rateIsDerived);
    EnterDuration(record, EnteredSpan{3, 0}, settings);
    QCOMPARE(record.rate.value, 10.0F);
    QCOMPARE(record.amount.value, 30.0F);
    QVERIFY(EnterRate(record, QStringLiteral("10")));
    EnterBreak(record, EnteredSpan{3, 30}, settings);
    QCOMPARE(record.amount.value, -1.0F);  // it was derived, and there is no effective time
    QCOMPARE(record.rate.value, 10.0F);
}

void TestTimeEntryRules::AcceptPage_data() {
    QTest::addColumn<bool>("isBillable");
    QTest::addColumn<bool>("isBilled");
    QTest::addColumn<QString>("rateText");
    QTest::addColumn<QString>("amountText");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("amount");
    QTest::addColumn<bool>("billedAfter");
    QTest::newRow("both as typed, nothing recalculated") << true << true << "10"
                                                         << "99.5" << 10.0 << 99.5 << true;
    QTest::newRow("empty texts: no values") << true << false << ""
                                            << "" << -1.0 << -1.0 << false;
    QTest::newRow("texts that are no numbers") << true << false << "x"
                                               << "1.2.3" << -1.0 << -1.0 << false;
    QTest::newRow("negative numbers are no values") << true << false << "-2"
                                                    << "-3" << -1.0 << -1.0 << false;
    QTest::newRow("not billable: no money, not billed") << false << true << "10"
                                                        << "15" << -1.0 << -1.0 << false;
}

void TestTimeEntryRules::AcceptPage() {
    QFETCH(bool, isBillable);
    QFETCH(bool, isBilled);
    QFETCH(QString, rateText);
    QFETCH(QString, amountText);
    QFETCH(double, rate);
    QFETCH(double, amount);
    QFETCH(bool, billedAfter);
    const RegionScope region{CRegionalInfo()};
    CTRecord record = Record(QStringLiteral("8:00 9:30 1:30"));
    record.SetBillable(true);
    record.SetRate(7);
    EntryPage page;
    page.item1 = QStringLiteral("Client & Sons \"A\"");
    page.item2 = QStringLiteral("O'Brien");
    page.item3 = QStringLiteral("100%");
    page.item4 = QStringLiteral("ä\U0001F600");
    page.item5 = QStringLiteral("EUR");
    page.rate = rateText;
    page.amount = amountText;
    page.isBillable = isBillable;
    page.isBilled = isBilled;
    AcceptEntryPage(record, page, NewListItems());
    QCOMPARE(record.item1, page.item1);
    QCOMPARE(record.item2, page.item2);
    QCOMPARE(record.item3, page.item3);
    QCOMPARE(record.item4, page.item4);
    QCOMPARE(record.item5, page.item5);
    QCOMPARE(static_cast<double>(record.rate.value), rate);
    QCOMPARE(static_cast<double>(record.amount.value), amount);
    QCOMPARE(record.isBillable, isBillable);
    QCOMPARE(record.isBilled, billedAfter);
}

void TestTimeEntryRules::AcceptCutsItems() {
    const RegionScope region{CRegionalInfo()};
    CTRecord record;
    EntryPage page;
    page.item1 = QString(255, u'ä');
    page.item2 = QString(256, u'ä');
    page.item3 = QString(254, u'x') + QStringLiteral("\U0001F600");
    AcceptEntryPage(record, page, NewListItems());
    QCOMPARE(record.item1, QString(255, u'ä'));
    QCOMPARE(record.item2, QString(255, u'ä'));
    QCOMPARE(record.item3, QString(254, u'x'));
}

TEST_CLASS(TestTimeEntryRules);
#include "TestTimeEntryRules.moc"
