#include "cli/home/ConsoleHome.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "columns": what the record list shows, and the levels of the data tree.
class TestColumnCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void List_data();
    void List();
    void LinesForPeople();
    void Set_data();
    void Set();
    void Widths();
    void HiddenColumnsKeepTheirWidth();
    void Reset();
    void ListAndTreeAreApart();
    void EqualCaptions();
    void Refused_data();
    void Refused();
    void RefusedChangesNothing();

 private:
    [[nodiscard]] Reply Columns(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"columns"_s) + words);
    }
    /// The numbers of the visible columns in their order.
    [[nodiscard]] static QString Order(const QJsonArray& columns);
    [[nodiscard]] QString Order(const QString& words) const {
        return Order(Columns(QStringList(u"list"_s) + Words(words)).Array());
    }
    [[nodiscard]] int Width(const QString& mode, qsizetype at) const {
        return Columns({u"list"_s, mode}).Array()[at][u"width"].toInt();
    }
    std::unique_ptr<ConsoleHome> m_home;
};

QString TestColumnCommands::Order(const QJsonArray& columns) {
    QMap<int, QString> order;
    for (const QJsonValue& column : columns)
        if (column[u"visible"].toBool())
            order.insert(column[u"position"].toInt(), QString::number(column[u"column"].toInt()));
    return QStringList(order.values()).join(u' ');
}

void TestColumnCommands::List_data() {
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("order");
    QTest::newRow("time records") << u"time"_s << 17 << u"0 6 1 13 14 4 5 9 10"_s;
    QTest::newRow("expenses") << u"expense"_s << 17 << u"17 18 27 28 19 20 21 25"_s;
    QTest::newRow("levels of times: only what can be one") << u"time --tree"_s << 7 << u"4 5 9 10"_s;
    QTest::newRow("levels of expenses") << u"expense --tree"_s << 11 << u"19 20 25 21"_s;
}

void TestColumnCommands::List() {
    QFETCH(QString, words);
    const Reply reply = Columns(QStringList(u"list"_s) + Words(words));
    QCOMPARE(reply.exit, 0);
    QTEST(int(reply.Array().size()), "count");
    QTEST(Order(reply.Array()), "order");
    QCOMPARE(m_home->RunJson({u"columns"_s, u"list"_s, u"time"_s}).Array()[4].toObject(),
             FromText(u"{'column': 4, 'caption': 'Client', 'visible': true, 'position': 6, 'width': 60}"_s));
}

void TestColumnCommands::LinesForPeople() {
    const QByteArray out = m_home->Run({u"columns"_s, u"list"_s, u"expense"_s, u"--tree"_s}).out;
    QVERIFY2(out.startsWith("1. Client (19, 60 pixels)\n2. Project (20, 60 pixels)\n"), out.constData());
    QVERIFY(out.contains("   Personal (31, hidden)\n"));
    QVERIFY(!out.contains("Notes"));
}

void TestColumnCommands::Set_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("order");
    QTest::newRow("by caption") << QStringList{u"time"_s, u"Client"_s, u"Date"_s} << u"4 0"_s;
    QTest::newRow("by number") << QStringList{u"time"_s, u"16"_s, u"0"_s} << u"16 0"_s;
    QTest::newRow("both, in any letters") << QStringList{u"expense"_s, u"amount"_s, u"17"_s} << u"18 17"_s;
    QTest::newRow("a caption of two words") << QStringList{u"time"_s, u"cost centre"_s} << u"10"_s;
    QTest::newRow("levels") << QStringList{u"expense"_s, u"--tree"_s, u"Payment"_s, u"Client"_s}
                            << u"25 19"_s;
    QTest::newRow("a mode as an option's neighbour") << QStringList{u"--tree"_s, u"time"_s, u"5"_s} << u"5"_s;
}

void TestColumnCommands::Set() {
    QFETCH(QStringList, words);
    const Reply reply = Columns(QStringList(u"set"_s) + words);
    QVERIFY2(reply.exit == 0, reply.err.constData());
    QTEST(Order(reply.Array()), "order");
    const QString place = (words.contains(u"time"_s) ? u"time"_s : u"expense"_s) +
                          (words.contains(u"--tree"_s) ? u" --tree"_s : QString());
    QTEST(Order(place), "order");
}

void TestColumnCommands::Widths() {
    const Reply reply = Columns(Words(u"set time --width Client=80 --width 0=100"_s));
    QVERIFY2(reply.exit == 0, reply.err.constData());
    QCOMPARE(Width(u"time"_s, 4), 80);
    QCOMPARE(Width(u"time"_s, 0), 100);
    QCOMPARE(Order(u"time"_s), u"0 6 1 13 14 4 5 9 10"_s);
    QCOMPARE(Columns({u"set"_s, u"time"_s, u"--breaks"_s, u"none"_s}).exit, 0);
    QCOMPARE(Columns({u"set"_s, u"time"_s, u"--breaks"_s, u"2, 4"_s}).exit, 0);
}

