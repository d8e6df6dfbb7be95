#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "tree": which list items go with which.
class TestTreeCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();

    void AnEmptyTree();
    void Add_data();
    void Add();
    void ThePathStopsAtAnUnknownItem_data();
    void ThePathStopsAtAnUnknownItem();
    void ChildrenStandSorted();
    void TheTwoTreesAreApart();
    void TheWholeChain_data();
    void TheWholeChain();
    void Remove_data();
    void Remove();
    void LinesForPeople();
    void ADeletedItemLeavesTheTree();
    void ARenamedItemStays();
    void Usage_data();
    void Usage();

 private:
    [[nodiscard]] Reply Tree(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"tree"_s) + words);
    }
    /// "Alpha(One Two) Beta" for a tree of two roots, the first with two children.
    [[nodiscard]] static QString Shape(const QJsonArray& nodes);
    [[nodiscard]] QString Shape(const QString& mode) const { return Shape(Tree({u"show"_s, mode}).Array()); }
    void Fill(const QString& list, const QStringList& texts) const {
        for (const QString& text : texts) QCOMPARE(m_home->Run({u"items"_s, u"add"_s, list, text}).exit, 0);
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestTreeCommands::init() {
    m_home = std::make_unique<ConsoleHome>();
    Fill(u"16"_s, {u"Beta"_s, u"Alpha"_s});
    Fill(u"17"_s, {u"Two"_s, u"One"_s});
}

QString TestTreeCommands::Shape(const QJsonArray& nodes) {
    QStringList shapes;
    for (const QJsonValue& node : nodes) {
        const QString below = Shape(node[u"children"].toArray());
        shapes.append(node[u"item"].toString() + (below.isEmpty() ? QString() : u'(' + below + u')'));
    }
    return shapes.join(u' ');
}

void TestTreeCommands::AnEmptyTree() {
    QCOMPARE(Tree({u"show"_s, u"time"_s}).out, QByteArray("[]\n"));
    QCOMPARE(m_home->Run({u"tree"_s, u"show"_s, u"expense"_s}).out, QByteArray());
}

void TestTreeCommands::Add_data() {
    QTest::addColumn<QStringList>("paths");  // one after another, texts parted by a slash
    QTest::addColumn<QByteArray>("last");
    QTest::addColumn<QString>("shape");
    QTest::newRow("a root") << QStringList{u"Alpha"_s} << QByteArray("{\"added\": 1}\n") << u"Alpha"_s;
    QTest::newRow("missing nodes on the way are made")
        << QStringList{u"Alpha/One"_s} << QByteArray("{\"added\": 2}\n") << u"Alpha(One)"_s;
    QTest::newRow("one below a node that is there") << QStringList{u"Alpha/Two"_s, u"Alpha/One"_s}
                                                    << QByteArray("{\"added\": 1}\n") << u"Alpha(One Two)"_s;
    QTest::newRow("what is there already")
        << QStringList{u"Alpha/One"_s, u"Alpha/One"_s} << QByteArray("{\"added\": 0}\n") << u"Alpha(One)"_s;
    QTest::newRow("an item under two parents") << QStringList{u"Alpha/One"_s, u"Beta/One"_s}
                                               << QByteArray("{\"added\": 2}\n") << u"Alpha(One) Beta(One)"_s;
}

void TestTreeCommands::Add() {
    QFETCH(QStringList, paths);
    QByteArray out;
    for (const QString& path : paths) {
        const Reply reply = Tree(QStringList{u"add"_s, u"time"_s} + path.split(u'/'));
        QVERIFY2(reply.exit == 0, reply.err.constData());
        out = reply.out;
    }
    QTEST(out, "last");
    QTEST(Shape(u"time"_s), "shape");
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestTreeCommands::ThePathStopsAtAnUnknownItem_data() {
    QTest::addColumn<QStringList>("path");
    QTest::newRow("an unknown root") << QStringList{u"Gamma"_s};
    QTest::newRow("an unknown child") << QStringList{u"Alpha"_s, u"Three"_s};
    QTest::newRow("an item of another list") << QStringList{u"One"_s};
    QTest::newRow("letters differ") << QStringList{u"alpha"_s};
    QTest::newRow("nothing") << QStringList{u"Alpha"_s, QString()};
    QTest::newRow("an apostrophe") << QStringList{u"Alpha"_s, u"' OR '1'='1"_s};
}

/// Nothing of the path is kept then.
void TestTreeCommands::ThePathStopsAtAnUnknownItem() {
    QFETCH(QStringList, path);
    const Reply reply = Tree(QStringList{u"add"_s, u"time"_s} + path);
    QCOMPARE(reply.exit, 4);
    QVERIFY(reply.out.isEmpty() && reply.err.contains("has no item"));
    QCOMPARE(Shape(u"time"_s), QString());
}

void TestTreeCommands::ChildrenStandSorted() {
    Fill(u"16"_s, {u"gamma"_s, u"Ärger"_s, u"10 %"_s});
    for (const QString& text : {u"gamma"_s, u"Beta"_s, u"Alpha"_s, u"10 %"_s})
        QCOMPARE(Tree({u"add"_s, u"time"_s, text}).exit, 0);
    QCOMPARE(Shape(u"time"_s), u"10 % Alpha Beta gamma"_s);
}

void TestTreeCommands::TheTwoTreesAreApart() {
    QCOMPARE(Tree({u"add"_s, u"time"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(Tree({u"add"_s, u"expense"_s, u"Beta"_s, u"One"_s}).exit, 0);
    QCOMPARE(Shape(u"time"_s), u"Alpha"_s);
    QCOMPARE(Shape(u"expense"_s), u"Beta(One)"_s);
}

void TestTreeCommands::TheWholeChain_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QStringList>("lists");
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QString>("shape");
    QTest::newRow("time: a number at the end, in other digits")
        << u"time"_s << QStringList{u"32"_s, u"33"_s, u"34"_s}
        << QStringList{u"Alpha"_s, u"One"_s, u"Work"_s, u"Dept"_s, u"80.00"_s}
        << u"Alpha(One(Work(Dept(80))))"_s;
    QTest::newRow("expense: the rate stands above the distance")
        << u"expense"_s << QStringList{u"68"_s, u"70"_s, u"69"_s}
        << QStringList{u"Alpha"_s, u"One"_s, u"Trip"_s, u"0.30"_s, u"12.50"_s}
        << u"Alpha(One(Trip(0.3(12.50))))"_s;
}

void TestTreeCommands::TheWholeChain() {
    QFETCH(QString, mode);
    QFETCH(QStringList, lists);
    QFETCH(QStringList, path);
    for (qsizetype i = 0; i < lists.size(); ++i) Fill(lists[i], {path[i + 2]});
    QCOMPARE(Tree(QStringList{u"add"_s, mode} + path).exit, 0);
    QTEST(Shape(mode), "shape");
    QCOMPARE(Tree(QStringList{u"add"_s, mode} + path + QStringList(u"Deeper"_s)).exit, 2);
    QJsonArray nodes = Tree({u"show"_s, mode}).Array();
    for (const QString& list : QStringList{u"16"_s, u"17"_s} + lists) {
        QCOMPARE(nodes[0][u"list"].toInt(), list.toInt());
        nodes = nodes[0][u"children"].toArray();
    }
    QCOMPARE(Tree(QStringList{u"remove"_s, mode} + path).out, QByteArray("{\"removed\": 1}\n"));
}

void TestTreeCommands::Remove_data() {
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<int>("exit");
    QTest::addColumn<QString>("shape");
    QTest::newRow("a leaf") << QStringList{u"Alpha"_s, u"One"_s} << 0 << u"Alpha(Two) Beta(One)"_s;
    QTest::newRow("a node with all below it") << QStringList{u"Alpha"_s} << 0 << u"Beta(One)"_s;
    QTest::newRow("an unknown root") << QStringList{u"Gamma"_s} << 4 << u"Alpha(One Two) Beta(One)"_s;
    QTest::newRow("an item that stands elsewhere")
        << QStringList{u"Beta"_s, u"Two"_s} << 4 << u"Alpha(One Two) Beta(One)"_s;
    QTest::newRow("below a leaf") << QStringList{u"Beta"_s, u"One"_s, u"One"_s} << 4
                                  << u"Alpha(One Two) Beta(One)"_s;
}

void TestTreeCommands::Remove() {
    QFETCH(QStringList, path);
    for (const QStringList& added : {QStringList{u"Alpha"_s, u"One"_s}, QStringList{u"Alpha"_s, u"Two"_s},
                                     QStringList{u"Beta"_s, u"One"_s}})
        QCOMPARE(Tree(QStringList{u"add"_s, u"time"_s} + added).exit, 0);
    QTEST(Tree(QStringList{u"remove"_s, u"time"_s} + path).exit, "exit");
    QTEST(Shape(u"time"_s), "shape");
    // The items stay in their lists.
    QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"17"_s}).Array().size(), 2);
}

void TestTreeCommands::LinesForPeople() {
    QCOMPARE(Tree({u"add"_s, u"time"_s, u"Alpha"_s, u"One"_s}).exit, 0);
    QCOMPARE(Tree({u"add"_s, u"time"_s, u"Beta"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"tree"_s, u"show"_s, u"time"_s}).out, QByteArray("Alpha\n  One\nBeta\n"));
}

void TestTreeCommands::ADeletedItemLeavesTheTree() {
    QCOMPARE(Tree({u"add"_s, u"time"_s, u"Alpha"_s, u"One"_s}).exit, 0);
    QCOMPARE(Tree({u"add"_s, u"expense"_s, u"Beta"_s, u"One"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"--yes"_s, u"items"_s, u"delete"_s, u"17"_s, u"One"_s}).exit, 0);
    QCOMPARE(Shape(u"time"_s), u"Alpha"_s);
    QCOMPARE(Shape(u"expense"_s), u"Beta"_s);
    QCOMPARE(m_home->Run({u"--yes"_s, u"items"_s, u"clear"_s, u"16"_s}).exit, 0);
    QCOMPARE(Shape(u"time"_s), QString());
    QCOMPARE(m_home->Run({u"doctor"_s}).exit, 0);
}

void TestTreeCommands::ARenamedItemStays() {
    QCOMPARE(Tree({u"add"_s, u"time"_s, u"Alpha"_s, u"One"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"items"_s, u"rename"_s, u"16"_s, u"Alpha"_s, u"Omega"_s}).exit, 0);
    QCOMPARE(Shape(u"time"_s), u"Omega(One)"_s);
}

void TestTreeCommands::Usage_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("no command") << u"tree"_s << QByteArray("show, add, remove");
    QTest::newRow("no mode") << u"tree show"_s << QByteArray("Something is missing");
    QTest::newRow("an unknown mode") << u"tree show both"_s << QByteArray("time or expense");
    QTest::newRow("an unknown mode to add to") << u"tree add both Alpha"_s << QByteArray("time or expense");
    QTest::newRow("no path") << u"tree add time"_s << QByteArray("Something is missing");
    QTest::newRow("nothing to take out") << u"tree remove expense"_s << QByteArray("Something is missing");
    QTest::newRow("a path that is too deep") << u"tree add time 1 2 3 4 5 6"_s << QByteArray("at most 5");
    QTest::newRow("a word too many") << u"tree show time Alpha"_s << QByteArray("\"Alpha\"");
}

void TestTreeCommands::Usage() {
    QFETCH(QString, line);
    QFETCH(QByteArray, words);
    const Reply reply = m_home->RunJson(Words(line));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QVERIFY(reply.out.isEmpty());
}

TEST_CLASS(TestTreeCommands);
#include "TestTreeCommands.moc"
