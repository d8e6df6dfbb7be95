#include "shell/look/CMnemonics.h"

#include "support/TestProgram.h"

#include <QtTest>

/// Which letters the labels of a page get.
class TestCMnemonics : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Give_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("then");
        QTest::addColumn<QString>("expected");
        QTest::newRow("the first letter") << "Date"
                                          << "Client"
                                          << "&Client";
        QTest::newRow("taken: the first of the next word") << "Client"
                                                           << "Cost order"
                                                           << "Cost &order";
        QTest::newRow("no word begins with a free letter") << "Client"
                                                           << "Currency"
                                                           << "C&urrency";
        QTest::newRow("small and capital letters are one key") << "client"
                                                               << "Cd"
                                                               << "C&d";
        QTest::newRow("no letter left") << "A"
                                        << "aa"
                                        << "aa";
        QTest::newRow("a text with an ampersand") << "Date"
                                                  << "R & D"
                                                  << "&R && D";
        QTest::newRow("an ampersand before the letter") << "Date"
                                                        << "& D x"
                                                        << "&& D &x";
        QTest::newRow("a text of no letters") << "Date"
                                              << "--"
                                              << "--";
        QTest::newRow("an umlaut") << "Date" << QStringLiteral("\u00d6l") << QStringLiteral("&\u00d6l");
        QTest::newRow("nothing") << "Date"
                                 << ""
                                 << "";
    }
    void Give() {
        QFETCH(QString, first);
        QFETCH(QString, then);
        CMnemonics mnemonics;
        QVERIFY(mnemonics.Give(first).contains(QLatin1Char('&')));
        QTEST(mnemonics.Give(then), "expected");
    }

    void PlanServesAllThatCanBeServed() {
        CMnemonics mnemonics;
        mnemonics.Plan({QStringLiteral("Rate"), QStringLiteral("RR")});
        QCOMPARE(mnemonics.Give(QStringLiteral("Rate")), QStringLiteral("R&ate"));
        QCOMPARE(mnemonics.Give(QStringLiteral("RR")), QStringLiteral("&RR"));
    }

    void TakeKeepsTheLetterMarked() {
        CMnemonics mnemonics;
        QCOMPARE(mnemonics.Take(QStringLiteral("Entr&y")), QStringLiteral("Entr&y"));
        QCOMPARE(mnemonics.Give(QStringLiteral("Yes")), QStringLiteral("Y&es"));
        QCOMPARE(CMnemonics::Plain(QStringLiteral("Entr&y")), QStringLiteral("Entry"));
    }
};

TEST_CLASS(TestCMnemonics);
#include "TestCMnemonics.moc"
