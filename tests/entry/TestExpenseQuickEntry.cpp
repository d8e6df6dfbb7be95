#include "app/CTimerService.h"
#include "entry/QuickEntry.h"
#include "records/CERecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Notes what is asked of the timers: nothing, for expenses.
class Timers final : public CTimerService {
 public:
    int calls = 0;
    [[nodiscard]] TimerState StateOf(const QString&) const override { return TimerState::None; }
    bool RunNewTimerAction() override { return ++calls > 0; }
    bool StartFromZero(const QString&) override { return ++calls > 0; }
    [[nodiscard]] bool Drop(const QString&) override { return ++calls > 0; }
    bool Keep(const QString&) override { return ++calls > 0; }
};

/// A home in expense mode with a user in front of a dialog. The clock stands at 9:05 on 19 November 2026.
struct Fixture {
    enum class Dialog { None, Accept, Cancel };

    TestHome home;
    RecordModeScope mode{RecordMode::Expense};
    Timers timers;
    Dialog dialog = Dialog::None;
    int dialogs = 0;
    QStringList selected;
    QuickEntryContext::Step fillFromDefaults;
    QuickEntryContext::Step fillFromTree;

    Fixture() { home.clock.Set(2026, 11, 19, 9, 5); }
    QuickOutcome Run(int flags) {
        const auto add = [this](const CVORec& record) {
            return home.document->AddRecord(record, {Notify::Yes, Commit::Now});
        };
        QuickEntryContext context{*home.document, timers,  *home.settings, home.clock,       add,
                                  selected,       nullptr, QString(),      fillFromDefaults, fillFromTree};
        if (dialog != Dialog::None)
            context.edit = [this](CVORec& record) {
                ++dialogs;
                static_cast<CERecord&>(record).notes = u"edited"_s;
                return dialog == Dialog::Accept;
            };
        return NewExpenseRecord(flags, context);
    }
    QString AddTaxi() {
        CERecord record;
        record.GenUnique();
        record.date.Set(11, 2, 2026);
        record.item1 = u"Acme"_s;
        record.isDistance = true;
        record.distance.Set(12.5F);
        record.rate.Set(0.5F);
        record.amount.Set(6.25F);
        record.odometerEnd = u"1120"_s;
        record.flag1 = record.flag5 = record.isExported = true;
        record.notes = u"to the airport"_s;
        if (!home.document->AddRecord(record, {Notify::Later, Commit::Now})) qFatal("no taxi");
        home.document->FlushPending(Hint::Added);
        return record.GetId();
    }
    /// "2026-11-19 Acme": date and first item.
    [[nodiscard]] QString Stored(const QString& id) {
        CERecord record;
        if (!home.store->ReadRecord(record, id)) return u"no record"_s;
        const QString date = record.date.IsSet() ? QString::asprintf("%d-%02d-%02d", record.date.year,
                                                                     record.date.month, record.date.day)
                                                 : u"-"_s;
        return date + u' ' + (record.item1.isEmpty() ? u"-"_s : record.item1);
    }
};

}  // namespace

class TestExpenseQuickEntry : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Commands_data();
    void Commands();
    void DateFromThePeriod_data();
    void DateFromThePeriod();
    void CopyTakesEveryField();
    void SelectionOfOne_data();
    void SelectionOfOne();
    void BaseThatGivesNothing_data();
    void BaseThatGivesNothing();
    void Dialog_data();
    void Dialog();
    void Cancel();
    void FailedAdd();
    void KindOfTheRecord();
};

void TestExpenseQuickEntry::Commands_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("stored");
    QTest::newRow("blank: the date by the period") << 1 << u"2026-11-10 -"_s;
    QTest::newRow("blank, timestamp: today") << 17 << u"2026-11-19 -"_s;
    QTest::newRow("blank, timestamp, timer: the same, with no timer") << 81 << u"2026-11-19 -"_s;
    QTest::newRow("blank, successive: the period's date, not the selected one's") << 33 << u"2026-11-10 -"_s;
    QTest::newRow("blank, successive, timer") << 97 << u"2026-11-10 -"_s;
    QTest::newRow("defaults") << 2 << u"2026-11-10 defaults"_s;
    QTest::newRow("defaults, timestamp") << 18 << u"2026-11-19 defaults"_s;
    QTest::newRow("defaults, timestamp, timer") << 82 << u"2026-11-19 defaults"_s;
    QTest::newRow("defaults, successive") << 34 << u"2026-11-10 defaults"_s;
    QTest::newRow("defaults, successive, timer") << 98 << u"2026-11-10 defaults"_s;
    QTest::newRow("tree") << 4 << u"2026-11-10 tree"_s;
    QTest::newRow("tree, timestamp") << 20 << u"2026-11-19 tree"_s;
    QTest::newRow("tree, timestamp, timer") << 84 << u"2026-11-19 tree"_s;
    QTest::newRow("copy, timestamp") << 24 << u"2026-11-19 Acme"_s;
    QTest::newRow("copy, timestamp, timer") << 88 << u"2026-11-19 Acme"_s;
    QTest::newRow("copy, successive") << 40 << u"2026-11-10 Acme"_s;
    QTest::newRow("copy, successive, timer") << 104 << u"2026-11-10 Acme"_s;
}

