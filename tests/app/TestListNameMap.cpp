#include "app/ListNameMap.h"

#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QSet>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestListNameMap : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() { home = std::make_unique<TestHome>(); }

    void Order() {
        const ListNameMap names;
        QList<int> lists;
        for (const ListNameMap::Entry& entry : names.Entries()) lists.append(entry.list);
        QCOMPARE(lists.size(), 55);
        for (int i = 0; i < 44; ++i) QCOMPARE(lists[i], 99 + i);
        QCOMPARE(lists.mid(44), QList<int>({16, 17, 34, 32, 33, 68, 69, 70, 71, 72, 73}));
    }

    void NoNameStandsTwice() {
        const ListNameMap names;
        QSet<QString> seen;
        for (const ListNameMap::Entry& entry : names.Entries()) {
            QVERIFY2(!entry.name.isEmpty(), qPrintable(QString::number(entry.list)));
            seen.insert(entry.name);
        }
        QCOMPARE(seen.size(), 55);
    }

    void ListName_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("name");
        QTest::newRow("clients") << 16 << u"Client"_s;
        QTest::newRow("hourly rates") << 34 << u"Hourly rate"_s;
        QTest::newRow("distances") << 69 << u"Distance"_s;
        QTest::newRow("amounts") << 73 << u"Amount"_s;
        QTest::newRow("first name of a field") << 99 << u"Time heading Client"_s;
        QTest::newRow("field of times") << 109 << u"Time field Client"_s;
        QTest::newRow("last of the first block") << 130 << u"Expense heading Reimbursed"_s;
        QTest::newRow("first of the second block") << 131 << u"Expense field Client"_s;
        QTest::newRow("last name of a field") << 142 << u"Expense field Reimbursed"_s;
    }
    void ListName() {
        QFETCH(int, list);
        const ListNameMap names;
        const QString* name = names.ListName(list);
        QVERIFY(name);
        QTEST(*name, "name");
        int found = 0;
        QVERIFY(names.ListIdByName(*name, found));
        QCOMPARE(found, list);
    }

    void ListNameOfNoList() {
        const ListNameMap names;
        QVERIFY(!names.ListName(143));
        QVERIFY(!names.ListName(0));
        QVERIFY(!names.ListName(98));
    }

    void ListIdByName_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("small letters") << u"client"_s;
        QTest::newRow("capital letters") << u"CLIENT"_s;
        QTest::newRow("a blank behind it") << u"Client "_s;
        QTest::newRow("the beginning of a name") << u"Cli"_s;
        QTest::newRow("an empty name") << QString();
    }
    void ListIdByName() {
        QFETCH(QString, name);
        const ListNameMap names;
        int list = 4711;
        QVERIFY(!names.ListIdByName(name, list));
        QCOMPARE(list, 4711);
    }
};

TEST_CLASS(TestListNameMap);
#include "TestListNameMap.moc"
