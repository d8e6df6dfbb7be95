#include "ChangesFixture.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QTest>

using Fixture = ChangesFixture<>;

/// Texts for the pick lists that were entered with a record: stored in one transaction with it.
class TestRecordsWithItems final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void newItemsGoWithTheRecord() {
        Fixture fixture;
        const CPulldownCatalogue& catalogue = *fixture.home.catalogue;
        for (const char* text : {"Acme", "Acme", ""}) fixture.entered.Add(16, QString::fromLatin1(text));
        const Outcome added = fixture.changes.Add(CTRecord(), Identity::New);
        QVERIFY(added && added.hasNewItems);
        QCOMPARE(catalogue.Texts(16), QStringList{QStringLiteral("Acme")});
        fixture.entered.Add(16, QStringLiteral("Acme"));
        const Outcome again = fixture.changes.Add(CTRecord(), Identity::New);
        QVERIFY(again && !again.hasNewItems);
        QCOMPARE(catalogue.Texts(16).size(), 1);
        // What was entered is stored once, not with every record to come.
        QVERIFY(!fixture.changes.Add(CTRecord(), Identity::New).hasNewItems);
        const TestHome next(fixture.home.Path());
        QCOMPARE(next.catalogue->Texts(16), QStringList{QStringLiteral("Acme")});
    }

    void newItemsAndTheirRecordFailTogether_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<Text>("told");
        QTest::newRow("the record's commit fails")
            << QStringLiteral("time_velmarch") << Text::InsertCommitFailed;
        QTest::newRow("the item can't be written") << QString() << Text::InsertFailed;
    }
    void newItemsAndTheirRecordFailTogether() {
        QFETCH(QString, table);
        QFETCH(Text, told);
        Fixture fixture;
        if (table.isEmpty())
            fixture.Run("CREATE TRIGGER refuse BEFORE INSERT ON " +
                        fixture.home.store->TableName(RecordKind::PulldownItem).toUtf8() +
                        " BEGIN SELECT RAISE(ABORT, 'no'); END");
        else
            fixture.FailCommits("INSERT");
        fixture.entered.Add(16, QStringLiteral("Acme"));
        fixture.home.prompt.ExpectTold(told);
        QVERIFY(!fixture.changes.Add(CTRecord(), Identity::New));
        fixture.home.prompt.Finish();
        fixture.home.document->LoadRecords(RecordKind::Time);
        QCOMPARE(fixture.home.document->RecordCount(), 0U);
        QVERIFY(fixture.home.catalogue->Texts(16).isEmpty());
        const TestHome next(fixture.home.Path());
        QVERIFY(next.catalogue->Texts(16).isEmpty());
    }
};

TEST_CLASS(TestRecordsWithItems);
#include "TestRecordsWithItems.moc"
