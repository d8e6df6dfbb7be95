#include "exchange/import/ItemImport.h"

#include "ImportHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestItemImport final : public QObject {
    Q_OBJECT

    std::unique_ptr<ImportHome> fixture;

 private Q_SLOTS:
    void init() { fixture = std::make_unique<ImportHome>(); }
    void cleanup() { fixture.reset(); }

    void lines_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("refused");
        QTest::addColumn<int>("skipped");
        QTest::newRow("items") << QByteArray("\"Client\",\"A\"\nProject,B\n") << u"16=A 17=B"_s << QString()
                               << 0;
        QTest::newRow("a name of a field")
            << QByteArray("Time field Client,Matter\n") << u"109=Matter"_s << QString() << 0;
        QTest::newRow("an unknown list passes in silence")
            << QByteArray("client,A\nClient,B\n") << u"16=B"_s << QString() << 1;
        QTest::newRow("one field") << QByteArray("Client\nClient,B\n") << u"16=B"_s << u"1:6"_s << 0;
        QTest::newRow("three fields") << QByteArray("Client,A,B\nClient,C\n") << u"16=C"_s << u"1:3"_s << 0;
        QTest::newRow("no separator behind the quotes")
            << QByteArray("\"Client\"A\"\n") << QString() << u"1:6"_s << 0;
        QTest::newRow("a text of 256 characters")
            << "Client," + QByteArray(256, 'x') << QString() << u"1:0"_s << 0;
        QTest::newRow("an empty line ends it")
            << QByteArray("Client,A\n\nClient,B") << u"16=A"_s << QString() << 0;
        QTest::newRow("nothing") << QByteArray() << QString() << QString() << 0;
    }
    void lines() {
        QFETCH(QByteArray, content);
        QFETCH(int, skipped);
        fixture->Open(content);
        int reported = 0;
        const ItemPlan plan = LookAtItems(fixture->file, PresetDelimiters(), {},
                                          [&reported](const RefusedLine&) { ++reported; });
        QVERIFY(plan.end == ItemPlan::End::Complete);
        QStringList items, refused;
        for (const ListText& item : plan.texts) items.append(u"%1=%2"_s.arg(item.list).arg(item.text));
        for (const RefusedLine& line : plan.refused)
            refused.append(u"%1:%2"_s.arg(line.number).arg(static_cast<int>(line.code)));
        QTEST(items.join(u' '), "items");
        QTEST(refused.join(u' '), "refused");
        QCOMPARE(reported, static_cast<int>(refused.size()));
        QCOMPARE(plan.skipped, skipped);
    }

    void onlyNewOnesAreAdded() {
        QVERIFY(fixture->home.catalogue->AddItem(ListId::kClient, u"A"_s, false));
        fixture->Open("Client,A\nClient,B\nClient,B\nHourly rate,1.50\nHourly rate,1.5\nHourly rate,much\n");
        const ItemPlan plan = LookAtItems(fixture->file, PresetDelimiters(), {});
        int added = 0;
        QVERIFY(fixture->changes.AddItems(plan.texts, added));
        QCOMPARE(added, 2);
        QCOMPARE(fixture->home.catalogue->Texts(ListId::kClient), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(fixture->home.catalogue->Texts(ListId::kTimeRate), QStringList{u"1.5"_s});
        QVERIFY(fixture->home.catalogue->Load());
        QCOMPARE(fixture->home.catalogue->Texts(ListId::kClient), (QStringList{u"A"_s, u"B"_s}));
    }
};

TEST_CLASS(TestItemImport);
#include "TestItemImport.moc"
