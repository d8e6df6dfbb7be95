#include "cli/home/ConsoleHome.h"
#include "platform/settings/CSettingsTree.h"

#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// "labels": the user's own names of fields.
class TestLabelCommands : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<ConsoleHome>(); }

    void List();
    void Set_data();
    void Set();
    void ANameIsReplaced();
    void AnEmptyTextTakesItAway();
    void ColumnsFollow();
    void Preset_data();
    void Preset();
    void ResetAsks();
    void Refused_data();
    void Refused();
    void NamesAreNoItems();
    void WithoutTheColumns();

 private:
    [[nodiscard]] Reply Labels(const QStringList& words) const {
        return m_home->RunJson(QStringList(u"labels"_s) + words);
    }
    /// The own name of a field.
    [[nodiscard]] QString Name(int id) const {
        return Labels({u"list"_s}).Array()[id - 99][u"label"].toString();
    }
    [[nodiscard]] QString Caption(const QString& mode, int column, bool isTree) const {
        QStringList words{u"columns"_s, u"list"_s, mode};
        if (isTree) words.append(u"--tree"_s);
        for (const QJsonValue& one : m_home->RunJson(words).Array())
            if (one[u"column"].toInt() == column) return one[u"caption"].toString();
        return {};
    }
    std::unique_ptr<ConsoleHome> m_home;
};

void TestLabelCommands::List() {
    const QJsonArray all = Labels({u"list"_s}).Array();
    QCOMPARE(all.size(), 44);
    for (int i = 0; i < 44; ++i) {
        QCOMPARE(all[i][u"id"].toInt(), 99 + i);
        QCOMPARE(all[i][u"label"].toString(), QString());
        QVERIFY2(!all[i][u"default"].toString().isEmpty(), qPrintable(QString::number(99 + i)));
    }
    QCOMPARE(all[10].toObject(), FromText(u"{'id': 109, 'label': '', 'default': 'Client'}"_s));
    QCOMPARE(all[42][u"default"].toString(), u"Reimbursable"_s);
    QVERIFY(m_home->Run({u"labels"_s, u"list"_s}).out.contains("109  Client\n"));
}

void TestLabelCommands::Set_data() {
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::newRow("a field of time records") << 109 << u"Matter"_s;
    QTest::newRow("the heading of its list") << 99 << u"Matters"_s;
    QTest::newRow("the last field of expenses") << 142 << u"Paid back"_s;
    QTest::newRow("umlauts, emoji, quotes, percent signs") << 131 << u"Ä 😀 'x' \"%s\""_s;
    QTest::newRow("255 characters") << 110 << QString(255, u'x');
    QTest::newRow("the default itself") << 110 << u"Project"_s;
}

void TestLabelCommands::Set() {
    QFETCH(int, id);
    QFETCH(QString, text);
    const Reply reply = Labels({u"set"_s, QString::number(id), text});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Object()[u"id"].toInt(), id);
    QCOMPARE(reply.Object()[u"label"].toString(), text);
    int own = 0;
    for (const QJsonValue& label : Labels({u"list"_s}).Array())
        own += label[u"label"].toString().isEmpty() ? 0 : 1;
    QCOMPARE(Name(id), text);
    QCOMPARE(own, 1);
}

void TestLabelCommands::ANameIsReplaced() {
    for (const QString& text : {u"Matter"_s, u"Site"_s, u"Site"_s})
        QCOMPARE(Labels({u"set"_s, u"109"_s, text}).exit, 0);
    QCOMPARE(Name(109), u"Site"_s);
    QVERIFY(m_home->Run({u"labels"_s, u"list"_s}).out.contains("109  Client: Site\n"));
}

void TestLabelCommands::AnEmptyTextTakesItAway() {
    QCOMPARE(Labels({u"set"_s, u"109"_s, u"Matter"_s}).exit, 0);
    QCOMPARE(Labels({u"set"_s, u"109"_s, QString()}).out,
             QByteArray("{\"id\": 109, \"label\": \"\", \"default\": \"Client\"}\n"));
    QCOMPARE(Name(109), QString());
    QCOMPARE(Caption(u"time"_s, 4, false), u"Client"_s);
}

/// Captions have 16 characters.
void TestLabelCommands::ColumnsFollow() {
    QCOMPARE(Labels({u"set"_s, u"109"_s, u"Kunde oder Auftraggeber"_s}).exit, 0);
    QCOMPARE(Caption(u"time"_s, 4, false), u"Kunde oder Auftr"_s);
    QCOMPARE(Caption(u"time"_s, 4, true), u"Kunde oder Auftr"_s);
    QCOMPARE(Caption(u"expense"_s, 19, false), u"Client"_s);
    QCOMPARE(Labels({u"set"_s, u"131"_s, u"Kunde"_s}).exit, 0);
    QCOMPARE(Caption(u"expense"_s, 19, true), u"Kunde"_s);
    // The order and widths of the columns are their own business.
    QCOMPARE(m_home->RunJson({u"columns"_s, u"list"_s, u"time"_s}).Array()[4][u"position"].toInt(), 6);
}

