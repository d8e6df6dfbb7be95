#include "app/CVelmarchDoc.h"

#include "platform/CMessagePump.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"

#include <QTest>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Runs something at its calls, and asks to quit at one of them.
class ScriptedPump final : public CMessagePump {
 public:
    int quitAt = -1;
    int calls = 0;
    std::function<void()> work;  ///< at the second call, once

    bool Pump() override {
        ++calls;
        if (calls == 2 && work) std::exchange(work, nullptr)();
        return calls != quitAt;
    }
};

/// A time record on a day of November 2026.
CTRecord OnDay(int day, const QString& item1 = {}) {
    CTRecord record;
    record.GenUnique();
    record.date.Set(11, day, 2026);
    record.item1 = item1;
    return record;
}

/// The hints so far as "14 A, 1 A", with the letters of the identities in order of their naming; forgets
/// them.
QString Hints(TestHome& home, const QStringList& ids = {}) {
    QStringList told;
    for (const auto& [hint, carried] : home.views.seen) {
        QString one = QString::number(static_cast<int>(hint));
        for (const QString& id : carried) one += u' ' + QChar(static_cast<char16_t>(u'A' + ids.indexOf(id)));
        told.append(one);
    }
    home.views.seen.clear();
    return told.join(u", "_s);
}

QStringList VisibleItems(const CVelmarchDoc& document) {
    QStringList items;
    document.ForEachVisible(
        [&items](const CVORec& record) { items.append(static_cast<const CTRecord&>(record).item1); });
    items.sort();
    return items;
}

QString Item1Of(const CVORec* record) {
    return record ? static_cast<const CTRecord*>(record)->item1 : u"absent"_s;
}

/// What no item can hold: one character more than the column.
QString TooLong() {
    return QString(256, u'x');
}

}  // namespace

