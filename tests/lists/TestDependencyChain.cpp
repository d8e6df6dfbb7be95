#include "lists/DependencyChain.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "lists/LabelSets.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr RecordMode kTime = RecordMode::Time;
constexpr RecordMode kExpense = RecordMode::Expense;

/// A text of "a|b" taken apart; "" is no text at all, "|" two empty ones.
QStringList Parts(const QString& text) {
    return text.isEmpty() ? QStringList() : text.split(u'|');
}

}  // namespace

class TestDependencyChain : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHome> home;
    CPulldownCatalogue* catalogue = nullptr;

    const CPRecord& Item(int list, const QString& text) {
        if (!catalogue->HasItem(list, text) && !catalogue->AddItem(list, text, false))
            qFatal("an item can't be added");
        const CPRecord* item = catalogue->FindItem(list, text);
        if (!item) qFatal("no such item: %s", qPrintable(text));
        return *item;
    }
    /// Puts items under one another, from the first depth down; what is there already is used.
    void Grow(RecordMode mode, const QStringList& path) {
        DependencyTree& tree = catalogue->Tree(DependencySetOf(KindOf(mode)));
        DependencyTree::Node* node = &tree.Root();
        for (int depth = 0; depth < path.size(); ++depth) {
            DependencyTree::Node* child = node->FindChild(path.at(depth));
            node = child ? child : &tree.Append(*node, Item(NextList(mode, depth), path.at(depth)));
        }
    }

 private Q_SLOTS:
    void init();
    void cleanup();
    void Chains();
    void NextLists();
    void Headings_data();
    void Headings();
    void OwnHeadings();
    void Pulldowns_data();
    void Pulldowns();
    void WithoutDependencies();
    void OutsideTheChain();
    void ModesAreApart();
    void NumbersInDisplayForm();
    void NumbersOfAnotherLanguage();
    void OneItemUnderManyParents();
};

void TestDependencyChain::init() {
    home = std::make_unique<TestHome>();
    catalogue = home->catalogue.get();
    home->settings->useDependencies = true;
}

void TestDependencyChain::cleanup() {
    home.reset();
}

void TestDependencyChain::Chains() {
    const auto listed = [](RecordMode mode) {
        QStringList lists;
        for (const int list : DependencyChain(mode))
            lists += u"%1:%2"_s.arg(list).arg(ChainDepth(mode, list));
        return lists.join(u' ');
    };
    QCOMPARE(listed(kTime), u"16:1 17:2 32:3 33:4 34:5"_s);
    QCOMPARE(listed(kExpense), u"16:1 17:2 68:3 70:4 69:5"_s);
    for (const int list : {68, 69, 70, 71, 72, 73, 0, -1, 99}) QCOMPARE(ChainDepth(kTime, list), 0);
    for (const int list : {32, 33, 34, 71, 72, 73}) QCOMPARE(ChainDepth(kExpense, list), 0);
}

void TestDependencyChain::NextLists() {
    QCOMPARE(NextList(kTime, 0), 16);
    QCOMPARE(NextList(kTime, 4), 34);
    QCOMPARE(NextList(kTime, 5), -1);
    QCOMPARE(NextList(kTime, 6), -1);
    QCOMPARE(NextList(kTime, -1), -1);
    QCOMPARE(NextList(kExpense, 2), 68);
    QCOMPARE(NextList(kExpense, 3), 70);
    QCOMPARE(NextList(kExpense, 4), 69);
    QCOMPARE(NextList(kExpense, 5), -1);
}

void TestDependencyChain::Headings_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("heading");
    QTest::newRow("clients") << 16 << u"Client"_s;
    QTest::newRow("projects") << 17 << u"Project"_s;
    QTest::newRow("activities") << 32 << u"Activity"_s;
    QTest::newRow("cost centres") << 33 << u"Cost centre"_s;
    QTest::newRow("rates") << 34 << u"Rate"_s;
    QTest::newRow("descriptions of expenses") << 68 << u"Descriptions"_s;
    QTest::newRow("distance rates") << 70 << u"Distance rate"_s;
    QTest::newRow("a list outside the chains") << 72 << QString();
}

