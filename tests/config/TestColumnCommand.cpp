#include "config/ColumnCommand.h"

#include "SettingsHome.h"
#include "support/TestProgram.h"

#include <QJsonDocument>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

/// A change of columns as console and window hand it over.
class TestColumnCommand : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void Run_data();
    void Run();
    void ResetOfAHalfLeavesTheOther();
    void ResetKeepsCaptions();
    void FailedSaveChangesNothing();
    void RequestsAsTheyTravel_data();
    void RequestsAsTheyTravel();

 private:
    /// "0 6 1 | 17 18 | 5 7 | 60": the orders of both halves, the breaks of the first, the width of column 4.
    [[nodiscard]] static QString Shown(const CColSet& columns);
    [[nodiscard]] static QJsonObject Json(const QString& json) {
        return QJsonDocument::fromJson(QString(json).replace(u'\'', u'"').toUtf8()).object();
    }
    /// Carries out what has come as JSON; what can't be read isn't understood.
    [[nodiscard]] InstanceReply Run(const QString& json) const {
        const auto request = ColumnRequest::FromJson(Json(json));
        return request ? RunColumnRequest(*request, *m_home->settings)
                       : InstanceReply::Refused(ReplyReason::NotUnderstood, u"unread"_s);
    }
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsHome> m_home;
};

void TestColumnCommand::init() {
    m_home.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_home = std::make_unique<SettingsHome>(m_folder->path());
    m_home->Start();
}

QString TestColumnCommand::Shown(const CColSet& columns) {
    QString shown;
    for (const ColumnHalf half : {ColumnHalf::Time, ColumnHalf::Expense}) {
        for (const int column : columns.Order(half)) shown += QString::number(column) + u' ';
        shown += u"| "_s;
    }
    for (const int place : columns.Breaks(ColumnHalf::Time)) shown += QString::number(place) + u' ';
    return shown + u"| "_s + QString::number(columns.EntryAt(4).width);
}

void TestColumnCommand::Run_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("exitCode");  // 0: done
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("tree");
    const QString list = u"0 6 1 13 14 4 5 9 10 | 17 18 27 28 19 20 21 25 | 5 7 9 | 60"_s;
    const QString tree = u"4 5 9 10 | 19 20 25 21 | | 60"_s;
    QTest::newRow("an order of the list") << u"{'columns': 'list', 'half': 'time', 'shown': [4, 0]}"_s << 0
                                          << u"4 0 | 17 18 27 28 19 20 21 25 | 5 7 9 | 60"_s << tree;
    QTest::newRow("an order of the tree") << u"{'columns': 'tree', 'half': 'expense', 'shown': [21, 27]}"_s
                                          << 0 << list << u"4 5 9 10 | 21 27 | | 60"_s;
    QTest::newRow("nothing shown") << u"{'columns': 'list', 'half': 'expense', 'shown': []}"_s << 0
                                   << u"0 6 1 13 14 4 5 9 10 | | 5 7 9 | 60"_s << tree;
    QTest::newRow("a width") << u"{'columns': 'list', 'half': 'time', 'widths': {'4': 99}}"_s << 0
                             << u"0 6 1 13 14 4 5 9 10 | 17 18 27 28 19 20 21 25 | 5 7 9 | 99"_s << tree;
    QTest::newRow("breaks") << u"{'columns': 'list', 'half': 'time', 'breaks': [2, 4]}"_s << 0
                            << u"0 6 1 13 14 4 5 9 10 | 17 18 27 28 19 20 21 25 | 2 4 | 60"_s << tree;
    QTest::newRow("no breaks") << u"{'columns': 'list', 'half': 'time', 'breaks': []}"_s << 0
                               << u"0 6 1 13 14 4 5 9 10 | 17 18 27 28 19 20 21 25 | | 60"_s << tree;
    for (const char* refused : {
             "{'columns': 'list', 'half': 'time', 'shown': [4, 17]}",
             "{'columns': 'list', 'half': 'time', 'shown': [4, 4]}",
             "{'columns': 'list', 'half': 'time', 'shown': ['4']}",
             "{'columns': 'list', 'half': 'time', 'shown': 4}",
             "{'columns': 'tree', 'half': 'time', 'shown': [4, 0]}",
             "{'columns': 'list', 'half': 'time', 'widths': {'4': 0}}",
             "{'columns': 'list', 'half': 'time', 'widths': {'4': 10001}}",
             "{'columns': 'list', 'half': 'time', 'widths': {'17': 50}}",
             "{'columns': 'list', 'half': 'time', 'widths': {'Client': 50}}",
             "{'columns': 'list', 'half': 'time', 'breaks': [7, 5]}",
             "{'columns': 'list', 'half': 'time', 'breaks': [0]}",
             "{'columns': 'list', 'half': 'time', 'shown': [4], 'breaks': [2, 2]}",
             "{'columns': 'list', 'half': 'both', 'shown': [4]}",
             "{'columns': 'menu', 'half': 'time', 'shown': [4]}",
         })
        QTest::newRow(refused) << QString::fromLatin1(refused) << 2 << list << tree;
}