void TestExpenseQuickEntry::Commands() {
    QFETCH(int, flags);
    Fixture fixture;
    fixture.selected = {fixture.AddTaxi()};
    QVERIFY(fixture.home.document->FilterOfExpenses().SetSingleDate(
        u"11/10/2026"_s, fixture.home.document->GetPeriodContext()));
    const auto fill = [](const QString& from) {
        return [from](CVORec& record) {
            static_cast<CERecord&>(record).item1 = from;
            static_cast<CERecord&>(record).date.Set(1, 1, 2020);
            return true;
        };
    };
    fixture.fillFromDefaults = fill(u"defaults"_s);
    fixture.fillFromTree = fill(u"tree"_s);
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.succeeded);
    QVERIFY(outcome.addedId != fixture.selected.first());
    QTEST(fixture.Stored(outcome.addedId), "stored");
    QCOMPARE(fixture.home.views.seen.last().first, Hint::Added);
    QCOMPARE(fixture.home.views.seen.last().second, QStringList{outcome.addedId});
    QVERIFY(fixture.home.document->IsVisible(outcome.addedId));
    QCOMPARE(fixture.timers.calls, 0);
}

void TestExpenseQuickEntry::DateFromThePeriod_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("startText");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a single date") << 5 << u"02/29/2028"_s << u"2028-02-29 -"_s;
    QTest::newRow("a single date that can't be read: unset") << 5 << u"someday"_s << u"- -"_s;
    QTest::newRow("yesterday, over the year's end") << 16 << QString() << u"2026-12-31 -"_s;
    QTest::newRow("all: today") << 6 << QString() << u"2027-01-01 -"_s;
    QTest::newRow("last month is no single day: today") << 19 << u"12/01/2026"_s << u"2027-01-01 -"_s;
}

void TestExpenseQuickEntry::DateFromThePeriod() {
    QFETCH(int, preset);
    QFETCH(QString, startText);
    Fixture fixture;
    fixture.home.clock.Set(2027, 1, 1, 0, 0);
    fixture.home.document->FilterOfExpenses().preset = preset;
    fixture.home.document->FilterOfExpenses().startText = startText;
    fixture.home.document->Filter().preset = PeriodCode::kYesterday;  // of the other mode, doesn't count
    for (const int flags : {1, 33}) QTEST(fixture.Stored(fixture.Run(flags).addedId), "stored");
}

void TestExpenseQuickEntry::CopyTakesEveryField() {
    Fixture fixture;
    fixture.selected = {fixture.AddTaxi()};
    CERecord copy;
    QVERIFY(fixture.home.store->ReadRecord(copy, fixture.Run(24).addedId));
    QVERIFY(copy.isDistance);
    QCOMPARE(copy.distance.text, u"12.50"_s);
    QCOMPARE(copy.GetRateText(), u"0.500"_s);
    QCOMPARE(copy.GetAmountText(), u"6.25"_s);
    QCOMPARE(copy.odometerEnd, u"1120"_s);
    QVERIFY(copy.flag1 && copy.flag5 && copy.isExported && !copy.flag2);
    QCOMPARE(copy.notes, u"to the airport"_s);
}

void TestExpenseQuickEntry::SelectionOfOne_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("selected");
    QTest::addColumn<bool>("succeeded");
    QTest::newRow("copy, none selected") << 24 << 0 << false;
    QTest::newRow("copy, two selected") << 24 << 2 << false;
    QTest::newRow("copy, a record that is gone") << 40 << 1 << false;
    QTest::newRow("successive needs no selection: it takes nothing from it") << 33 << 0 << true;
    QTest::newRow("successive with two selected") << 33 << 2 << true;
}

void TestExpenseQuickEntry::SelectionOfOne() {
    QFETCH(int, flags);
    QFETCH(int, selected);
    QFETCH(bool, succeeded);
    Fixture fixture;
    for (int i = 0; i < selected; ++i) fixture.selected.append(fixture.AddTaxi());
    if (selected == 1)
        QVERIFY(fixture.home.document->DeleteRecord(RecordKind::Expense, fixture.selected[0], Notify::Later));
    const std::size_t before = fixture.home.document->RecordCount();
    const QuickOutcome outcome = fixture.Run(flags);
    QCOMPARE(outcome.succeeded, succeeded);
    QCOMPARE(outcome.addedId.isEmpty(), !succeeded);
    QCOMPARE(fixture.home.document->RecordCount(), before + (succeeded ? 1 : 0));
}

