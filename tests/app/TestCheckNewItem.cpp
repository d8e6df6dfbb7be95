#include "app/CPulldownCatalogue.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// What may become an item: a table of its own, over lists that no row changes.
class TestCheckNewItem : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;

 private Q_SLOTS:
    void initTestCase() {
        home = std::make_unique<TestHome>();
        QVERIFY(home->catalogue->AddItem(16, u"known"_s, false));
        QVERIFY(home->catalogue->AddItem(34, u"1.5"_s, false));
    }
    void cleanupTestCase() {
        home->prompt.Finish();
        home.reset();
    }

    void CheckNewItem_data() {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("result");
        QTest::newRow("a new text") << 16 << u"new"_s << 6;
        QTest::newRow("no text") << 16 << QString() << 5;
        QTest::newRow("an empty text") << 16 << u""_s << 5;
        QTest::newRow("there already") << 16 << u"known"_s << 5;
        QTest::newRow("another case of letters is another text") << 16 << u"Known"_s << 6;
        QTest::newRow("in another list") << 17 << u"known"_s << 6;
        QTest::newRow("begins like a coded text") << 16 << u"[A] Alpha"_s << 5;
        QTest::newRow("the bracket alone") << 16 << u"["_s << 5;
        QTest::newRow("the filters' word for all") << 16 << u"(any)"_s << 5;
        QTest::newRow("a text that holds that word") << 16 << u"(any) client"_s << 6;
        QTest::newRow("a bracket further on") << 16 << u"A [B]"_s << 6;
        for (const char* code : {"CA", "CC", "DC", "CO", "BT", "DD", "CK", "TC", "MO", "PP", "GC", "VO", "MP",
                                 "OW", "PC", "AD", "IN", "CR", "OT"}) {
            const QString text = QLatin1StringView(code);
            QTest::addRow("kind of payment %s", code) << 71 << text + u": anything"_s << 5;
            QTest::addRow("%s without its colon", code) << 71 << text << 6;
        }
        QTest::newRow("a kind of payment in another list, too") << 16 << u"CA: "_s << 5;
        QTest::newRow("a colon without blank") << 71 << u"CA:x"_s << 6;
        QTest::newRow("a code in small letters") << 71 << u"ca: x"_s << 6;
        QTest::newRow("a number") << 34 << u"80"_s << 6;
        QTest::newRow("the same number") << 34 << u"1.5"_s << 5;
        QTest::newRow("another spelling of it") << 34 << u"1.50"_s << 5;
        QTest::newRow("the same number in another list") << 73 << u"1.50"_s << 6;
        QTest::newRow("no number") << 34 << u"much"_s << 5;
        QTest::newRow("distances are texts") << 69 << u"far"_s << 6;
    }
    void CheckNewItem() {
        QFETCH(int, list);
        QFETCH(QString, text);
        QTEST(static_cast<int>(home->catalogue->CheckNewItem(list, text)), "result");
    }
};

TEST_CLASS(TestCheckNewItem);
#include "TestCheckNewItem.moc"