void TestColumnCommand::Run() {
    QFETCH(QString, command);
    QFETCH(int, exitCode);
    CCfgStore* settings = m_home->settings.get();
    const InstanceReply reply = Run(command);
    QCOMPARE(static_cast<int>(reply.reason), exitCode);
    QCOMPARE(reply.words.isEmpty(), exitCode == 0);
    for (int start = 0; start < 2; ++start) {  // as it is now, and after the next start
        QTEST(Shown(settings->ListColumns()), "list");
        QTEST(Shown(settings->TreeColumns()), "tree");
        settings = &m_home->Start();
    }
}

void TestColumnCommand::ResetOfAHalfLeavesTheOther() {
    CCfgStore& settings = *m_home->settings;
    for (const QString& half : {u"time"_s, u"expense"_s})
        QVERIFY(
            Run(u"{'columns': 'list', 'half': '%1', 'shown': [%2], 'breaks': [1], "
                "'widths': {'%2': 77}}"_s.arg(half, half == u"time" ? u"4" : u"19")));
    QVERIFY(Run(u"{'columns': 'list', 'half': 'time', 'reset': true}"_s));
    QCOMPARE(Shown(settings.ListColumns()), u"0 6 1 13 14 4 5 9 10 | 19 | 5 7 9 | 60"_s);
    QCOMPARE(settings.ListColumns().EntryAt(19).width, 77);
}

void TestColumnCommand::ResetKeepsCaptions() {
    CColSet& columns = m_home->settings->ListColumns();
    columns.SetColumn(ColumnHalf::Time, u"Client"_s, {u"Matter"_s, 80, 6, true});
    QVERIFY(Run(u"{'columns': 'list', 'half': 'time', 'reset': true}"_s));
    QCOMPARE(columns.EntryAt(4).caption, u"Matter"_s);
    QCOMPARE(columns.EntryAt(4).width, 60);
}

/// Memory takes back what it held.
void TestColumnCommand::FailedSaveChangesNothing() {
    CCfgStore& settings = *m_home->settings;
    const QString before = Shown(settings.ListColumns());
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=ON"));
    const InstanceReply reply = Run(u"{'columns': 'list', 'half': 'time', 'shown': [4]}"_s);
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=OFF"));
    QCOMPARE(reply.reason, ReplyReason::Failed);
    QVERIFY(!reply.words.isEmpty());
    QCOMPARE(Shown(settings.ListColumns()), before);
}

void TestColumnCommand::RequestsAsTheyTravel_data() {
    QTest::addColumn<QString>("json");
    for (const char* json : {"{'columns': 'list', 'half': 'time', 'shown': [4, 0]}",
                             "{'columns': 'tree', 'half': 'expense', 'shown': []}",
                             "{'columns': 'list', 'half': 'expense', 'widths': {'17': 50, '18': 60}}",
                             "{'columns': 'list', 'half': 'time', 'breaks': [2, 4]}",
                             "{'columns': 'tree', 'half': 'time', 'reset': true}"})
        QTest::newRow(json) << QString::fromLatin1(json);
}

/// What is read is written in the same way.
void TestColumnCommand::RequestsAsTheyTravel() {
    QFETCH(QString, json);
    const auto request = ColumnRequest::FromJson(Json(json));
    QVERIFY(request);
    QCOMPARE(request->ToJson(), Json(json));
}

TEST_CLASS(TestColumnCommand);
#include "TestColumnCommand.moc"
