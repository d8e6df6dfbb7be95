#include "DocumentFixture.h"
#include "platform/host/CMessagePump.h"
#include "records/RecordFactory.h"
#include "support/TestProgram.h"

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Runs something at its calls, and asks to quit at one of them.
class ScriptedPump final : public CMessagePump {
 public:
    int quitAt = -1;
    int calls = 0;
    QList<int> waits;            ///< how many calls there were when a wait began or ended
    std::function<void()> work;  ///< at the second call, once

    void BeginWait() override { waits << calls; }
    void EndWait() override { waits << calls; }
    bool Pump() override {
        ++calls;
        if (calls == 2 && work) std::exchange(work, nullptr)();
        return calls != quitAt;
    }
};

/// Notes what happens, and whether the mode was still the former one then.
class Steps final : public CViewListener {
 public:
    explicit Steps(RecordMode former) : m_former(former) {}
    void OnHint(Hint hint, const QStringList&) override { Note(QString::number(static_cast<int>(hint))); }
    void Note(const QString& step) {
        seen.append(step + (theRecordMode == m_former ? u" former"_s : u" new"_s));
    }
    QStringList seen;

 private:
    RecordMode m_former;
};

}  // namespace

class TestCVelmarchDocLoad : public QObject {
    Q_OBJECT

    std::unique_ptr<DocumentFixture> fixture;
    CVelmarchDoc* document = nullptr;

    void ResetFilter(RecordKind kind) {
        if (kind == RecordKind::Time)
            document->ResetTimeFilter();
        else
            document->ResetExpenseFilter();
    }

 private Q_SLOTS:
    void initTestCase_data() { DocumentFixture::AddModes(); }
    void init() {
        QFETCH_GLOBAL(RecordMode, mode);
        fixture = std::make_unique<DocumentFixture>(mode);
        document = fixture->document;
    }
    void cleanup() { fixture.reset(); }

    // --- Loading

    void LoadRecords_data() {
        QTest::addColumn<int>("ours");
        QTest::addColumn<int>("others");
        QTest::newRow("an empty table gives no records and no message") << 0 << 0;
        QTest::newRow("one record") << 1 << 0;
        QTest::newRow("records of the other kind are left out") << 40 << 3;
        QTest::newRow("a store with records of the other kind only") << 0 << 3;
    }
    void LoadRecords() {
        QFETCH(int, ours);
        QFETCH(int, others);
        fixture->AddMany(ours, fixture->kind);
        fixture->AddMany(others, fixture->otherKind);
        document->LoadRecords(fixture->kind);
        QCOMPARE(document->RecordCount(), static_cast<std::size_t>(ours));
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QCOMPARE(fixture->Hints(), u"9"_s);
        document->BuildVisible();
        QCOMPARE(document->VisibleCount(), static_cast<std::size_t>(ours));
    }

