#include "entry/QuickEntry.h"

#include "config/CCfgStore.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/CRecordTimers.h"

#include <QTest>

namespace {

/// A home with timers and a user in front of a dialog. The clock stands at 9:05 on 19 November 2026.
struct Fixture {
    enum class Dialog { None, Accept, Cancel };

    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    Dialog dialog = Dialog::None;
    int dialogs = 0;
    QString dialogId;
    std::function<void()> whileOpen = [] {};
    QStringList selected;
    QString successiveId;
    QuickEntryContext::Step fillFromDefaults;
    QuickEntryContext::Step fillFromTree;
    QuickEntryContext::Step fillGiven;

    Fixture() {
        home.clock.Set(2026, 11, 19, 9, 5);
        home.document->SetTimers(&timers);
    }
    QuickOutcome Run(int flags) {
        const auto add = [this](const CVORec& record) {
            return home.document->AddRecord(record, {Notify::Yes, Commit::Now});
        };
        QuickEntryContext context{*home.document, timers,  *home.settings, home.clock,       add,
                                  selected,       nullptr, successiveId,   fillFromDefaults, fillFromTree};
        context.fillGiven = fillGiven;
        if (dialog != Dialog::None)
            context.edit = [this](CVORec& record) {
                ++dialogs;
                dialogId = record.GetId();
                CTRecord& edited = static_cast<CTRecord&>(record);
                // What was entered before is there again.
                edited.notes = edited.notes.isEmpty() ? QStringLiteral("edited") : edited.notes + u'!';
                whileOpen();
                return dialog == Dialog::Accept;
            };
        return NewTimeRecord(flags, context);
    }
    /// "2026-11-19 9:05 - -": date, start, end, duration.
    [[nodiscard]] QString Stored(const QString& id) {
        CTRecord record;
        if (!home.store->ReadRecord(record, id)) return QStringLiteral("no record");
        const auto time = [](bool isSet, int hour12, int minute, bool isPm) {
            if (!isSet) return QStringLiteral("-");
            return QString::asprintf("%d:%02d", hour12 % 12 + (isPm ? 12 : 0), minute);
        };
        const QString date = record.date.IsSet() ? QString::asprintf("%d-%02d-%02d", record.date.year,
                                                                     record.date.month, record.date.day)
                                                 : QStringLiteral("-");
        return date + u' ' + time(record.HasStart(), record.startHour, record.startMinute, record.startIsPm) +
               u' ' + time(record.HasEnd(), record.endHour, record.endMinute, record.endIsPm) + u' ' +
               (record.spans.duration.IsSet() ? record.spans.duration.clockText : QStringLiteral("-"));
    }
    [[nodiscard]] std::size_t Records() const { return home.document->RecordCount(); }
};

}  // namespace

class TestQuickEntry : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Blank_data();
    void Blank();
    void DateFromThePeriod_data();
    void DateFromThePeriod();
    void Successive_data();
    void Successive();
    void Copy_data();
    void Copy();
    void CopyTakesEveryField();
    void SelectionOfOne_data();
    void SelectionOfOne();
    void Bases_data();
    void Bases();
    void BaseThatGivesNothing_data();
    void BaseThatGivesNothing();
    void BasesThatAreNotThere();
    void SuccessiveOfAnotherThanTheCopy();
    void Timer();
    void TimerActionOnOthers();
    void Dialog_data();
    void Dialog();
    void CancelTakesTheTimerOut();
    void ActionOnOthersStaysAfterACancel();
    void FailedAddLeavesTheTimersAlone_data();
    void FailedAddLeavesTheTimersAlone();
    void FailedAddOpensTheDialog();
    void RecordWhoseTimerCantBeStarted();
    void FailedAddComesBackToTheDialog();
    void FailedAddIsGivenUp();
    void TimerIsSavedWithTheRecord();
};

void TestQuickEntry::Blank_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("stored");
    QTest::newRow("blank: today, no times") << 1 << "2026-11-19 - - -";
    QTest::newRow("timestamp: the present time, not rounded") << 17 << "2026-11-19 9:07 - -";
    QTest::newRow("timestamp with timer") << 81 << "2026-11-19 9:07 - -";
}

void TestQuickEntry::Blank() {
    QFETCH(int, flags);
    QFETCH(QString, stored);
    Fixture fixture;
    fixture.home.clock.Set(2026, 11, 19, 9, 7, 59);
    fixture.home.settings->roundStartType = 16;
    fixture.home.settings->roundStartMinutes = 15;
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.succeeded);
    QCOMPARE(fixture.Stored(outcome.addedId), stored);
    QCOMPARE(fixture.home.views.seen.last().first, Hint::Added);
    QCOMPARE(fixture.home.views.seen.last().second, QStringList{outcome.addedId});
    QCOMPARE(fixture.timers.HasTimer(outcome.addedId), (flags & 64) != 0);
}

