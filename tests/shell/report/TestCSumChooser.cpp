#include "shell/report/CSumChooser.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCSumChooser final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void IsThereWhileThereIsAChoice_data() {
        QTest::addColumn<QStringList>("sums");
        QTest::addColumn<bool>("isThere");
        QTest::newRow("no chart") << QStringList() << false;
        QTest::newRow("one sum") << QStringList{u"Effective"_s} << false;
        QTest::newRow("two sums") << QStringList{u"Effective"_s, u"Amount"_s} << true;
    }
    void IsThereWhileThereIsAChoice() {
        QFETCH(QStringList, sums);
        QWidget window;
        CSumChooser chooser(&window);
        chooser.ShowSums({u"A"_s, u"B"_s}, 0);
        chooser.ShowSums(sums, 0);
        QTEST(chooser.isVisibleTo(&window), "isThere");
    }

    /// What the program chooses is shown and not told of; what the user chooses is.
    void TheUsersChoice() {
        CSumChooser chooser;
        const QSignalSpy chosen(&chooser, &CSumChooser::SumChosen);
        chooser.ShowSums({u"Effective"_s, u"R & D"_s}, 1);
        auto* sums = chooser.findChild<QComboBox*>(u"chartSum"_s);
        QCOMPARE(sums->currentText(), u"R & D"_s);
        QCOMPARE(chosen.count(), 0);
        QTest::keyClick(sums, Qt::Key_Up);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.front().front().value<std::size_t>(), std::size_t{0});
    }

    /// The next report may have longer ones.
    void EverySumHasRoom() {
        CSumChooser chooser;
        chooser.ShowSums({u"A"_s, u"B"_s}, 0);
        chooser.show();
        auto* sums = chooser.findChild<QComboBox*>();
        const int before = sums->sizeHint().width();
        const QString longer = u"Entries · Expense by far"_s;
        chooser.ShowSums({u"A"_s, longer}, 1);
        QVERIFY(sums->sizeHint().width() >= before + sums->fontMetrics().horizontalAdvance(longer) / 2);
    }

    void IsCalledByItsWords() {
        const CSumChooser chooser;
        QCOMPARE(chooser.findChild<QComboBox*>()->accessibleName(), u"Chart of"_s);
        QCOMPARE(chooser.findChild<QLabel*>()->buddy(), chooser.findChild<QComboBox*>());
    }
};

TEST_CLASS(TestCSumChooser);
#include "TestCSumChooser.moc"