void TestExpenseQuickEntry::BaseThatGivesNothing_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<bool>("succeeded");
    QTest::newRow("defaults that were cancelled: done, with nothing") << 18 << true << true;
    QTest::newRow("no usable selection in the tree: failed") << 20 << true << false;
    QTest::newRow("no defaults to choose from: failed") << 2 << false << false;
    QTest::newRow("no tree: failed") << 4 << false << false;
}

void TestExpenseQuickEntry::BaseThatGivesNothing() {
    QFETCH(int, flags);
    QFETCH(bool, isThere);
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Accept;
    if (isThere) fixture.fillFromDefaults = fixture.fillFromTree = [](CVORec&) { return false; };
    const QuickOutcome outcome = fixture.Run(flags);
    QTEST(outcome.succeeded, "succeeded");
    QCOMPARE(outcome.addedId, QString());
    QCOMPARE(fixture.dialogs, 0);
    QCOMPARE(fixture.home.document->RecordCount(), std::size_t{0});
}

void TestExpenseQuickEntry::Dialog_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("dialogOnQuickEntry");
    QTest::addColumn<int>("dialogs");
    QTest::newRow("blank always opens the dialog") << 1 << false << 1;
    QTest::newRow("timestamp, dialog off: today's expense at once") << 17 << false << 0;
    QTest::newRow("timestamp with timer, dialog off: the same") << 81 << false << 0;
    QTest::newRow("timestamp, dialog on") << 17 << true << 1;
    QTest::newRow("successive, dialog off") << 33 << false << 0;
    QTest::newRow("successive, dialog on") << 33 << true << 1;
    QTest::newRow("copy with timestamp, dialog off") << 24 << false << 0;
    QTest::newRow("the timer's flag alone is nothing quick here") << 65 << false << 1;
}

void TestExpenseQuickEntry::Dialog() {
    QFETCH(int, flags);
    QFETCH(bool, dialogOnQuickEntry);
    QFETCH(int, dialogs);
    Fixture fixture;
    fixture.home.settings->dialogOnQuickEntry = dialogOnQuickEntry;
    fixture.selected = {fixture.AddTaxi()};
    fixture.dialog = Fixture::Dialog::Accept;
    const QuickOutcome outcome = fixture.Run(flags);
    QVERIFY(outcome.succeeded);
    QCOMPARE(fixture.dialogs, dialogs);
    CERecord record;
    QVERIFY(fixture.home.store->ReadRecord(record, outcome.addedId));
    QCOMPARE(record.notes == u"edited"_s, dialogs == 1);
    QCOMPARE(record.date.longText, u"11/19/2026"_s);
}

void TestExpenseQuickEntry::Cancel() {
    Fixture fixture;
    fixture.dialog = Fixture::Dialog::Cancel;
    const QuickOutcome outcome = fixture.Run(81);
    QVERIFY(outcome.succeeded);
    QCOMPARE(outcome.addedId, QString());
    QCOMPARE(fixture.dialogs, 1);
    QCOMPARE(fixture.home.document->RecordCount(), std::size_t{0});
    QCOMPARE(fixture.home.views.seen.size(), 0);
    QCOMPARE(fixture.timers.calls, 0);
}

void TestExpenseQuickEntry::FailedAdd() {
    Fixture fixture;
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=ON"));
    fixture.home.prompt.ExpectTold(Text::InsertFailed);
    const QuickOutcome outcome = fixture.Run(17);
    QVERIFY(fixture.home.manager.File().Execute("PRAGMA query_only=OFF"));
    QVERIFY(!outcome.succeeded);
    QCOMPARE(outcome.addedId, QString());
}

/// The kind decides, not the mode: the console makes both kinds in any mode.
void TestExpenseQuickEntry::KindOfTheRecord() {
    Fixture fixture;
    const auto add = [&fixture](const CVORec& record) {
        return fixture.home.document->AddRecord(record, {Notify::Yes, Commit::Now});
    };
    const QuickEntryContext context{
        *fixture.home.document, fixture.timers, *fixture.home.settings, fixture.home.clock, add, {}, {}};
    const QString time = NewRecordOf(RecordKind::Time, 17, context).addedId;
    const QString expense = NewRecordOf(RecordKind::Expense, 17, context).addedId;
    QVERIFY(fixture.home.document->FindTime(time));
    QVERIFY(fixture.home.document->FindExpense(expense));
    QCOMPARE(fixture.home.document->RecordCount(), std::size_t{1});  // the time record isn't of the mode
}

TEST_CLASS(TestExpenseQuickEntry);
#include "TestExpenseQuickEntry.moc"