void TestQuickEntry::DateFromThePeriod_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("startText");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a single date") << 5 << "02/29/2028"
                                   << "2028-02-29 - - -";
    QTest::newRow("a single date that can't be read") << 5 << "someday"
                                                      << "- - - -";
    QTest::newRow("yesterday, over the year's end") << 16 << ""
                                                    << "2026-12-31 - - -";
    QTest::newRow("all") << 6 << ""
                         << "2027-01-01 - - -";
    QTest::newRow("last month is no single day: today") << 19 << "12/01/2026"
                                                        << "2027-01-01 - - -";
}

void TestQuickEntry::DateFromThePeriod() {
    QFETCH(int, preset);
    QFETCH(QString, startText);
    QFETCH(QString, stored);
    Fixture fixture;
    fixture.home.clock.Set(2027, 1, 1, 0, 0);
    fixture.home.document->Filter().preset = preset;
    fixture.home.document->Filter().startText = startText;
    QCOMPARE(fixture.Stored(fixture.Run(1).addedId), stored);
}

void TestQuickEntry::Successive_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("addMinute");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a minute after the end") << "09:00"
                                            << "17:00" << true << "2026-11-02 17:01 - -";
    QTest::newRow("at the end") << "09:00"
                                << "17:00" << false << "2026-11-02 17:00 - -";
    QTest::newRow("past midnight the date stays") << "20:00"
                                                  << "23:59" << true << "2026-11-02 0:00 - -";
    QTest::newRow("past noon") << "09:00"
                               << "11:59" << true << "2026-11-02 12:00 - -";
    QTest::newRow("no end: no start") << "09:00"
                                      << "" << true << "2026-11-02 - - -";
}

void TestQuickEntry::Successive() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(bool, addMinute);
    QFETCH(QString, stored);
    Fixture fixture;
    fixture.home.settings->addMinuteOnSuccessive = addMinute;
    fixture.selected = {fixture.home.AddTime(2026, 11, 2, start, end)};
    QCOMPARE(fixture.Stored(fixture.Run(33).addedId), stored);
}

void TestQuickEntry::Copy_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("stored");
    QTest::newRow("timestamp: the two hours last again") << 24 << "07:00"
                                                         << "09:00"
                                                         << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("timestamp with timer") << 88 << "07:00"
                                          << "09:00"
                                          << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("successive: the two hours last again") << 40 << "07:00"
                                                          << "09:00"
                                                          << "2026-11-02 9:01 11:01 2:00";
    QTest::newRow("successive with timer") << 104 << "07:00"
                                           << "09:00"
                                           << "2026-11-02 9:01 11:01 2:00";
    QTest::newRow("successive of a record without an end has no start") << 40 << "07:00"
                                                                        << ""
                                                                        << "2026-11-02 - - -";
}

void TestQuickEntry::Copy() {
    QFETCH(int, flags);
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, stored);
    Fixture fixture;
    fixture.selected = {fixture.home.AddTime(2026, 11, 2, start, end)};
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.addedId != fixture.selected.first());
    QCOMPARE(fixture.Stored(outcome.addedId), stored);
    // The timer of the new record starts from zero, not from the copied duration.
    int hours = -1, minutes = -1, seconds = -1;
    QCOMPARE(fixture.set.GetElapsed(outcome.addedId, hours, minutes, seconds), (flags & 64) != 0);
    QCOMPARE(hours * 60 + minutes, 0);
}

void TestQuickEntry::CopyTakesEveryField() {
    Fixture fixture;
    CTRecord base;
    base.GenUnique();
    base.date.Set(11, 2, 2026);
    base.SetDuration(3, 15, false);
    base.SetBreak(0, 15);
    base.item1 = QStringLiteral("O'Brien");
    base.item5 = QStringLiteral("EUR");
    base.notes = QStringLiteral("long\nnotes");
    base.SetBillable(true);
    base.SetRate(50);
    base.isBilled = true;
    base.isExported = true;
    QVERIFY(fixture.home.document->AddRecord(base, {Notify::Yes, Commit::Now}));
    fixture.selected = {base.GetId()};
    CTRecord copy;
    QVERIFY(fixture.home.store->ReadRecord(copy, fixture.Run(24).addedId));
    QCOMPARE(copy.item1, base.item1);
    QCOMPARE(copy.item5, base.item5);
    QCOMPARE(copy.notes, base.notes);
    QCOMPARE(copy.spans.breakTime.clockText, QStringLiteral("0:15"));
    QCOMPARE(copy.rate.value, 50.0F);
    QCOMPARE(copy.amount.value, 150.0F);
    QVERIFY(copy.isBillable && copy.isBilled && copy.isExported);
}