    void LoadRecordsRowByRowWhereTheBulkPathFails() {
        for (int day = 1; day <= 5; ++day) fixture->AddOnDay(day, QString::number(day));
        fixture->SpoilBulkPath();
        document->LoadRecords(fixture->kind);
        document->BuildVisible();
        QCOMPARE(fixture->VisibleItems(), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
    }

    void LoadRecordsForgetsWhatIsPending() {
        QVERIFY(document->AddRecord(*fixture->OnDay(1), {Notify::Later, Commit::Now, Identity::New}));
        document->LoadRecords(fixture->kind);
        fixture->home.views.seen.clear();
        document->FlushPending(Hint::Added);
        QCOMPARE(fixture->Hints(), QString());
    }

    void QuitDuringALoad_data() {
        QTest::addColumn<bool>("bulkPath");
        QTest::addColumn<int>("quitAt");
        QTest::addColumn<int>("loaded");
        QTest::newRow("the bulk path ends after the current record") << true << 3 << 3;
        QTest::newRow("the row path ends after the current record") << false << 3 << 3;
        QTest::newRow("at the first record") << true << 1 << 1;
        QTest::newRow("at the last record") << true << 10 << 10;
    }
    void QuitDuringALoad() {
        QFETCH(bool, bulkPath);
        QFETCH(int, quitAt);
        fixture->AddMany(10, fixture->kind);
        if (!bulkPath) fixture->SpoilBulkPath();
        ScriptedPump pump;
        pump.quitAt = quitAt;
        CVelmarchDoc other(
            {*fixture->home.store, fixture->home.views, pump, fixture->home.clock, *fixture->home.settings});
        other.LoadRecords(fixture->kind);
        QTEST(static_cast<int>(other.RecordCount()), "loaded");
        QCOMPARE(pump.calls, quitAt);
        QCOMPARE(pump.waits, (QList<int>{0, quitAt}));
    }

    void CommandsServedDuringALoad_data() {
        QTest::addColumn<bool>("bulkPath");
        QTest::addColumn<bool>("loadsAnew");
        QTest::newRow("a lookup in the store, bulk path") << true << false;
        QTest::newRow("a lookup in the store, row path") << false << false;
        QTest::newRow("another load, bulk path") << true << true;
        QTest::newRow("another load, row path") << false << true;
    }
    void CommandsServedDuringALoad() {
        QFETCH(bool, bulkPath);
        QFETCH(bool, loadsAnew);
        const QString id = fixture->AddMany(10, fixture->kind);
        if (!bulkPath) fixture->SpoilBulkPath();
        ScriptedPump pump;
        CVelmarchDoc other(
            {*fixture->home.store, fixture->home.views, pump, fixture->home.clock, *fixture->home.settings});
        pump.work = [&] {
            if (loadsAnew) other.LoadRecords(fixture->kind);
            const auto record = NewRecord(fixture->kind);
            QVERIFY(fixture->home.store->ReadRecord(*record, id));
        };
        other.LoadRecords(fixture->kind);
        other.BuildVisible();
        QCOMPARE(other.RecordCount(), std::size_t{10});
        QCOMPARE(other.VisibleCount(), std::size_t{10});
        QVERIFY(other.DeleteRecord(fixture->kind, id, Notify::Later));
        QVERIFY(!other.DeleteRecord(fixture->kind, id, Notify::Later));
    }

    // --- Filter

    void BuildVisible() {
        fixture->AddOnDay(1, u"a"_s);
        fixture->AddOnDay(2, u"b"_s);
        fixture->Reload();
        QCOMPARE(fixture->VisibleItems(), QStringList({u"a"_s, u"b"_s}));
        fixture->ShowOnlyDay(2);
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});
        QCOMPARE(document->VisibleCount(), std::size_t{1});
        QCOMPARE(document->RecordCount(), std::size_t{2});
        QCOMPARE(fixture->Hints(), QString());
        fixture->Reload();
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});  // the filter keeps its state
        ResetFilter(fixture->otherKind);
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});
        ResetFilter(fixture->kind);
        QCOMPARE(document->VisibleCount(), std::size_t{2});
    }

    void TheOtherKindsFilterDoesNotCount() {
        fixture->AddOnDay(1, u"a"_s);
        document->FilterOf(fixture->otherKind).SetSingleDate(u"11/2/2026"_s, document->GetPeriodContext());
        document->BuildVisible();
        QCOMPARE(fixture->VisibleItems(), QStringList{u"a"_s});
    }

    void FilterOfTheMode() {
        const PeriodFilter& current = document->CurrentFilter();
        const bool isTime = fixture->kind == RecordKind::Time;
        QCOMPARE(&current == &document->Filter(), isTime);
        QCOMPARE(&current == &document->FilterOfExpenses(), !isTime);
    }

    void CollectIds() {
        fixture->AddOnDay(1);
        const QString id = fixture->AddOnDay(2);
        fixture->ShowOnlyDay(2);
        QStringList times{u"left from before"_s}, expenses{u"left from before"_s};
        document->CollectTimeIds(times);
        document->CollectExpenseIds(expenses);
        const bool isTime = fixture->kind == RecordKind::Time;
        QCOMPARE(times, isTime ? QStringList{id} : QStringList());
        QCOMPARE(expenses, isTime ? QStringList() : QStringList{id});
    }

    // --- Mode

    void SwitchMode_data() {
        QTest::addColumn<bool>("toTheOther");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("to the other mode: widths are captured while the former one is set")
            << true << u"9 former, widths former, 6 new"_s << QStringList{u"o"_s};
        QTest::newRow("to the mode in force: read anew, no widths")
            << false << u"9 former, 6 former"_s << QStringList{u"a"_s, u"b"_s};
    }
    void SwitchMode() {
        QFETCH(bool, toTheOther);
        fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        const RecordMode former = theRecordMode;
        const RecordMode other = former == RecordMode::Time ? RecordMode::Expense : RecordMode::Time;
        {
            DocumentFixture second(former, fixture->home.Path());  // another program adds one of each kind
            second.AddOnDay(2, u"b"_s);
            second.Add(*DocumentFixture::OnDay(3, u"o"_s, second.otherKind));
        }
        Steps steps(former);
        CNoPump pump;
        CVelmarchDoc own({*fixture->home.store, steps, pump, fixture->home.clock, *fixture->home.settings});
        own.SwitchMode(toTheOther ? other : former, [&steps] { steps.Note(u"widths"_s); });
        QTEST(steps.seen.join(u", "_s), "steps");
        QCOMPARE(theRecordMode, toTheOther ? other : former);
        QStringList items;
        own.ForEachVisible(
            [&items](const CVORec& record) { items.append(DocumentFixture::Item1Of(&record)); });
        items.sort();
        QTEST(items, "items");
        QCOMPARE(own.RecordCount(), own.VisibleCount());
    }

    void SwitchModeLeavesNothingOfTheOtherKindInMemory() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        document->SwitchMode(fixture->kind == RecordKind::Time ? RecordMode::Expense : RecordMode::Time);
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QVERIFY(!document->FindRecord(id));
        QCOMPARE(fixture->Hints(), u"9, 6"_s);
    }

    void SwitchModeForgetsWhatIsPending() {
        QVERIFY(document->AddRecord(*fixture->OnDay(1), {Notify::Later, Commit::Now, Identity::New}));
        document->SwitchMode(theRecordMode);
        fixture->home.views.seen.clear();
        document->FlushPending(Hint::Added);
        QCOMPARE(fixture->Hints(), QString());
    }

    void SwitchModeThatIsOvertakenByAnotherCommand() {
        fixture->AddMany(3, RecordKind::Time);
        fixture->AddMany(3, RecordKind::Expense);
        ScriptedPump pump;
        CVelmarchDoc own(
            {*fixture->home.store, fixture->home.views, pump, fixture->home.clock, *fixture->home.settings});
        const RecordMode former = theRecordMode;
        pump.work = [&own, former] { own.SwitchMode(former); };
        bool captured = false;
        own.SwitchMode(former == RecordMode::Time ? RecordMode::Expense : RecordMode::Time,
                       [&captured] { captured = true; });
        QCOMPARE(theRecordMode, former);
        QVERIFY(!captured);
        own.ForEachVisible([former](const CVORec& record) { QCOMPARE(record.Kind(), KindOf(former)); });
        QCOMPARE(own.VisibleCount(), std::size_t{3});
    }

    // --- One record from the store

    void FetchRecord_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("ofItsKind");
        QTest::addColumn<QString>("item1");
        QTest::newRow("a stored record") << u"stored"_s << true << u"a"_s;
        QTest::newRow("an unknown identity") << u"00000000000000000000000000000000"_s << true << u"absent"_s;
        QTest::newRow("the identity of another kind") << u"stored"_s << false << u"absent"_s;
        QTest::newRow("a text that is no identity") << u"' OR ''='"_s << true << u"absent"_s;
        QTest::newRow("an empty text") << QString() << true << u"absent"_s;
    }
    void FetchRecord() {
        QFETCH(QString, id);
        QFETCH(bool, ofItsKind);
        const QString stored = fixture->AddOnDay(1, u"a"_s);
        DocumentFixture second(theRecordMode, fixture->home.Path());
        CVelmarchDoc& fresh = *second.document;
        QTEST(DocumentFixture::Item1Of(fresh.FetchRecord(ofItsKind ? fixture->kind : fixture->otherKind,
                                                         id == u"stored"_s ? stored : id)),
              "item1");
        QCOMPARE(fresh.RecordCount(), std::size_t{0});
        QCOMPARE(fresh.VisibleCount(), std::size_t{0});
        QVERIFY(second.home.views.seen.isEmpty());
    }

    void FetchRecordSeesTheChangesOfAnotherProgram() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        DocumentFixture second(theRecordMode, fixture->home.Path());
        CVORec* fetched = second.document->FetchRecord(fixture->kind, id);
        QCOMPARE(DocumentFixture::Item1Of(fetched), u"a"_s);
        const auto changed = fixture->Changed(id, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now}));
        QCOMPARE(second.document->FetchRecord(fixture->kind, id), fetched);
        QCOMPARE(DocumentFixture::Item1Of(fetched), u"b"_s);
        QVERIFY(document->DeleteRecord(fixture->kind, id, Notify::Yes));
        QVERIFY(!second.document->FetchRecord(fixture->kind, id));
        QVERIFY(!second.document->FindRecord(id));
    }

    void ChangingAFetchedRecord() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        DocumentFixture second(theRecordMode, fixture->home.Path());
        CVelmarchDoc& fresh = *second.document;
        QVERIFY(fresh.FetchRecord(fixture->kind, id));
        const auto changed = second.Changed(id, 1, u"b"_s);
        QVERIFY(fresh.ModifyRecord(*changed, id, {Notify::Yes, Commit::Now}));
        QCOMPARE(DocumentFixture::Item1Of(fresh.FindRecord(id)), u"b"_s);
        QVERIFY(fresh.DeleteRecord(fixture->kind, id, Notify::Yes));
        QVERIFY(!fresh.FindRecord(id));
        fixture->Reload();
        QCOMPARE(document->RecordCount(), std::size_t{0});
    }

    // --- What another program changed

    void RefreshRecords_data() {
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("shownDay");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<int>("count");
        const QStringList both{u"a"_s, u"b"_s};
        QTest::newRow("nothing changed") << u"none"_s << 0 << u"14 A, 1 A"_s << both << 2;
        QTest::newRow("a changed record")
            << u"item"_s << 0 << u"14 A, 1 A"_s << QStringList{u"b"_s, u"c"_s} << 2;
        QTest::newRow("a deleted record") << u"delete"_s << 0 << u"12 A, 2 A"_s << QStringList{u"b"_s} << 1;
        QTest::newRow("a new record")
            << u"add"_s << 0 << u"0 C"_s << QStringList{u"a"_s, u"b"_s, u"n"_s} << 3;
        QTest::newRow("a record moved out of the shown day")
            << u"move"_s << 1 << u"12 A, 2 A"_s << QStringList{} << 2;
        QTest::newRow("a record moved into the shown day")
            << u"move"_s << 5 << u"14 A, 0 A"_s << QStringList{u"a"_s} << 2;
        QTest::newRow("a changed record that isn't shown")
            << u"item"_s << 2 << u"14 A, 1 A"_s << QStringList{u"b"_s} << 2;
        // The data tree counts it all the same.
        QTest::newRow("a new record that isn't shown")
            << u"add"_s << 2 << u"0 C"_s << QStringList{u"b"_s} << 3;
    }
    void RefreshRecords() {
        QFETCH(QString, change);
        QFETCH(int, shownDay);
        const QString a = fixture->AddOnDay(1, u"a"_s), b = fixture->AddOnDay(2, u"b"_s);
        fixture->Reload();
        if (shownDay != 0) fixture->ShowOnlyDay(shownDay);

        DocumentFixture second(theRecordMode, fixture->home.Path());
        CVelmarchDoc& context = *second.document;
        const auto added = fixture->OnDay(9, u"n"_s);
        QVERIFY(context.FetchRecord(fixture->kind, a));
        const auto record =
            second.Changed(a, change == u"move"_s ? 5 : 1, change == u"item"_s ? u"c"_s : u"a"_s);
        if (change == u"delete"_s)
            QVERIFY(context.DeleteRecord(fixture->kind, a, Notify::Yes));
        else if (change == u"add"_s)
            QVERIFY(context.AddRecord(*added, {Notify::Yes, Commit::Now}));
        else
            QVERIFY(context.ModifyRecord(*record, a, {Notify::Yes, Commit::Now}));

        const QString id = change == u"add"_s ? added->GetId() : a;
        QVERIFY(document->RefreshRecords(fixture->kind, {id, id}));
        QTEST(fixture->Hints({a, b, added->GetId()}), "told");
        QTEST(fixture->VisibleItems(), "items");
        QTEST(static_cast<int>(document->RecordCount()), "count");
    }

    void RefreshRecordsThatWasNotPossible_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("ofTheMode");
        QTest::addColumn<bool>("done");
        const QString absent = u"00000000000000000000000000000000"_s;
        QTest::newRow("a thousand identities") << 1000 << absent << true << true;
        QTest::newRow("a thousand and one: a whole refresh is due") << 1001 << absent << true << false;
        QTest::newRow("the other mode's records aren't in memory") << 1 << absent << false << true;
        QTest::newRow("a text that is no identity") << 1 << u"x"_s << true << false;
        QTest::newRow("nothing") << 0 << absent << true << true;
    }
    void RefreshRecordsThatWasNotPossible() {
        QFETCH(int, count);
        QFETCH(QString, id);
        QFETCH(bool, ofTheMode);
        fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        QTEST(
            document->RefreshRecords(ofTheMode ? fixture->kind : fixture->otherKind, QStringList(count, id)),
            "done");
        QCOMPARE(fixture->Hints(), QString());
        QCOMPARE(fixture->VisibleItems(), QStringList{u"a"_s});
    }
};

TEST_CLASS(TestCVelmarchDocLoad);
#include "TestCVelmarchDocLoad.moc"