void TestDependencyChain::Headings() {
    QFETCH(int, list);
    QFETCH(QString, heading);
    QCOMPARE(ListHeading(*catalogue, list, *home->settings), heading);
    home->settings->metricUnits = true;
    QCOMPARE(ListHeading(*catalogue, 69, *home->settings), u"km"_s);
    home->settings->metricUnits = false;
    QCOMPARE(ListHeading(*catalogue, 69, *home->settings), u"miles"_s);
}

/// A heading of its own, not the name of the field; the two lists without one keep theirs.
void TestDependencyChain::OwnHeadings() {
    CLabelEditor editor(*catalogue);
    for (const int field : {109, 110, 133, 136}) QVERIFY(editor.SetLabel(field, u"a field"_s));
    QCOMPARE(ListHeading(*catalogue, 16, *home->settings), u"Client"_s);
    for (const int field : {99, 100, 101, 102, 103, 121})
        QVERIFY(editor.SetLabel(field, u"own %1"_s.arg(field)));
    QStringList headings;
    for (const int list : {16, 17, 32, 33, 34, 68, 70})
        headings += ListHeading(*catalogue, list, *home->settings);
    QCOMPARE(headings.join(u','), u"own 99,own 100,own 101,own 102,own 103,own 121,Distance rate"_s);
}

void TestDependencyChain::Pulldowns_data() {
    QTest::addColumn<int>("list");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("offered");
    QTest::newRow("the first: the children of the root") << 16 << QString() << u"B|A"_s;
    QTest::newRow("the first, whatever it is said to stand under") << 16 << u"x|y"_s << u"B|A"_s;
    QTest::newRow("below a text that is there") << 17 << u"A"_s << u"P|Q"_s;
    QTest::newRow("below another") << 17 << u"B"_s << u"P"_s;
    QTest::newRow("what lies behind the path doesn't count") << 17 << u"A|P|x"_s << u"P|Q"_s;
    QTest::newRow("two steps down") << 32 << u"A|P"_s << u"write"_s;
    QTest::newRow("nothing hangs there") << 32 << u"A|Q"_s << QString();
    QTest::newRow("all the way down") << 34 << u"A|P|write|1"_s << u"80"_s;
    QTest::newRow("a first text that isn't in the tree: the second is empty") << 17 << u"C"_s << QString();
    QTest::newRow("and the third") << 32 << u"C|P"_s << QString();
    QTest::newRow("and the last") << 34 << u"C|P|write|1"_s << QString();
    QTest::newRow("no first text") << 17 << u""_s << QString();
    QTest::newRow("cleared in the middle") << 33 << u"A||write"_s << QString();
    QTest::newRow("case counts") << 17 << u"a"_s << QString();
    QTest::newRow("a part of a text isn't the text") << 32 << u"A|"_s << QString();
    QTest::newRow("a path that is too short") << 33 << u"A"_s << QString();
}

void TestDependencyChain::Pulldowns() {
    QFETCH(int, list);
    QFETCH(QString, path);
    QFETCH(QString, offered);
    Grow(kTime, {u"B"_s, u"P"_s});
    Grow(kTime, {u"A"_s, u"P"_s, u"write"_s, u"1"_s, u"80"_s});
    Grow(kTime, {u"A"_s, u"Q"_s});
    for (const QString& text : {u"C"_s, u"D"_s}) QVERIFY(catalogue->AddItem(16, text, false));
    QCOMPARE(PulldownTexts(*catalogue, kTime, list, Parts(path), *home->settings), Parts(offered));
}

void TestDependencyChain::WithoutDependencies() {
    Grow(kTime, {u"A"_s, u"P"_s});
    QVERIFY(catalogue->AddItem(17, u"free"_s, false));
    home->settings->useDependencies = false;
    QCOMPARE(PulldownTexts(*catalogue, kTime, 17, {u"A"_s}, *home->settings),
             QStringList({u"P"_s, u"free"_s}));
    QCOMPARE(PulldownTexts(*catalogue, kTime, 17, {}, *home->settings), QStringList({u"P"_s, u"free"_s}));
}