void TestQuickEntry::SelectionOfOne_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("selected");
    QTest::newRow("successive, none selected") << 33 << 0;
    QTest::newRow("successive, two selected") << 33 << 2;
    QTest::newRow("successive with timer, none selected") << 97 << 0;
    QTest::newRow("copy, none selected") << 24 << 0;
    QTest::newRow("copy, two selected") << 24 << 2;
    QTest::newRow("copy with timer, a record that is gone") << 88 << 1;
}

void TestQuickEntry::SelectionOfOne() {
    QFETCH(int, flags);
    QFETCH(int, selected);
    Fixture fixture;
    for (int i = 0; i < selected; ++i) fixture.selected.append(fixture.home.AddTime(2026, 11, 2));
    if (selected == 1)
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Time, fixture.selected[0], Notify::Later));
    const std::size_t before = fixture.Records();
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(!outcome.succeeded);
    QVERIFY(outcome.addedId.isEmpty());
    QCOMPARE(fixture.Records(), before);
    QCOMPARE(fixture.set.Count(), 0);
}

void TestQuickEntry::Bases_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("stored");
    QTest::newRow("defaults: the date by the period") << 2 << "2026-11-19 - - 2:00";
    QTest::newRow("defaults, timestamp: two hours from now") << 18 << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("defaults, timestamp, timer") << 82 << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("defaults, successive") << 34 << "2026-11-02 17:01 19:01 2:00";
    QTest::newRow("defaults, successive, timer") << 98 << "2026-11-02 17:01 19:01 2:00";
    QTest::newRow("tree: the date by the period") << 4 << "2026-11-19 - - 2:00";
    QTest::newRow("tree, timestamp") << 20 << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("tree, timestamp, timer") << 84 << "2026-11-19 9:05 11:05 2:00";
    QTest::newRow("given, timestamp, timer") << 208 << "2026-11-19 9:05 11:05 2:00";
}

void TestQuickEntry::Bases() {
    QFETCH(int, flags);
    Fixture fixture;
    fixture.selected = {fixture.home.AddTime(2026, 11, 2, QStringLiteral("09:00"), QStringLiteral("17:00"))};
    QString source;
    const auto fill = [&source](const char* from) {
        return [&source, from](CVORec& filled) {
            auto& record = static_cast<CTRecord&>(filled);
            source = QString::fromLatin1(from);
            record.date.Set(1, 1, 2020);
            record.SetDurationOnly(2, 0);
            record.item2 = source;
            return true;
        };
    };
    fixture.fillFromDefaults = fill("defaults");
    fixture.fillFromTree = fill("tree");
    fixture.fillGiven = fill("given");
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.succeeded);
    QTEST(fixture.Stored(outcome.addedId), "stored");
    QCOMPARE(source, flags & 2     ? QStringLiteral("defaults")
                     : flags & 128 ? QStringLiteral("given")
                                   : QStringLiteral("tree"));
    QCOMPARE(fixture.home.document->FindTime(outcome.addedId)->item2, source);
    QCOMPARE(fixture.timers.HasTimer(outcome.addedId), (flags & 64) != 0);
}

void TestQuickEntry::BaseThatGivesNothing_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("succeeded");
    QTest::newRow("defaults that were cancelled: done, with nothing") << 2 << true;
    QTest::newRow("the same with a timer: none is started") << 82 << true;
    QTest::newRow("no usable selection in the tree: failed") << 4 << false;
    QTest::newRow("the same with a timer") << 84 << false;
    QTest::newRow("nothing can be given: failed") << 208 << false;
}

void TestQuickEntry::BaseThatGivesNothing() {
    QFETCH(int, flags);
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Accept;
    fixture.fillFromDefaults = fixture.fillFromTree = fixture.fillGiven = [](CVORec&) { return false; };
    const QuickOutcome outcome = fixture.Run(flags);
    QTEST(outcome.succeeded, "succeeded");
    QCOMPARE(outcome.addedId, QString());
    QCOMPARE(fixture.dialogs, 0);
    QCOMPARE(fixture.Records(), std::size_t(0));
    QCOMPARE(fixture.set.Count(), 0);
}