class TestCVelmarchDoc : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CVelmarchDoc* document = nullptr;

    QString Add(const CTRecord& record) {
        QString id;
        if (!document->AddRecord(record, false, false, false, &id)) qFatal("a record can't be added");
        document->FlushPending(Hint::Added);
        home->views.seen.clear();
        return id;
    }
    QString AddOnDay(int day, const QString& item1 = {}) { return Add(OnDay(day, item1)); }

    void ShowOnlyDay(int day) {
        document->Filter().SetSingleDate(u"11/%1/2026"_s.arg(day), document->PeriodNeeds());
        document->BuildVisible();
    }
    void Reload() {
        document->LoadCurrentMode();
        document->BuildVisible();
        home->views.seen.clear();
    }
    /// The table gets a column that no record knows: the bulk path refuses such rows.
    void SpoilBulkPath() {
        QVERIFY(home->manager.File().Execute("ALTER TABLE time_velmarch ADD COLUMN extra"));
    }

 private Q_SLOTS:
    void init() {
        home = std::make_unique<TestHome>();
        document = home->document.get();
    }
    void cleanup() {
        home->prompt.Finish();
        home.reset();
    }

    // --- Loading

    void LoadRecords_data() {
        QTest::addColumn<int>("times");
        QTest::addColumn<int>("expenses");
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<int>("loaded");
        QTest::newRow("an empty table gives no records and no message") << 0 << 0 << RecordKind::Time << 0;
        QTest::newRow("one time record") << 1 << 0 << RecordKind::Time << 1;
        QTest::newRow("time records leave the expenses out") << 40 << 3 << RecordKind::Time << 40;
        QTest::newRow("expenses leave the time records out") << 40 << 3 << RecordKind::Expense << 3;
        QTest::newRow("an empty table of expenses") << 2 << 0 << RecordKind::Expense << 0;
    }
    void LoadRecords() {
        QFETCH(int, times);
        QFETCH(int, expenses);
        QFETCH(RecordKind, kind);
        for (int i = 0; i < times; ++i) AddOnDay(1 + i % 28);
        for (int i = 0; i < expenses; ++i) {
            CERecord expense;
            QVERIFY(document->AddRecord(expense, false, false, true));
        }
        document->FlushPending(Hint::Added);
        home->views.seen.clear();
        QVERIFY(document->LoadRecords(kind));
        QTEST(static_cast<int>(document->RecordCount()), "loaded");
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QCOMPARE(Hints(*home), u"9"_s);
    }

    void LoadRecordsRowByRowWhereTheBulkPathFails() {
        for (int day = 1; day <= 5; ++day) AddOnDay(day, QString::number(day));
        SpoilBulkPath();
        QVERIFY(document->LoadRecords(RecordKind::Time));
        document->BuildVisible();
        QCOMPARE(VisibleItems(*document), QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
    }

    void LoadRecordsForgetsWhatIsPending() {
        QVERIFY(document->AddRecord(OnDay(1), false, false, true));
        document->LoadRecords(RecordKind::Time);
        home->views.seen.clear();
        document->FlushPending(Hint::Added);
        QCOMPARE(Hints(*home), QString());
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
        for (int i = 0; i < 10; ++i) AddOnDay(1);
        if (!bulkPath) SpoilBulkPath();
        ScriptedPump pump;
        pump.quitAt = quitAt;
        CVelmarchDoc other({*home->store, home->views, pump, home->clock, *home->settings});
        other.LoadRecords(RecordKind::Time);
        QTEST(static_cast<int>(other.RecordCount()), "loaded");
        QCOMPARE(pump.calls, quitAt);
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
        QString id;
        for (int i = 0; i < 10; ++i) id = AddOnDay(1);
        if (!bulkPath) SpoilBulkPath();
        ScriptedPump pump;
        CVelmarchDoc other({*home->store, home->views, pump, home->clock, *home->settings});
        pump.work = [&] {
            if (loadsAnew) other.LoadRecords(RecordKind::Time);
            CTRecord record;
            QVERIFY(home->store->ReadRecord(record, id));
        };
        other.LoadRecords(RecordKind::Time);
        other.BuildVisible();
        QCOMPARE(other.RecordCount(), std::size_t{10});
        QCOMPARE(other.VisibleCount(), std::size_t{10});
        QVERIFY(other.DeleteRecord(RecordKind::Time, id, false));
        QVERIFY(!other.DeleteRecord(RecordKind::Time, id, false));
    }

    void LoadDays_data() {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("some days, both ends included") << 2 << 4 << QStringList{u"2"_s, u"3"_s, u"4"_s};
        QTest::newRow("one day") << 5 << 5 << QStringList{u"5"_s};
        QTest::newRow("days without records") << 20 << 25 << QStringList{};
        QTest::newRow("the last before the first") << 4 << 2 << QStringList{};
    }
    void LoadDays() {
        QFETCH(int, first);
        QFETCH(int, last);
        for (int day = 1; day <= 6; ++day) AddOnDay(day, QString::number(day));
        DateTimeVal from, to;
        QVERIFY(from.SetDate(11, first, 2026));
        QVERIFY(to.SetDate(11, last, 2026));
        QVERIFY(document->LoadDays(RecordKind::Time, from, to));
        document->BuildVisible();
        QTEST(VisibleItems(*document), "items");
    }

    // --- Filter

    void BuildVisible() {
        AddOnDay(1, u"a"_s);
        AddOnDay(2, u"b"_s);
        Reload();
        QCOMPARE(VisibleItems(*document), QStringList({u"a"_s, u"b"_s}));
        ShowOnlyDay(2);
        QCOMPARE(VisibleItems(*document), QStringList{u"b"_s});
        QCOMPARE(document->VisibleCount(), std::size_t{1});
        QCOMPARE(document->RecordCount(), std::size_t{2});
        QCOMPARE(Hints(*home), QString());
        Reload();
        QCOMPARE(VisibleItems(*document), QStringList{u"b"_s});  // the filter keeps its state
        document->ResetTimeFilter();
        QCOMPARE(document->VisibleCount(), std::size_t{2});
    }

    void CollectTimeIds() {
        AddOnDay(1);
        const QString id = AddOnDay(2);
        ShowOnlyDay(2);
        QStringList ids{u"left from before"_s};
        document->CollectTimeIds(ids);
        QCOMPARE(ids, QStringList{id});
    }

    void ExpensesPassTheTimeFilter() {
        CERecord expense;
        expense.date.Set(1, 1, 2020);
        QVERIFY(document->AddRecord(expense, false, false, true));
        ShowOnlyDay(2);
        const RecordModeScope mode(RecordMode::Expense);
        Reload();
        QCOMPARE(document->VisibleCount(), std::size_t{1});
    }

    // --- Adding

    void AddRecord_data() {
        QTest::addColumn<bool>("notify");
        QTest::addColumn<bool>("newIdentity");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("toldByFlush");
        QTest::newRow("alone, the views hear of it at once") << true << false << u"0 A"_s << QString();
        QTest::newRow("in a batch, the views hear of it at its end")
            << false << false << QString() << u"0 A"_s;
        QTest::newRow("under a new identity") << true << true << u"0 A"_s << QString();
    }
    void AddRecord() {
        QFETCH(bool, notify);
        QFETCH(bool, newIdentity);
        const CTRecord record = OnDay(1, u"work"_s);
        const QString given = record.GetId();
        QString id;
        QVERIFY(document->AddRecord(record, notify, false, newIdentity, &id));
        QTEST(Hints(*home, {id}), "told");
        document->FlushPending(Hint::Added);
        QTEST(Hints(*home, {id}), "toldByFlush");
        QCOMPARE(record.GetId(), given);
        QCOMPARE(id == given, !newIdentity);
        QVERIFY(document->FindRecord(id) != &record);
        QCOMPARE(Item1Of(document->FindRecord(id)), u"work"_s);
        Reload();
        QCOMPARE(Item1Of(document->FindRecord(id)), u"work"_s);
    }

    void AddRecordThatDoesNotPassTheFilter() {
        ShowOnlyDay(2);
        AddOnDay(1, u"a"_s);
        QCOMPARE(VisibleItems(*document), QStringList{u"a"_s});
        document->BuildVisible();
        QCOMPARE(VisibleItems(*document), QStringList());
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordThatCanNotBeStored() {
        AddOnDay(1, u"a"_s);
        home->prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!document->AddRecord(OnDay(2, TooLong()), true, false, true));
        QCOMPARE(Hints(*home), QString());
        QCOMPARE(VisibleItems(*document), QStringList{u"a"_s});
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordOfTheOtherModeStaysApart() {
        CERecord expense;
        expense.item1 = u"taxi"_s;
        QString id;
        QVERIFY(document->AddRecord(expense, false, false, true, &id));
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QVERIFY(document->FindRecord(id));
        QVERIFY(!document->FindTime(id));
    }

    void RecordsOfListsAreNoneOfTheDocuments() {
        const CPRecord item(u"a"_s);
        QVERIFY(!CVelmarchDoc::CloneRecord(item));
        QVERIFY(!document->AddRecord(item, true, false, true));
        QCOMPARE(Hints(*home), QString());
    }

    // --- Changing

    void ModifyRecord_data() {
        QTest::addColumn<bool>("notify");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("toldByFlush");
        QTest::newRow("alone, the views hear before and after") << true << u"14 B, 1 B"_s << QString();
        QTest::newRow("in a batch, the views hear at its end") << false << QString() << u"1 B"_s;
    }
    void ModifyRecord() {
        QFETCH(bool, notify);
        const QString other = AddOnDay(1, u"a"_s), id = AddOnDay(2, u"b"_s);
        Reload();
        CTRecord changed = *document->FindTime(id);
        changed.item1 = u"c"_s;
        QVERIFY(document->ModifyRecord(changed, id, notify, false, true, true));
        QTEST(Hints(*home, {other, id}), "told");
        QCOMPARE(VisibleItems(*document), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(Item1Of(document->FindRecord(id)), u"c"_s);
        document->FlushPending(Hint::Changed);
        QTEST(Hints(*home, {other, id}), "toldByFlush");
        Reload();
        QCOMPARE(VisibleItems(*document), QStringList({u"a"_s, u"c"_s}));
    }

    void ModifyRecordThatNoLongerPassesTheFilter() {
        const QString id = AddOnDay(1, u"a"_s);
        ShowOnlyDay(1);
        QVERIFY(document->IsVisible(id));
        CTRecord moved = *document->FindTime(id);
        moved.date.Set(11, 2, 2026);
        QVERIFY(document->ModifyRecord(moved, id, true, false, true, true));
        QVERIFY(document->IsVisible(id));
        document->BuildVisible();
        QVERIFY(!document->IsVisible(id));
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void ModifyRecordThatCanNotBeStored() {
        const QString id = AddOnDay(1, u"a"_s);
        Reload();
        CTRecord changed = *document->FindTime(id);
        changed.item1 = TooLong();
        home->prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(!document->ModifyRecord(changed, id, true, false, true, true));
        QCOMPARE(Hints(*home, {id}), u"14 A"_s);
        QCOMPARE(VisibleItems(*document), QStringList{TooLong()});
        QCOMPARE(Item1Of(document->FindRecord(id)), u"a"_s);

        changed.item1 = u"b"_s;
        QVERIFY(document->ModifyRecord(changed, id, true, false, true, true));
        QCOMPARE(VisibleItems(*document), QStringList{u"b"_s});
        home->prompt.ExpectTold(Text::ModifyFailed);
        changed.item1 = TooLong();
        QVERIFY(!document->ModifyRecord(changed, id, true, false, true, true));
        document->NotifyViews(Hint::Rebuild);  // without BuildVisible: columns changed
        QCOMPARE(VisibleItems(*document), QStringList{TooLong()});
        document->BuildVisible();
        document->NotifyViews(Hint::Rebuild);
        QCOMPARE(VisibleItems(*document), QStringList{u"b"_s});
    }

    void ModifyRecordGivenTheObjectItselfAndItsOwnIdentity() {
        const QString id = AddOnDay(1, u"a"_s);
        CTRecord* record = document->FindTime(id);
        record->item1 = u"b"_s;
        QVERIFY(document->ModifyRecord(*record, record->GetId(), true, false, true, true));
        QCOMPARE(Item1Of(document->FindRecord(id)), u"b"_s);
    }

    void ModifyRecordOfAKindThatIsNotLoaded() {
        const QString id = AddOnDay(1, u"a"_s);
        const CTRecord changed = [&] {
            CTRecord record = *document->FindTime(id);
            record.item1 = u"b"_s;
            return record;
        }();
        const RecordModeScope mode(RecordMode::Expense);
        Reload();
        QVERIFY(document->ModifyRecord(changed, id, true, false, true, false));
        QCOMPARE(Hints(*home, {id}), u"14 A, 1 A"_s);
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(Item1Of(document->FetchRecord(RecordKind::Time, id)), u"b"_s);
    }

    void ModifyRecordWithoutKeepingItInMemory() {
        const QString id = AddOnDay(1, u"a"_s);
        Reload();
        CTRecord changed = *document->FindTime(id);
        changed.item1 = u"b"_s;
        QVERIFY(document->ModifyRecord(changed, id, true, false, true, false));
        QCOMPARE(VisibleItems(*document), QStringList{u"b"_s});
        QCOMPARE(Item1Of(document->FindRecord(id)), u"a"_s);
        Reload();
        QCOMPARE(Item1Of(document->FindRecord(id)), u"b"_s);
    }

    // --- Deleting

    void DeleteRecord_data() {
        QTest::addColumn<bool>("notify");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("toldByFlush");
        QTest::newRow("alone, the views hear before and after") << true << u"12 B, 2 B"_s << QString();
        QTest::newRow("in a batch, the views hear at its end") << false << QString() << u"2 B"_s;
    }
    void DeleteRecord() {
        QFETCH(bool, notify);
        const QString a = AddOnDay(1, u"a"_s), b = AddOnDay(2, u"b"_s), c = AddOnDay(3, u"c"_s);
        Reload();
        QVERIFY(document->DeleteRecord(RecordKind::Time, b, notify));
        QTEST(Hints(*home, {a, b, c}), "told");
        document->FlushPending(Hint::Deleted);
        QTEST(Hints(*home, {a, b, c}), "toldByFlush");
        QCOMPARE(VisibleItems(*document), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(document->VisibleCount(), std::size_t{2});
        QVERIFY(!document->FindRecord(b));
        Reload();
        QCOMPARE(document->RecordCount(), std::size_t{2});
    }

    void DeleteRecordGivenItsOwnIdentity() {
        const QString id = AddOnDay(1);
        QVERIFY(document->DeleteRecord(RecordKind::Time, document->FindRecord(id)->GetId(), true));
        QCOMPARE(Hints(*home, {id}), u"12 A, 2 A"_s);
    }

    void DeleteRecordThatIsAbsent_data() {
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("from a loaded collection: refused") << true << false;
        QTest::newRow("where nothing is loaded: the store's word counts") << false << true;
    }
    void DeleteRecordThatIsAbsent() {
        QFETCH(bool, loaded);
        if (loaded) Reload();
        QTEST(document->DeleteRecord(RecordKind::Time, OnDay(1).GetId(), true), "deleted");
    }

    void DeleteRecordThatTheStoreKeeps() {
        const QString id = AddOnDay(1, u"a"_s);
        Reload();
        QVERIFY(home->manager.File().Execute("ALTER TABLE time_velmarch RENAME TO elsewhere"));
        home->prompt.ExpectTold(Text::DeleteFailed);
        QVERIFY(!document->DeleteRecord(RecordKind::Time, id, true));
        QCOMPARE(Hints(*home, {id}), u"12 A"_s);
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QVERIFY(document->FindRecord(id));
    }

    // --- Batches

    void FlushPending_data() {
        QTest::addColumn<int>("changes");
        QTest::addColumn<QString>("told");
        QTest::newRow("nothing pending sends nothing") << 0 << QString();
        QTest::newRow("one") << 1 << u"1 A"_s;
        QTest::newRow("several, one hint in the order of the changes") << 3 << u"1 A B C"_s;
    }
    void FlushPending() {
        QFETCH(int, changes);
        QStringList ids;
        for (int i = 0; i < 3; ++i) ids.append(AddOnDay(1 + i));
        Reload();
        for (int i = 0; i < changes; ++i) {
            const CTRecord record = *document->FindTime(ids[i]);
            QVERIFY(document->ModifyRecord(record, ids[i], false, false, true, true));
        }
        QCOMPARE(Hints(*home), QString());
        document->FlushPending(Hint::Changed);
        QTEST(Hints(*home, ids), "told");
        document->FlushPending(Hint::Changed);
        QCOMPARE(Hints(*home), QString());
    }

    void BatchWithinABatch() {
        const QString outer = AddOnDay(1, u"a"_s), inner = AddOnDay(2, u"b"_s);
        Reload();
        const CVORec* former = document->FindRecord(outer);
        CTRecord changed = *document->FindTime(outer);
        changed.item1 = u"c"_s;
        QVERIFY(document->ModifyRecord(changed, outer, false, false, true, true));
        const qsizetype waiting = document->PendingCount();
        QCOMPARE(waiting, qsizetype{1});
        const CTRecord record = *document->FindTime(inner);
        QVERIFY(document->ModifyRecord(record, inner, false, false, true, true));
        QCOMPARE(document->TakePending(waiting), QStringList{inner});
        document->NotifyViews(Hint::Changed, {inner});
        QCOMPARE(Item1Of(former), u"a"_s);  // its own hint is still to come
        QCOMPARE(document->TakePending(0), QStringList{outer});
        QCOMPARE(document->PendingCount(), qsizetype{0});
    }

    void RecordsOfABatchLiveUntilTheViewsAreTold() {
        const QString id = AddOnDay(1, u"a"_s), other = AddOnDay(2, u"b"_s);
        Reload();
        const CVORec* shown = document->FindRecord(id);
        const CVORec* deleted = document->FindRecord(other);
        CTRecord changed = *document->FindTime(id);
        changed.item1 = u"c"_s;
        QVERIFY(document->ModifyRecord(changed, id, false, false, true, true));
        QVERIFY(document->DeleteRecord(RecordKind::Time, other, false));
        QVERIFY(document->AddRecord(OnDay(3), true, false, true));
        QCOMPARE(Item1Of(shown), u"a"_s);
        QCOMPARE(Item1Of(deleted), u"b"_s);
    }

    void DeletesOfABatchAreDurableTogether() {
        const QString a = AddOnDay(1), b = AddOnDay(2);
        Reload();
        TestHome second(home->Path());
        QVERIFY(document->BeginBatch());
        QVERIFY(document->DeleteRecord(RecordKind::Time, a, false));
        QVERIFY(document->DeleteRecord(RecordKind::Time, b, false));
        second.document->LoadRecords(RecordKind::Time);
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
        QVERIFY(document->Commit());
        second.document->LoadRecords(RecordKind::Time);
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
    }

    void AddsWithoutCommitAreDurableTogether() {
        TestHome second(home->Path());
        QVERIFY(document->AddRecord(OnDay(1), false, true, false));
        QVERIFY(document->AddRecord(OnDay(2), false, true, false));
        second.document->LoadRecords(RecordKind::Time);
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
        QVERIFY(document->Commit());
        second.document->LoadRecords(RecordKind::Time);
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
    }

    // --- One record from the store

    void FetchRecord_data() {
        QTest::addColumn<QString>("id");
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<QString>("item1");
        QTest::newRow("a stored record") << u"stored"_s << RecordKind::Time << u"a"_s;
        QTest::newRow("an unknown identity")
            << u"00000000000000000000000000000000"_s << RecordKind::Time << u"absent"_s;
        QTest::newRow("the identity of another kind") << u"stored"_s << RecordKind::Expense << u"absent"_s;
        QTest::newRow("a text that is no identity") << u"' OR ''='"_s << RecordKind::Time << u"absent"_s;
        QTest::newRow("an empty text") << QString() << RecordKind::Time << u"absent"_s;
    }
    void FetchRecord() {
        QFETCH(QString, id);
        QFETCH(RecordKind, kind);
        const QString stored = AddOnDay(1, u"a"_s);
        TestHome second(home->Path());
        CVelmarchDoc& fresh = *second.document;
        QTEST(Item1Of(fresh.FetchRecord(kind, id == u"stored"_s ? stored : id)), "item1");
        QCOMPARE(fresh.RecordCount(), std::size_t{0});
        QCOMPARE(fresh.VisibleCount(), std::size_t{0});
        QVERIFY(second.views.seen.isEmpty());
    }

    void FetchRecordSeesTheChangesOfAnotherProgram() {
        const QString id = AddOnDay(1, u"a"_s);
        TestHome second(home->Path());
        CVORec* fetched = second.document->FetchRecord(RecordKind::Time, id);
        QCOMPARE(Item1Of(fetched), u"a"_s);
        CTRecord changed = *document->FindTime(id);
        changed.item1 = u"b"_s;
        QVERIFY(document->ModifyRecord(changed, id, true, false, true, true));
        QCOMPARE(second.document->FetchRecord(RecordKind::Time, id), fetched);
        QCOMPARE(Item1Of(fetched), u"b"_s);
        QVERIFY(document->DeleteRecord(RecordKind::Time, id, true));
        QVERIFY(!second.document->FetchRecord(RecordKind::Time, id));
        QVERIFY(!second.document->FindRecord(id));
    }

    void ChangingAFetchedRecord() {
        const QString id = AddOnDay(1, u"a"_s);
        TestHome second(home->Path());
        CVelmarchDoc& fresh = *second.document;
        QVERIFY(fresh.FetchRecord(RecordKind::Time, id));
        CTRecord changed = *fresh.FindTime(id);
        changed.item1 = u"b"_s;
        QVERIFY(fresh.ModifyRecord(changed, id, true, false, true, true));
        QCOMPARE(Item1Of(fresh.FindRecord(id)), u"b"_s);
        QVERIFY(fresh.DeleteRecord(RecordKind::Time, id, true));
        QVERIFY(!fresh.FindRecord(id));
        Reload();
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
            << u"move"_s << 5 << u"0 A"_s << QStringList{u"a"_s} << 2;
        QTest::newRow("a changed record that isn't shown")
            << u"item"_s << 2 << u"14 A, 1 A"_s << QStringList{u"b"_s} << 2;
        QTest::newRow("a new record that isn't shown")
            << u"add"_s << 2 << QString() << QStringList{u"b"_s} << 3;
    }
    void RefreshRecords() {
        QFETCH(QString, change);
        QFETCH(int, shownDay);
        const QString a = AddOnDay(1, u"a"_s), b = AddOnDay(2, u"b"_s);
        Reload();
        if (shownDay != 0) ShowOnlyDay(shownDay);

        TestHome second(home->Path());
        CVelmarchDoc& outside = *second.document;
        CTRecord added = OnDay(9, u"n"_s);
        CTRecord record = *static_cast<CTRecord*>(outside.FetchRecord(RecordKind::Time, a));
        if (change == u"item"_s) record.item1 = u"c"_s;
        if (change == u"move"_s) record.date.Set(11, 5, 2026);
        if (change == u"delete"_s)
            QVERIFY(outside.DeleteRecord(RecordKind::Time, a, true));
        else if (change == u"add"_s)
            QVERIFY(outside.AddRecord(added, true, false, false));
        else
            QVERIFY(outside.ModifyRecord(record, a, true, false, true, true));

        const QString id = change == u"add"_s ? added.GetId() : a;
        QVERIFY(document->RefreshRecords(RecordKind::Time, {id, id}));
        QTEST(Hints(*home, {a, b, added.GetId()}), "told");
        QTEST(VisibleItems(*document), "items");
        QTEST(static_cast<int>(document->RecordCount()), "count");
    }

    void RefreshRecordsThatWasNotPossible_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("id");
        QTest::addColumn<RecordKind>("kind");
        QTest::addColumn<bool>("done");
        const QString absent = u"00000000000000000000000000000000"_s;
        QTest::newRow("a thousand identities") << 1000 << absent << RecordKind::Time << true;
        QTest::newRow("a thousand and one: a whole refresh is due")
            << 1001 << absent << RecordKind::Time << false;
        QTest::newRow("the other mode's records aren't in memory")
            << 1 << absent << RecordKind::Expense << true;
        QTest::newRow("a text that is no identity") << 1 << u"x"_s << RecordKind::Time << false;
        QTest::newRow("nothing") << 0 << absent << RecordKind::Time << true;
    }
    void RefreshRecordsThatWasNotPossible() {
        QFETCH(int, count);
        QFETCH(QString, id);
        QFETCH(RecordKind, kind);
        AddOnDay(1, u"a"_s);
        Reload();
        QTEST(document->RefreshRecords(kind, QStringList(count, id)), "done");
        QCOMPARE(Hints(*home), QString());
        QCOMPARE(VisibleItems(*document), QStringList{u"a"_s});
    }
};

QTEST_GUILESS_MAIN(TestCVelmarchDoc)
#include "TestCVelmarchDoc.moc"