void TestDependencyChain::OutsideTheChain() {
    for (const QString& text : {u"EUR"_s, u"CHF"_s}) QVERIFY(catalogue->AddItem(72, text, false));
    QVERIFY(catalogue->AddItem(73, u"12.5"_s, false));
    QVERIFY(catalogue->AddItem(71, u"[CA] Cash"_s, false));
    QCOMPARE(PulldownTexts(*catalogue, kTime, 72, {}, *home->settings), QStringList({u"EUR"_s, u"CHF"_s}));
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 73, {u"x"_s}, *home->settings), QStringList{u"12.5"_s});
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 71, {}, *home->settings), QStringList{u"[CA] Cash"_s});
    // In the chain of the other mode, so not in this one's.
    QVERIFY(catalogue->AddItem(32, u"write"_s, false));
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 32, {}, *home->settings), QStringList{u"write"_s});
    QCOMPARE(PulldownTexts(*catalogue, kTime, 4711, {}, *home->settings), QStringList());
}

void TestDependencyChain::ModesAreApart() {
    Grow(kTime, {u"A"_s, u"P"_s});
    Grow(kExpense, {u"A"_s, u"Q"_s, u"Trip"_s});
    QCOMPARE(PulldownTexts(*catalogue, kTime, 17, {u"A"_s}, *home->settings), QStringList{u"P"_s});
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 17, {u"A"_s}, *home->settings), QStringList{u"Q"_s});
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 68, {u"A"_s, u"Q"_s}, *home->settings),
             QStringList{u"Trip"_s});
}

/// A rate that is entered, or shown with the decimal places of its field, leads where its item leads.
void TestDependencyChain::NumbersInDisplayForm() {
    Grow(kExpense, {u"A"_s, u"Q"_s, u"Trip"_s, u"0.5"_s, u"12"_s});
    const QStringList above{u"A"_s, u"Q"_s, u"Trip"_s};
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 70, above, *home->settings), QStringList{u"0.5"_s});
    for (const QString& rate : {u"0.5"_s, u"0.50"_s, u"0.500"_s, u".5"_s})
        QCOMPARE(PulldownTexts(*catalogue, kExpense, 69, above + QStringList{rate}, *home->settings),
                 QStringList{u"12"_s});
    for (const QString& rate : {u"0.51"_s, u"half"_s, QString()})
        QCOMPARE(PulldownTexts(*catalogue, kExpense, 69, above + QStringList{rate}, *home->settings),
                 QStringList());
}

void TestDependencyChain::NumbersOfAnotherLanguage() {
    CRegionalInfo region;
    region.decimalChar = u',';
    region.usesDotDecimal = false;
    cleanup();
    home = std::make_unique<TestHome>(region);
    catalogue = home->catalogue.get();
    home->settings->useDependencies = true;
    Grow(kExpense, {u"A"_s, u"Q"_s, u"Trip"_s, u"0,5"_s, u"12"_s});
    const QStringList path{u"A"_s, u"Q"_s, u"Trip"_s, u"0,50"_s};
    QCOMPARE(PulldownTexts(*catalogue, kExpense, 69, path, *home->settings), QStringList{u"12"_s});
}

void TestDependencyChain::OneItemUnderManyParents() {
    for (const QString& client : {u"A"_s, u"B"_s, u"C"_s}) Grow(kTime, {client, u"P"_s, u"of "_s + client});
    for (const QString& client : {u"A"_s, u"B"_s, u"C"_s})
        QCOMPARE(PulldownTexts(*catalogue, kTime, 32, {client, u"P"_s}, *home->settings),
                 QStringList{u"of "_s + client});
}

TEST_CLASS(TestDependencyChain);
#include "TestDependencyChain.moc"