void TestQuickEntry::BasesThatAreNotThere() {
    Fixture fixture;
    for (const int flags : {2, 18, 82, 34, 98, 4, 20, 84, 208}) QVERIFY(!fixture.Run(flags).succeeded);
    QCOMPARE(fixture.Records(), std::size_t(0));
}

void TestQuickEntry::SuccessiveOfAnotherThanTheCopy() {
    Fixture fixture;
    fixture.selected = {fixture.home.AddTime(2026, 11, 2, QStringLiteral("07:00"), QStringLiteral("09:00"))};
    fixture.successiveId =
        fixture.home.AddTime(2026, 11, 5, QStringLiteral("12:00"), QStringLiteral("15:30"));
    QCOMPARE(fixture.Stored(fixture.Run(40).addedId), QStringLiteral("2026-11-05 15:31 17:31 2:00"));
}

void TestQuickEntry::Timer() {
    Fixture fixture;
    const QString id = fixture.Run(81).addedId;
    fixture.home.clock.Advance(95);
    fixture.timers.FoldAndStore();
    int hours = 0, minutes = 0, seconds = 0;
    QVERIFY(fixture.set.GetElapsed(id, hours, minutes, seconds));
    QCOMPARE(minutes * 60 + seconds, 95);
}

void TestQuickEntry::TimerActionOnOthers() {
    Fixture fixture;
    fixture.home.settings->timerOnNewTimer = 2;
    const QString first = fixture.Run(81).addedId;
    fixture.home.clock.Advance(30 * 60);
    const QString second = fixture.Run(81).addedId;
    QCOMPARE(fixture.Stored(first), QStringLiteral("2026-11-19 9:05 9:35 0:30"));
    QVERIFY(!fixture.timers.HasTimer(first));
    QVERIFY(fixture.timers.HasTimer(second));
}

void TestQuickEntry::Dialog_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("dialogOnQuickEntry");
    QTest::addColumn<int>("dialogs");
    QTest::newRow("blank always opens the dialog") << 1 << false << 1;
    QTest::newRow("timestamp, dialog off") << 17 << false << 0;
    QTest::newRow("timestamp, dialog on") << 17 << true << 1;
    QTest::newRow("timestamp with timer, dialog off") << 81 << false << 0;
    QTest::newRow("successive, dialog off") << 33 << false << 0;
    QTest::newRow("successive, dialog on") << 33 << true << 1;
    QTest::newRow("copy with timestamp, dialog off") << 24 << false << 0;
    QTest::newRow("copy with successive and timer, dialog on") << 104 << true << 1;
}

void TestQuickEntry::Dialog() {
    QFETCH(int, flags);
    QFETCH(bool, dialogOnQuickEntry);
    QFETCH(int, dialogs);
    Fixture fixture;
    fixture.home.settings->dialogOnQuickEntry = dialogOnQuickEntry;
    fixture.selected = {fixture.home.AddTime(2026, 11, 2, QStringLiteral("07:00"), QStringLiteral("09:00"))};
    fixture.dialog = Fixture::Dialog::Accept;
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.succeeded);
    QCOMPARE(fixture.dialogs, dialogs);
    CTRecord record;
    QVERIFY(fixture.home.store->ReadRecord(record, outcome.addedId));
    QCOMPARE(record.notes, dialogs == 1 ? QStringLiteral("edited") : QString());
    if (dialogs == 1) QCOMPARE(fixture.dialogId, outcome.addedId);
}

void TestQuickEntry::CancelTakesTheTimerOut() {
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Cancel;
    const QuickOutcome outcome = fixture.Run(81);
    QVERIFY(outcome.succeeded);
    QVERIFY(outcome.addedId.isEmpty());
    QCOMPARE(fixture.dialogs, 1);
    QCOMPARE(fixture.Records(), std::size_t(0));
    QCOMPARE(fixture.set.Count(), 0);
}

void TestQuickEntry::ActionOnOthersStaysAfterACancel() {
    Fixture fixture;
    const QString first = fixture.Run(81).addedId;
    fixture.home.settings->timerOnNewTimer = 1;
    fixture.dialog = Fixture::Dialog::Cancel;
    QVERIFY(fixture.Run(81).succeeded);
    QCOMPARE(static_cast<int>(fixture.timers.StateOf(first)), 1);
}

void TestQuickEntry::FailedAddLeavesTheTimersAlone_data() {
    QTest::addColumn<int>("action");
    QTest::newRow("which would have gone on") << 0;
    QTest::newRow("which would have been paused") << 1;
    QTest::newRow("which would have been stopped") << 2;
}

