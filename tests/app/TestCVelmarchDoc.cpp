#include "DocumentFixture.h"
#include "records/CPRecord.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

class TestCVelmarchDoc : public QObject {
    Q_OBJECT

    std::unique_ptr<DocumentFixture> fixture;
    CVelmarchDoc* document = nullptr;

 private Q_SLOTS:
    void initTestCase_data() { DocumentFixture::AddModes(); }
    void init() {
        QFETCH_GLOBAL(RecordMode, mode);
        fixture = std::make_unique<DocumentFixture>(mode);
        document = fixture->document;
    }
    void cleanup() { fixture.reset(); }

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
        const auto record = fixture->OnDay(1, u"work"_s);
        const QString given = record->GetId();
        QString id;
        QVERIFY(document->AddRecord(
            *record,
            {notify ? Notify::Yes : Notify::Later, Commit::Now, newIdentity ? Identity::New : Identity::Own},
            &id));
        QTEST(fixture->Hints({id}), "told");
        document->FlushPending(Hint::Added);
        QTEST(fixture->Hints({id}), "toldByFlush");
        QCOMPARE(record->GetId(), given);
        QCOMPARE(id == given, !newIdentity);
        QVERIFY(document->FindRecord(id) != record.get());
        QCOMPARE(fixture->Item1(id), u"work"_s);
        fixture->Reload();
        QCOMPARE(fixture->Item1(id), u"work"_s);
    }

    void AddRecordThatDoesNotPassTheFilter() {
        fixture->ShowOnlyDay(2);
        fixture->AddOnDay(1, u"a"_s);
        QCOMPARE(fixture->VisibleItems(), QStringList{u"a"_s});
        document->BuildVisible();
        QCOMPARE(fixture->VisibleItems(), QStringList());
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordThatCanNotBeStored() {
        fixture->AddOnDay(1, u"a"_s);
        fixture->home.prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!document->AddRecord(*fixture->OnDay(2, DocumentFixture::TooLong()),
                                     {Notify::Yes, Commit::Now, Identity::New}));
        QCOMPARE(fixture->Hints(), QString());
        QCOMPARE(fixture->VisibleItems(), QStringList{u"a"_s});
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordOfTheOtherModeStaysApart() {
        const QString id = fixture->Add(*DocumentFixture::OnDay(1, u"taxi"_s, fixture->otherKind));
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QCOMPARE(fixture->Item1(id), u"taxi"_s);
        QCOMPARE(document->FindTime(id) != nullptr, fixture->otherKind == RecordKind::Time);
        QCOMPARE(document->FindExpense(id) != nullptr, fixture->otherKind == RecordKind::Expense);
    }

    void RecordsOfListsAreNoneOfTheDocuments() {
        const CPRecord item(u"a"_s);
        QVERIFY(!CVelmarchDoc::CloneRecord(item));
        QVERIFY(!document->AddRecord(item, {Notify::Yes, Commit::Now, Identity::New}));
        QCOMPARE(fixture->Hints(), QString());
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
        const QString other = fixture->AddOnDay(1, u"a"_s), id = fixture->AddOnDay(2, u"b"_s);
        fixture->Reload();
        const auto changed = fixture->Changed(id, 2, u"c"_s);
        QVERIFY(document->ModifyRecord(*changed, id, {notify ? Notify::Yes : Notify::Later, Commit::Now}));
        QTEST(fixture->Hints({other, id}), "told");
        QCOMPARE(fixture->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(fixture->Item1(id), u"c"_s);
        document->FlushPending(Hint::Changed);
        QTEST(fixture->Hints({other, id}), "toldByFlush");
        fixture->Reload();
        QCOMPARE(fixture->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
    }

    void ModifyRecordThatNoLongerPassesTheFilter() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        fixture->ShowOnlyDay(1);
        QVERIFY(document->IsVisible(id));
        const auto moved = fixture->Changed(id, 2, u"a"_s);
        QVERIFY(document->ModifyRecord(*moved, id, {Notify::Yes, Commit::Now}));
        QVERIFY(document->IsVisible(id));
        document->BuildVisible();
        QVERIFY(!document->IsVisible(id));
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void ModifyRecordThatCanNotBeStored() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        const auto changed = fixture->Changed(id, 1, DocumentFixture::TooLong());
        fixture->home.prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(!document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now}));
        QCOMPARE(fixture->Hints({id}), u"14 A"_s);
        QCOMPARE(fixture->VisibleItems(), QStringList{DocumentFixture::TooLong()});
        QCOMPARE(fixture->Item1(id), u"a"_s);

        DocumentFixture::Put(*changed, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now}));
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});
        fixture->home.prompt.ExpectTold(Text::ModifyFailed);
        DocumentFixture::Put(*changed, 1, DocumentFixture::TooLong());
        QVERIFY(!document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now}));
        document->NotifyViews(Hint::Rebuild);  // without BuildVisible: columns changed
        QCOMPARE(fixture->VisibleItems(), QStringList{DocumentFixture::TooLong()});
        document->BuildVisible();
        document->NotifyViews(Hint::Rebuild);
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});
    }

    void ModifyRecordGivenTheObjectItselfAndItsOwnIdentity() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        CVORec* record = document->FindRecord(id);
        DocumentFixture::Put(*record, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*record, record->GetId(), {Notify::Yes, Commit::Now}));
        QCOMPARE(fixture->Item1(id), u"b"_s);
    }

    void ModifyRecordOfAKindThatIsNotLoaded() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        const auto changed = fixture->Changed(id, 1, u"b"_s);
        document->LoadRecords(fixture->otherKind);
        document->BuildVisible();
        fixture->home.views.seen.clear();
        QVERIFY(document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now, Hold::No}));
        QCOMPARE(fixture->Hints({id}), u"14 A, 1 A"_s);
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(DocumentFixture::Item1Of(document->FetchRecord(fixture->kind, id)), u"b"_s);
    }

    void ModifyRecordWithoutKeepingItInMemory() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        const auto changed = fixture->Changed(id, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*changed, id, {Notify::Yes, Commit::Now, Hold::No}));
        QCOMPARE(fixture->VisibleItems(), QStringList{u"b"_s});
        QCOMPARE(fixture->Item1(id), u"a"_s);
        fixture->Reload();
        QCOMPARE(fixture->Item1(id), u"b"_s);
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
        const QString a = fixture->AddOnDay(1, u"a"_s), b = fixture->AddOnDay(2, u"b"_s),
                      c = fixture->AddOnDay(3, u"c"_s);
        fixture->Reload();
        QVERIFY(document->DeleteRecord(fixture->kind, b, notify ? Notify::Yes : Notify::Later));
        QTEST(fixture->Hints({a, b, c}), "told");
        document->FlushPending(Hint::Deleted);
        QTEST(fixture->Hints({a, b, c}), "toldByFlush");
        QCOMPARE(fixture->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(document->VisibleCount(), std::size_t{2});
        QVERIFY(!document->FindRecord(b));
        fixture->Reload();
        QCOMPARE(document->RecordCount(), std::size_t{2});
    }

    void DeleteRecordGivenItsOwnIdentity() {
        const QString id = fixture->AddOnDay(1);
        QVERIFY(document->DeleteRecord(fixture->kind, document->FindRecord(id)->GetId(), Notify::Yes));
        QCOMPARE(fixture->Hints({id}), u"12 A, 2 A"_s);
    }

    void DeleteRecordThatIsAbsent_data() {
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("from a loaded collection: refused") << true << false;
        QTest::newRow("where nothing is loaded: the store's word counts") << false << true;
    }
    void DeleteRecordThatIsAbsent() {
        QFETCH(bool, loaded);
        if (loaded) fixture->Reload();
        QTEST(document->DeleteRecord(fixture->kind, fixture->OnDay(1)->GetId(), Notify::Yes), "deleted");
    }

    void DeleteRecordThatTheStoreKeeps() {
        const QString id = fixture->AddOnDay(1, u"a"_s);
        fixture->Reload();
        QVERIFY(fixture->Execute(u"ALTER TABLE %1 RENAME TO elsewhere"_s));
        fixture->home.prompt.ExpectTold(Text::DeleteFailed);
        QVERIFY(!document->DeleteRecord(fixture->kind, id, Notify::Yes));
        QCOMPARE(fixture->Hints({id}), u"12 A"_s);
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
        for (int i = 0; i < 3; ++i) ids.append(fixture->AddOnDay(1 + i));
        fixture->Reload();
        for (int i = 0; i < changes; ++i) {
            QVERIFY(
                document->ModifyRecord(*document->FindRecord(ids[i]), ids[i], {Notify::Later, Commit::Now}));
        }
        QCOMPARE(fixture->Hints(), QString());
        document->FlushPending(Hint::Changed);
        QTEST(fixture->Hints(ids), "told");
        document->FlushPending(Hint::Changed);
        QCOMPARE(fixture->Hints(), QString());
    }

    void BatchWithinABatch() {
        const QString outer = fixture->AddOnDay(1, u"a"_s), inner = fixture->AddOnDay(2, u"b"_s);
        fixture->Reload();
        const CVORec* former = document->FindRecord(outer);
        QVERIFY(
            document->ModifyRecord(*fixture->Changed(outer, 1, u"c"_s), outer, {Notify::Later, Commit::Now}));
        const qsizetype waiting = document->PendingCount();
        QCOMPARE(waiting, qsizetype{1});
        QVERIFY(
            document->ModifyRecord(*fixture->Changed(inner, 2, u"d"_s), inner, {Notify::Later, Commit::Now}));
        QCOMPARE(document->TakePending(waiting), QStringList{inner});
        document->NotifyViews(Hint::Changed, {inner});
        QCOMPARE(DocumentFixture::Item1Of(former), u"a"_s);  // its own hint is still to come
        QCOMPARE(document->TakePending(0), QStringList{outer});
        QCOMPARE(document->PendingCount(), qsizetype{0});
    }

    void RecordsOfABatchLiveUntilTheViewsAreTold() {
        const QString id = fixture->AddOnDay(1, u"a"_s), other = fixture->AddOnDay(2, u"b"_s);
        fixture->Reload();
        const CVORec* shown = document->FindRecord(id);
        const CVORec* deleted = document->FindRecord(other);
        const auto changed = fixture->Changed(id, 1, u"c"_s);
        QVERIFY(document->ModifyRecord(*changed, id, {Notify::Later, Commit::Now}));
        QVERIFY(document->DeleteRecord(fixture->kind, other, Notify::Later));
        QVERIFY(document->AddRecord(*fixture->OnDay(3), {Notify::Yes, Commit::Now, Identity::New}));
        QCOMPARE(DocumentFixture::Item1Of(shown), u"a"_s);
        QCOMPARE(DocumentFixture::Item1Of(deleted), u"b"_s);
    }

    void DeletesOfABatchAreDurableTogether() {
        const QString a = fixture->AddOnDay(1), b = fixture->AddOnDay(2);
        fixture->Reload();
        DocumentFixture second(theRecordMode, fixture->home.Path());
        QVERIFY(fixture->home.store->BeginBatch());
        QVERIFY(document->DeleteRecord(fixture->kind, a, Notify::Later));
        QVERIFY(document->DeleteRecord(fixture->kind, b, Notify::Later));
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
        QVERIFY(fixture->home.store->Commit());
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
    }

    void AddsWithoutCommitAreDurableTogether() {
        DocumentFixture second(theRecordMode, fixture->home.Path());
        QVERIFY(document->AddRecord(*fixture->OnDay(1), {Notify::Later, Commit::Later}));
        QVERIFY(document->AddRecord(*fixture->OnDay(2), {Notify::Later, Commit::Later}));
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
        QVERIFY(fixture->home.store->Commit());
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
    }
};

TEST_CLASS(TestCVelmarchDoc);
#include "TestCVelmarchDoc.moc"