void TestLabelCommands::Preset_data() {
    QTest::addColumn<QString>("preset");
    QTest::addColumn<QString>("expected");  // of 109, 110, 132, 133
    QTest::newRow("a law office") << u"1"_s << u"Client|Matter|Matter|Disbursement"_s;
    QTest::newRow("a field service") << u"2"_s << u"Customer|Site|Job|Material"_s;
}

void TestLabelCommands::Preset() {
    QFETCH(QString, preset);
    QFETCH(QString, expected);
    QCOMPARE(Labels({u"set"_s, u"114"_s, u"Own"_s}).exit, 0);
    const Reply asked = Labels({u"preset"_s, preset});
    QCOMPARE(asked.exit, 1);
    QVERIFY(asked.err.contains("--yes"));
    QCOMPARE(Name(114), u"Own"_s);
    const Reply reply = Labels({u"preset"_s, preset, u"--yes"_s});
    QCOMPARE(reply.exit, 0);
    QCOMPARE(reply.Array().size(), 44);
    QStringList names;
    for (const int id : {109, 110, 132, 133}) names.append(Name(id));
    QCOMPARE(names.join(u'|'), expected);
    QVERIFY2(Name(114).isEmpty(), "a set begins with taking all names away");
}

void TestLabelCommands::ResetAsks() {
    for (const QString& id : {u"99"_s, u"109"_s, u"142"_s})
        QCOMPARE(Labels({u"set"_s, id, u"Own"_s}).exit, 0);
    QCOMPARE(Labels({u"reset"_s}).exit, 1);
    QCOMPARE(Name(142), u"Own"_s);
    QCOMPARE(Labels({u"reset"_s, u"--yes"_s}).exit, 0);
    for (const int id : {99, 109, 142}) QCOMPARE(Name(id), QString());
    QCOMPARE(Caption(u"time"_s, 4, false), u"Client"_s);
}

void TestLabelCommands::Refused_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("exit");
    QTest::newRow("a number below") << QStringList{u"set"_s, u"98"_s, u"A"_s} << 4;
    QTest::newRow("a number above") << QStringList{u"set"_s, u"143"_s, u"A"_s} << 4;
    QTest::newRow("a pick list") << QStringList{u"set"_s, u"16"_s, u"A"_s} << 4;
    QTest::newRow("no number") << QStringList{u"set"_s, u"Client"_s, u"A"_s} << 4;
    QTest::newRow("256 characters") << QStringList{u"set"_s, u"109"_s, QString(256, u'x')} << 2;
    QTest::newRow("no text") << QStringList{u"set"_s, u"109"_s} << 2;
    QTest::newRow("a word too many") << QStringList{u"set"_s, u"109"_s, u"A"_s, u"B"_s} << 2;
    QTest::newRow("an unknown set") << QStringList{u"preset"_s, u"3"_s, u"--yes"_s} << 2;
    QTest::newRow("a set by name") << QStringList{u"preset"_s, u"law"_s, u"--yes"_s} << 2;
    QTest::newRow("a reset of one") << QStringList{u"reset"_s, u"109"_s, u"--yes"_s} << 2;
}

void TestLabelCommands::Refused() {
    QFETCH(QStringList, words);
    const Reply reply = Labels(words);
    QTEST(reply.exit, "exit");
    QVERIFY(reply.out.isEmpty() && reply.err.startsWith("velmarch-cli: "));
    QCOMPARE(Name(109), QString());
}

void TestLabelCommands::NamesAreNoItems() {
    QCOMPARE(Labels({u"set"_s, u"109"_s, u"Own"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"items"_s, u"list"_s, u"109"_s}).exit, 4);
    QCOMPARE(m_home->RunJson({u"items"_s, u"list"_s, u"16"_s}).Array().size(), 0);
}

/// What is done is said to be done.
void TestLabelCommands::WithoutTheColumns() {
    m_home->Add({});
    CSqliteFile settings;
    QCOMPARE(settings.Open(m_home->File(u"velmarch.settings"_s), CSettingsTree::kFileKind, false),
             OpenOutcome::Existed);
    for (const char* change : {"INSERT", "UPDATE"})
        QVERIFY(settings.Execute(QByteArray("CREATE TRIGGER no_") + change + " BEFORE " + change +
                                 " ON entries BEGIN SELECT RAISE(FAIL, 'refused'); END"));
    const Reply reply = Labels({u"set"_s, u"109"_s, u"Site"_s});
    QCOMPARE(reply.exit, 0);
    QVERIFY2(reply.err.contains("The names are stored"), reply.err.constData());
    QVERIFY2(!reply.err.contains("nothing was changed"), reply.err.constData());
    QCOMPARE(Name(109), u"Site"_s);
}

TEST_CLASS(TestLabelCommands);
#include "TestLabelCommands.moc"