/// Without a dialog the record comes first: nothing happens to the timers for one that can't be stored.
void TestQuickEntry::FailedAddLeavesTheTimersAlone() {
    QFETCH(int, action);
    Fixture fixture;
    const QString other = fixture.Run(81).addedId;
    fixture.home.settings->timerOnNewTimer = action;
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=ON"));
    fixture.home.prompt.ExpectTold(Text::InsertFailed);
    const QuickOutcome outcome = fixture.Run(81);
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(!outcome.succeeded);
    QCOMPARE(outcome.addedId, QString());
    QCOMPARE(fixture.set.Count(), 1);
    QCOMPARE(fixture.timers.StateOf(other), TimerState::Running);
}

/// The command has a dialog, which is switched off for it: what can't be stored isn't lost.
void TestQuickEntry::FailedAddOpensTheDialog() {
    Fixture fixture;
    fixture.home.settings->dialogOnQuickEntry = false;
    fixture.dialog = Fixture::Dialog::Accept;
    fixture.whileOpen = [&fixture] { QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=OFF")); };
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=ON"));
    fixture.home.prompt.ExpectTold(Text::InsertFailed);
    const QuickOutcome outcome = fixture.Run(81);
    fixture.home.prompt.Finish();
    QVERIFY(outcome.succeeded && !outcome.lacksTimer);
    QCOMPARE(fixture.dialogs, 1);
    QCOMPARE(fixture.dialogId, outcome.addedId);
    QCOMPARE(fixture.Stored(outcome.addedId), QStringLiteral("2026-11-19 9:05 - -"));
    QCOMPARE(fixture.timers.StateOf(outcome.addedId), TimerState::Running);
}

/// The other timer can't be stopped into its record: the new record is there, without a timer, which is said.
void TestQuickEntry::RecordWhoseTimerCantBeStarted() {
    Fixture fixture;
    const QString other = fixture.Run(81).addedId;
    fixture.home.settings->timerOnNewTimer = 2;
    QVERIFY(
        fixture.home.manager.File().Execute("CREATE TRIGGER refuse BEFORE UPDATE ON time_velmarch BEGIN "
                                            "SELECT RAISE(ABORT, 'no'); END"));
    fixture.home.prompt.ExpectTold(Text::ModifyFailed);
    const QuickOutcome outcome = fixture.Run(81);
    fixture.home.prompt.Finish();
    QVERIFY(outcome.lacksTimer);
    QCOMPARE(fixture.Stored(outcome.addedId), QStringLiteral("2026-11-19 9:05 - -"));
    QCOMPARE(fixture.timers.StateOf(outcome.addedId), TimerState::None);
    QCOMPARE(fixture.timers.StateOf(other), TimerState::Running);
}

/// The disk is full at first; the second time there is room.
void TestQuickEntry::FailedAddComesBackToTheDialog() {
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Accept;
    fixture.whileOpen = [&fixture] {
        QVERIFY(fixture.home.manager.File().Execute(fixture.dialogs == 1 ? "PRAGMA query_only=ON"
                                                                         : "PRAGMA query_only=OFF"));
    };
    fixture.home.prompt.ExpectTold(Text::InsertFailed);
    const QuickOutcome outcome = fixture.Run(1);
    QVERIFY(outcome.succeeded);
    QCOMPARE(fixture.dialogs, 2);
    QCOMPARE(fixture.home.document->FindTime(outcome.addedId)->notes, QStringLiteral("edited!"));
}

void TestQuickEntry::FailedAddIsGivenUp() {
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Accept;
    fixture.whileOpen = [&fixture] {
        QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=ON"));
        if (fixture.dialogs == 2) fixture.dialog = Fixture::Dialog::Cancel;
    };
    fixture.home.prompt.ExpectTold(Text::InsertFailed);
    const QuickOutcome outcome = fixture.Run(81);
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(!outcome.succeeded);
    QCOMPARE(fixture.Records(), std::size_t(0));
    QCOMPARE(fixture.set.Count(), 0);
}

void TestQuickEntry::TimerIsSavedWithTheRecord() {
    Fixture fixture;
    const QString id = fixture.Run(81).addedId;
    TestHome next(fixture.home.Path());
    ActiveTimerSet set(next.clock);
    CRecordTimers timers(set, *next.document, *next.settings);
    QVERIFY(timers.RestoreTimers());
    QCOMPARE(static_cast<int>(timers.StateOf(id)), 2);
}

TEST_CLASS(TestQuickEntry);
#include "TestQuickEntry.moc"
