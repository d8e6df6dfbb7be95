#include "viewmodel/commands/BarButtons.h"

#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString Numbers(const QList<int>& buttons) {
    QStringList numbers;
    for (const int button : buttons) numbers << (button == 0 ? u"|"_s : QString::number(button));
    return numbers.join(u' ');
}

}  // namespace

/// Which buttons the tool bars have, at first, as stored, and as chosen.
class TestBarButtons final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void AtFirst() {
        QCOMPARE(Numbers(FactoryButtons(Bar::Records)),
                 u"40147 | 101 103 102 40055 | 40112 40113 40111 | 114 40068 32780 32774 32812 32771 32772 "
                 "32773 | 32825 32826 32783 40067"_s);
        QCOMPARE(Numbers(FactoryButtons(Bar::Filters)),
                 u"32844 32845 | 32810 32851 | 32804 32805 32806 32807 32808 32809 | "
                 "32832 32833 32834 32835 32836 32837"_s);
        QCOMPARE(
            Numbers(FactoryButtons(Bar::Report)),
            u"40067 40226 40227 40228 | 40230 40229 | 40222 40221 40223 40224 32890 40210 | 40220 32815"_s);
    }
    void FewAtFirst() {
        QCOMPARE(Numbers(FewButtons(Bar::Records)), u"40147 32853 103 101 102 |"_s);
        QCOMPARE(Numbers(FewButtons(Bar::Filters)), u"32844 32845 | 114 40260"_s);
        for (const Bar bar : {Bar::Records, Bar::Filters})
            for (const int button : FewButtons(bar))
                QVERIFY2(button == kDivider || PossibleButtons(bar).contains(button),
                         qPrintable(QString::number(button)));
    }
    /// The main buttons say what they are; what everyone knows is a picture alone.
    void WordsOnTheBar() {
        QStringList words;
        for (const CommandRow& row : CommandTable())
            if (const std::optional<Text> word = WordOnBar(row.id)) words << LoadText(*word);
        QCOMPARE(words, (QStringList{u"New"_s, u"Start timer"_s, u"Find"_s, u"Filter"_s}));
    }
    /// Every command has a button on one bar, the number that stands twice on that of the layout; what
    /// narrows the list can stand on both.
    void EachCommandOnOneBar() {
        const QList<int> records = PossibleButtons(Bar::Records), filters = PossibleButtons(Bar::Filters);
        for (const CommandRow& row : CommandTable())
            QVERIFY2((records.contains(row.id) != filters.contains(row.id)) !=
                         (row.id == Command::kFind || row.id == Command::kFilterDialog),
                     row.name);
        QCOMPARE(records.count(32823), 1);
        QVERIFY(filters.contains(32799) && filters.contains(32837) && !filters.contains(32838));
    }

    void Stored_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("expected");
        QTest::newRow("in the order chosen") << "103 40147 0 102"
                                             << "103 40147 | 102";
        QTest::newRow("dividing lines as they come") << "0 0 103 0"
                                                     << "| | 103 |";
        QTest::newRow("none at all") << ""
                                     << "";
        QTest::newRow("a button that came twice") << "103 102 103"
                                                  << "103 102";
        QTest::newRow("a command of a later version") << "103 4711 102"
                                                      << "103 102";
        QTest::newRow("a button of the other bar") << "103 32804"
                                                   << "103";
        QTest::newRow("what is no number") << "103 x -1 1e9 102"
                                           << "103 102";
    }
    void Stored() {
        QFETCH(QString, stored);
        TestHome home;
        QVERIFY(
            home.profile->WriteText(LoadText(Text::SectionBarButtons), LoadText(Text::SectionBar1), stored));
        QTEST(Numbers(LoadButtons(*home.profile, Bar::Records)), "expected");
    }
    void NothingStored() {
        TestHome home;
        QCOMPARE(LoadButtons(*home.profile, Bar::Records), FactoryButtons(Bar::Records));
        QCOMPARE(LoadButtons(*home.profile, Bar::Filters), FactoryButtons(Bar::Filters));
    }
    /// Each bar has an entry of its own, also after the next start.
    void KeptForTheNextStart() {
        QTemporaryDir folder;
        {
            TestHome home(folder.path());
            QVERIFY(PersistButtons(*home.profile, Bar::Records, {40147, kDivider, 102}));
            QVERIFY(PersistButtons(*home.profile, Bar::Filters, {}));
        }
        TestHome home(folder.path());
        QCOMPARE(Numbers(LoadButtons(*home.profile, Bar::Records)), u"40147 | 102"_s);
        QCOMPARE(Numbers(LoadButtons(*home.profile, Bar::Filters)), QString());
        QCOMPARE(home.profile->GetText(u"ToolBarButtons"_s, u"ToolBar1"_s).value_or(QString()),
                 u"40147 0 102"_s);
    }

    void TakeAndGiveBack() {
        ButtonChoice choice(Bar::Filters, {32804, kDivider, 32805});
        QCOMPARE(choice.Available().first(), kDivider);
        QVERIFY(!choice.Available().contains(32804));
        const int line = static_cast<int>(choice.Available().indexOf(32810));
        QCOMPARE(choice.Take(line), 3);
        QCOMPARE(Numbers(choice.OnBar()), u"32804 | 32805 32810"_s);
        QVERIFY(!choice.Available().contains(32810));
        // a dividing line can be taken as often as wanted
        QCOMPARE(choice.Take(0), 4);
        QCOMPARE(choice.Take(0), 5);
        QCOMPARE(Numbers(choice.OnBar()), u"32804 | 32805 32810 | |"_s);
        QCOMPARE(choice.Available().first(), kDivider);
        QCOMPARE(choice.GiveBack(5), ButtonChoice::kNone);
        QCOMPARE(choice.Available()[choice.GiveBack(3)], 32810);
        QCOMPARE(Numbers(choice.OnBar()), u"32804 | 32805 |"_s);
    }
    void MoveUpAndDown() {
        ButtonChoice choice(Bar::Records, {101, 103, 102});
        QCOMPARE(choice.MoveUp(2), 1);
        QCOMPARE(Numbers(choice.OnBar()), u"101 102 103"_s);
        QCOMPARE(choice.MoveDown(0), 1);
        QCOMPARE(Numbers(choice.OnBar()), u"102 101 103"_s);
        QCOMPARE(choice.MoveUp(0), 0);
        QCOMPARE(choice.MoveDown(2), 2);
        QCOMPARE(Numbers(choice.OnBar()), u"102 101 103"_s);
    }
    void LinesThatAreNone() {
        ButtonChoice choice(Bar::Records, {101});
        for (const int line : {-1, 1, 1000}) {
            QCOMPARE(choice.GiveBack(line), ButtonChoice::kNone);
            QCOMPARE(choice.MoveUp(line), ButtonChoice::kNone);
            QCOMPARE(choice.MoveDown(line), ButtonChoice::kNone);
        }
        QCOMPARE(choice.Take(-1), ButtonChoice::kNone);
        QCOMPARE(choice.Take(static_cast<int>(choice.Available().size())), ButtonChoice::kNone);
        QCOMPARE(Numbers(choice.OnBar()), u"101"_s);
    }
    void ResetBringsTheFirstOnesBack() {
        ButtonChoice choice(Bar::Filters, {});
        choice.Reset();
        QCOMPARE(choice.OnBar(), FactoryButtons(Bar::Filters));
        QVERIFY(!choice.Available().contains(32804));
        choice.TakeFew();
        QCOMPARE(choice.OnBar(), FewButtons(Bar::Filters));
        QVERIFY(choice.Available().contains(32804));
        QVERIFY(!choice.Available().contains(Command::kFind));
    }
};

TEST_CLASS(TestBarButtons);
#include "TestBarButtons.moc"