void TestColumnCommands::HiddenColumnsKeepTheirWidth() {
    QCOMPARE(Columns(Words(u"set time Date --width Client=99"_s)).exit, 0);
    QCOMPARE(Order(u"time"_s), u"0"_s);
    QCOMPARE(Columns(Words(u"set time Date Client"_s)).exit, 0);
    QCOMPARE(Width(u"time"_s, 4), 99);
}

void TestColumnCommands::Reset() {
    QCOMPARE(Columns(Words(u"set time Date --width Date=99"_s)).exit, 0);
    QCOMPARE(Columns(Words(u"set expense Amount"_s)).exit, 0);
    QCOMPARE(Order(Columns({u"reset"_s, u"time"_s}).Array()), u"0 6 1 13 14 4 5 9 10"_s);
    QCOMPARE(Width(u"time"_s, 0), 80);
    QCOMPARE(Order(u"expense"_s), u"18"_s);
}

void TestColumnCommands::ListAndTreeAreApart() {
    QCOMPARE(Columns(Words(u"set time --tree Project"_s)).exit, 0);
    QCOMPARE(Order(u"time"_s), u"0 6 1 13 14 4 5 9 10"_s);
    QCOMPARE(Order(u"time --tree"_s), u"5"_s);
    QCOMPARE(Columns(Words(u"reset time"_s)).exit, 0);
    QCOMPARE(Order(u"time --tree"_s), u"5"_s);
    QCOMPARE(Columns(Words(u"reset time --tree"_s)).exit, 0);
    QCOMPARE(Order(u"time --tree"_s), u"4 5 9 10"_s);
}

/// Whether an expense is a distance entry, and how far it was, are called the same until the unit is known.
void TestColumnCommands::EqualCaptions() {
    for (const QString& id : {u"131"_s, u"132"_s})
        QCOMPARE(m_home->Run({u"labels"_s, u"set"_s, id, u"Same"_s}).exit, 0);
    const Reply reply = Columns(Words(u"set expense Same"_s));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains("19, 20"), reply.err.constData());
    QCOMPARE(Columns(Words(u"set expense 20 Date 19"_s)).exit, 0);
    QCOMPARE(Order(u"expense"_s), u"20 17 19"_s);
}

void TestColumnCommands::Refused_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("no mode") << u"list"_s << QByteArray("Something is missing");
    QTest::newRow("an unknown mode") << u"list both"_s << QByteArray("time or expense");
    QTest::newRow("nothing to set") << u"set time"_s << QByteArray("Name the columns");
    QTest::newRow("an unknown caption") << u"set time Colour"_s << QByteArray("\"Colour\"");
    QTest::newRow("a column of the other half") << u"set time 17"_s << QByteArray("\"17\"");
    QTest::newRow("no such number") << u"set time 600"_s << QByteArray("\"600\"");
    QTest::newRow("a column twice") << u"set time Date 0"_s << QByteArray("named twice");
    QTest::newRow("a date is no level") << u"set time --tree Date"_s << QByteArray("\"Date\"");
    QTest::newRow("nor by its number") << u"set expense --tree 18"_s << QByteArray("\"18\"");
    QTest::newRow("a width of nothing") << u"set time --width Date=0"_s << QByteArray("\"Date=0\"");
    QTest::newRow("a width that is too much") << u"set time --width Date=10001"_s << QByteArray("10000");
    QTest::newRow("a width below nothing") << u"set time --width Date=-5"_s << QByteArray("\"Date=-5\"");
    QTest::newRow("a width without a column") << u"set time --width =5"_s << QByteArray("\"=5\"");
    QTest::newRow("a width without pixels") << u"set time --width Date"_s << QByteArray("\"Date\"");
    QTest::newRow("a width of an unknown column")
        << u"set time --width Colour=5"_s << QByteArray("\"Colour\"");
    QTest::newRow("breaks that go down") << u"set time --breaks 7,5"_s << QByteArray("\"7,5\"");
    QTest::newRow("a break before the first column") << u"set time --breaks 0,5"_s << QByteArray("\"0,5\"");
    QTest::newRow("breaks that are words") << u"set time --breaks five"_s << QByteArray("\"five\"");
    QTest::newRow("breaks of levels") << u"set time --tree --breaks 5"_s << QByteArray("no line breaks");
    QTest::newRow("a reset of one column") << u"reset time Date"_s << QByteArray("\"Date\"");
}

void TestColumnCommands::Refused() {
    QFETCH(QString, line);
    QFETCH(QByteArray, words);
    const Reply reply = Columns(Words(line));
    QCOMPARE(reply.exit, 2);
    QVERIFY2(reply.err.contains(words), reply.err.constData());
    QVERIFY(reply.out.isEmpty());
}

void TestColumnCommands::RefusedChangesNothing() {
    const QByteArray before = Columns({u"list"_s, u"time"_s}).out;
    for (const QString& words : {u"Date Colour"_s, u"Date --width Client=0"_s, u"Date --breaks x"_s})
        QCOMPARE(Columns(QStringList{u"set"_s, u"time"_s} + Words(words)).exit, 2);
    QCOMPARE(Columns({u"list"_s, u"time"_s}).out, before);
}

TEST_CLASS(TestColumnCommands);
#include "TestColumnCommands.moc"
