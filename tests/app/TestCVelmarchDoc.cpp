#include "DocumentScene.h"
#include "records/CPRecord.h"

using namespace Qt::Literals::StringLiterals;

class TestCVelmarchDoc : public QObject {
    Q_OBJECT

    std::unique_ptr<DocumentScene> scene;
    CVelmarchDoc* document = nullptr;

 private Q_SLOTS:
    void initTestCase_data() { DocumentScene::AddModes(); }
    void init() {
        QFETCH_GLOBAL(RecordMode, mode);
        scene = std::make_unique<DocumentScene>(mode);
        document = scene->document;
    }
    void cleanup() { scene.reset(); }

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
        const auto record = scene->OnDay(1, u"work"_s);
        const QString given = record->GetId();
        QString id;
        QVERIFY(document->AddRecord(*record, notify, false, newIdentity, &id));
        QTEST(scene->Hints({id}), "told");
        document->FlushPending(Hint::Added);
        QTEST(scene->Hints({id}), "toldByFlush");
        QCOMPARE(record->GetId(), given);
        QCOMPARE(id == given, !newIdentity);
        QVERIFY(document->FindRecord(id) != record.get());
        QCOMPARE(scene->Item1(id), u"work"_s);
        scene->Reload();
        QCOMPARE(scene->Item1(id), u"work"_s);
    }

    void AddRecordThatDoesNotPassTheFilter() {
        scene->ShowOnlyDay(2);
        scene->AddOnDay(1, u"a"_s);
        QCOMPARE(scene->VisibleItems(), QStringList{u"a"_s});
        document->BuildVisible();
        QCOMPARE(scene->VisibleItems(), QStringList());
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordThatCanNotBeStored() {
        scene->AddOnDay(1, u"a"_s);
        scene->home.prompt.ExpectTold(Text::InsertFailed);
        QVERIFY(!document->AddRecord(*scene->OnDay(2, DocumentScene::TooLong()), true, false, true));
        QCOMPARE(scene->Hints(), QString());
        QCOMPARE(scene->VisibleItems(), QStringList{u"a"_s});
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void AddRecordOfTheOtherModeStaysApart() {
        const QString id = scene->Add(*DocumentScene::OnDay(1, u"taxi"_s, scene->otherKind));
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(document->VisibleCount(), std::size_t{0});
        QCOMPARE(scene->Item1(id), u"taxi"_s);
        QCOMPARE(document->FindTime(id) != nullptr, scene->otherKind == RecordKind::Time);
        QCOMPARE(document->FindExpense(id) != nullptr, scene->otherKind == RecordKind::Expense);
    }

    void RecordsOfListsAreNoneOfTheDocuments() {
        const CPRecord item(u"a"_s);
        QVERIFY(!CVelmarchDoc::CloneRecord(item));
        QVERIFY(!document->AddRecord(item, true, false, true));
        QCOMPARE(scene->Hints(), QString());
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
        const QString other = scene->AddOnDay(1, u"a"_s), id = scene->AddOnDay(2, u"b"_s);
        scene->Reload();
        const auto changed = scene->Changed(id, 2, u"c"_s);
        QVERIFY(document->ModifyRecord(*changed, id, notify, false, true, true));
        QTEST(scene->Hints({other, id}), "told");
        QCOMPARE(scene->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(scene->Item1(id), u"c"_s);
        document->FlushPending(Hint::Changed);
        QTEST(scene->Hints({other, id}), "toldByFlush");
        scene->Reload();
        QCOMPARE(scene->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
    }

    void ModifyRecordThatNoLongerPassesTheFilter() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        scene->ShowOnlyDay(1);
        QVERIFY(document->IsVisible(id));
        const auto moved = scene->Changed(id, 2, u"a"_s);
        QVERIFY(document->ModifyRecord(*moved, id, true, false, true, true));
        QVERIFY(document->IsVisible(id));
        document->BuildVisible();
        QVERIFY(!document->IsVisible(id));
        QCOMPARE(document->RecordCount(), std::size_t{1});
    }

    void ModifyRecordThatCanNotBeStored() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        scene->Reload();
        const auto changed = scene->Changed(id, 1, DocumentScene::TooLong());
        scene->home.prompt.ExpectTold(Text::ModifyFailed);
        QVERIFY(!document->ModifyRecord(*changed, id, true, false, true, true));
        QCOMPARE(scene->Hints({id}), u"14 A"_s);
        QCOMPARE(scene->VisibleItems(), QStringList{DocumentScene::TooLong()});
        QCOMPARE(scene->Item1(id), u"a"_s);

        DocumentScene::Put(*changed, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*changed, id, true, false, true, true));
        QCOMPARE(scene->VisibleItems(), QStringList{u"b"_s});
        scene->home.prompt.ExpectTold(Text::ModifyFailed);
        DocumentScene::Put(*changed, 1, DocumentScene::TooLong());
        QVERIFY(!document->ModifyRecord(*changed, id, true, false, true, true));
        document->NotifyViews(Hint::Rebuild);  // without BuildVisible: columns changed
        QCOMPARE(scene->VisibleItems(), QStringList{DocumentScene::TooLong()});
        document->BuildVisible();
        document->NotifyViews(Hint::Rebuild);
        QCOMPARE(scene->VisibleItems(), QStringList{u"b"_s});
    }

    void ModifyRecordGivenTheObjectItselfAndItsOwnIdentity() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        CVORec* record = document->FindRecord(id);
        DocumentScene::Put(*record, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*record, record->GetId(), true, false, true, true));
        QCOMPARE(scene->Item1(id), u"b"_s);
    }

    void ModifyRecordOfAKindThatIsNotLoaded() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        const auto changed = scene->Changed(id, 1, u"b"_s);
        document->LoadRecords(scene->otherKind);
        document->BuildVisible();
        scene->home.views.seen.clear();
        QVERIFY(document->ModifyRecord(*changed, id, true, false, true, false));
        QCOMPARE(scene->Hints({id}), u"14 A, 1 A"_s);
        QCOMPARE(document->RecordCount(), std::size_t{0});
        QCOMPARE(DocumentScene::Item1Of(document->FetchRecord(scene->kind, id)), u"b"_s);
    }

    void ModifyRecordWithoutKeepingItInMemory() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        scene->Reload();
        const auto changed = scene->Changed(id, 1, u"b"_s);
        QVERIFY(document->ModifyRecord(*changed, id, true, false, true, false));
        QCOMPARE(scene->VisibleItems(), QStringList{u"b"_s});
        QCOMPARE(scene->Item1(id), u"a"_s);
        scene->Reload();
        QCOMPARE(scene->Item1(id), u"b"_s);
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
        const QString a = scene->AddOnDay(1, u"a"_s), b = scene->AddOnDay(2, u"b"_s),
                      c = scene->AddOnDay(3, u"c"_s);
        scene->Reload();
        QVERIFY(document->DeleteRecord(scene->kind, b, notify));
        QTEST(scene->Hints({a, b, c}), "told");
        document->FlushPending(Hint::Deleted);
        QTEST(scene->Hints({a, b, c}), "toldByFlush");
        QCOMPARE(scene->VisibleItems(), QStringList({u"a"_s, u"c"_s}));
        QCOMPARE(document->VisibleCount(), std::size_t{2});
        QVERIFY(!document->FindRecord(b));
        scene->Reload();
        QCOMPARE(document->RecordCount(), std::size_t{2});
    }

    void DeleteRecordGivenItsOwnIdentity() {
        const QString id = scene->AddOnDay(1);
        QVERIFY(document->DeleteRecord(scene->kind, document->FindRecord(id)->GetId(), true));
        QCOMPARE(scene->Hints({id}), u"12 A, 2 A"_s);
    }

    void DeleteRecordThatIsAbsent_data() {
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("from a loaded collection: refused") << true << false;
        QTest::newRow("where nothing is loaded: the store's word counts") << false << true;
    }
    void DeleteRecordThatIsAbsent() {
        QFETCH(bool, loaded);
        if (loaded) scene->Reload();
        QTEST(document->DeleteRecord(scene->kind, scene->OnDay(1)->GetId(), true), "deleted");
    }

    void DeleteRecordThatTheStoreKeeps() {
        const QString id = scene->AddOnDay(1, u"a"_s);
        scene->Reload();
        QVERIFY(scene->Execute(u"ALTER TABLE %1 RENAME TO elsewhere"_s));
        scene->home.prompt.ExpectTold(Text::DeleteFailed);
        QVERIFY(!document->DeleteRecord(scene->kind, id, true));
        QCOMPARE(scene->Hints({id}), u"12 A"_s);
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
        for (int i = 0; i < 3; ++i) ids.append(scene->AddOnDay(1 + i));
        scene->Reload();
        for (int i = 0; i < changes; ++i) {
            QVERIFY(document->ModifyRecord(*document->FindRecord(ids[i]), ids[i], false, false, true, true));
        }
        QCOMPARE(scene->Hints(), QString());
        document->FlushPending(Hint::Changed);
        QTEST(scene->Hints(ids), "told");
        document->FlushPending(Hint::Changed);
        QCOMPARE(scene->Hints(), QString());
    }

    void BatchWithinABatch() {
        const QString outer = scene->AddOnDay(1, u"a"_s), inner = scene->AddOnDay(2, u"b"_s);
        scene->Reload();
        const CVORec* former = document->FindRecord(outer);
        QVERIFY(document->ModifyRecord(*scene->Changed(outer, 1, u"c"_s), outer, false, false, true, true));
        const qsizetype waiting = document->PendingCount();
        QCOMPARE(waiting, qsizetype{1});
        QVERIFY(document->ModifyRecord(*scene->Changed(inner, 2, u"d"_s), inner, false, false, true, true));
        QCOMPARE(document->TakePending(waiting), QStringList{inner});
        document->NotifyViews(Hint::Changed, {inner});
        QCOMPARE(DocumentScene::Item1Of(former), u"a"_s);  // its own hint is still to come
        QCOMPARE(document->TakePending(0), QStringList{outer});
        QCOMPARE(document->PendingCount(), qsizetype{0});
    }

    void RecordsOfABatchLiveUntilTheViewsAreTold() {
        const QString id = scene->AddOnDay(1, u"a"_s), other = scene->AddOnDay(2, u"b"_s);
        scene->Reload();
        const CVORec* shown = document->FindRecord(id);
        const CVORec* deleted = document->FindRecord(other);
        const auto changed = scene->Changed(id, 1, u"c"_s);
        QVERIFY(document->ModifyRecord(*changed, id, false, false, true, true));
        QVERIFY(document->DeleteRecord(scene->kind, other, false));
        QVERIFY(document->AddRecord(*scene->OnDay(3), true, false, true));
        QCOMPARE(DocumentScene::Item1Of(shown), u"a"_s);
        QCOMPARE(DocumentScene::Item1Of(deleted), u"b"_s);
    }

    void DeletesOfABatchAreDurableTogether() {
        const QString a = scene->AddOnDay(1), b = scene->AddOnDay(2);
        scene->Reload();
        DocumentScene second(theRecordMode, scene->home.Path());
        QVERIFY(document->BeginBatch());
        QVERIFY(document->DeleteRecord(scene->kind, a, false));
        QVERIFY(document->DeleteRecord(scene->kind, b, false));
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
        QVERIFY(document->Commit());
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
    }

    void AddsWithoutCommitAreDurableTogether() {
        DocumentScene second(theRecordMode, scene->home.Path());
        QVERIFY(document->AddRecord(*scene->OnDay(1), false, true, false));
        QVERIFY(document->AddRecord(*scene->OnDay(2), false, true, false));
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{0});
        QVERIFY(document->Commit());
        second.document->LoadCurrentMode();
        QCOMPARE(second.document->RecordCount(), std::size_t{2});
    }
};

QTEST_GUILESS_MAIN(TestCVelmarchDoc)
#include "TestCVelmarchDoc.moc"
