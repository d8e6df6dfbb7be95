#include "entry/SettingsRequest.h"

#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// A change of the stored defaults as console and window hand it over.
class TestDefaultsCommand : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init() { m_home = std::make_unique<TestHome>(); }
    void cleanup() { m_home.reset(); }
    void WriteAndReplace();
    void DeleteAndRename_data();
    void DeleteAndRename();
    void Refused_data();
    void Refused();
    void NotesThatAreTooLong();
    void FailedWriteKeepsWhatWasThere();

 private:
    InstanceReply Run(const QJsonObject& command) {
        return RunSettingsMessage(command, *m_home->settings, m_home->clock);
    }
    /// Written as the console asks a window for it.
    InstanceReply Write(const QString& name, const CVORec& record) {
        const DefaultsRequest request{
            .kind = record.Kind(), .action = DefaultsAction::Write, .name = name, .record = record.ToBytes()};
        return Run(ToMessage(request).arguments);
    }
    [[nodiscard]] NamedDefaults Defaults(RecordMode mode) const {
        return {*m_home->settings, m_home->clock, mode};
    }
    /// Of time records, without the empty one.
    [[nodiscard]] QString Names() const {
        QStringList names = Defaults(RecordMode::Time).Names();
        names.removeLast();
        return names.join(u' ');
    }
    std::unique_ptr<TestHome> m_home;
};

void TestDefaultsCommand::WriteAndReplace() {
    CERecord trip;
    trip.item1 = u"Ä 😀 '\""_s;
    trip.isDistance = true;
    trip.distance.Set(12.5F);
    QVERIFY(Write(u"Trip"_s, trip));
    CERecord read;
    QVERIFY(Defaults(RecordMode::Expense).Read(u"Trip"_s, read));
    QCOMPARE(read.item1, trip.item1);
    QCOMPARE(read.distance.text, u"12.50"_s);
    trip.item1 = u"B"_s;
    QVERIFY(Write(u"Trip"_s, trip));
    QVERIFY(Defaults(RecordMode::Expense).Read(u"Trip"_s, read));
    QCOMPARE(read.item1, u"B"_s);
    QCOMPARE(Names(), QString());
}

void TestDefaultsCommand::DeleteAndRename_data() {
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("names");
    QTest::newRow("delete") << u"delete"_s << u"One"_s << QString() << 0 << u"Two"_s;
    QTest::newRow("delete, by other letters") << u"delete"_s << u"ONE"_s << QString() << 0 << u"Two"_s;
    QTest::newRow("delete what isn't there") << u"delete"_s << u"Three"_s << QString() << 4 << u"One Two"_s;
    QTest::newRow("rename") << u"rename"_s << u"One"_s << u"Three"_s << 0 << u"Two Three"_s;
    QTest::newRow("rename to other letters") << u"rename"_s << u"One"_s << u"ONE"_s << 0 << u"Two ONE"_s;
    QTest::newRow("rename to a name that is taken")
        << u"rename"_s << u"One"_s << u"two"_s << 1 << u"One Two"_s;
    QTest::newRow("rename to nothing") << u"rename"_s << u"One"_s << QString() << 1 << u"One Two"_s;
    QTest::newRow("rename what isn't there") << u"rename"_s << u"Three"_s << u"Four"_s << 4 << u"One Two"_s;
}

void TestDefaultsCommand::DeleteAndRename() {
    QFETCH(QString, action);
    QFETCH(QString, name);
    QFETCH(QString, to);
    for (const QString& stored : {u"One"_s, u"Two"_s}) QVERIFY(Write(stored, CTRecord()));
    const InstanceReply reply =
        Run({{u"defaults"_s, u"time"_s}, {u"action"_s, action}, {u"name"_s, name}, {u"to"_s, to}});
    QTEST(static_cast<int>(reply.reason), "exitCode");
    QCOMPARE(reply.words.isEmpty(), bool(reply));
    QTEST(Names(), "names");
}

void TestDefaultsCommand::Refused_data() {
    QTest::addColumn<QJsonObject>("command");
    const QJsonObject good{{u"defaults"_s, u"time"_s}, {u"action"_s, u"delete"_s}, {u"name"_s, u"One"_s}};
    const auto row = [&](const char* situation, const QString& key, const QString& value) {
        QJsonObject command = good;
        command.insert(key, value);
        QTest::newRow(situation) << command;
    };
    row("an unknown mode", u"defaults"_s, u"both"_s);
    row("an unknown action", u"action"_s, u"burn"_s);
    row("no name", u"name"_s, QString());
    row("the empty record", u"name"_s, u"(empty record)"_s);
    row("the empty record by other letters", u"name"_s, u"(Empty Record)"_s);
    row("nothing to write", u"action"_s, u"write"_s);
    QJsonObject broken = good;
    broken.insert(u"action"_s, u"write"_s);
    broken.insert(u"record"_s, u"AAAA"_s);
    QTest::newRow("bytes that are no record") << broken;
}

void TestDefaultsCommand::Refused() {
    QFETCH(QJsonObject, command);
    QVERIFY(Write(u"One"_s, CTRecord()));
    const InstanceReply reply = Run(command);
    QCOMPARE(reply.reason, ReplyReason::NotUnderstood);
    QVERIFY(!reply.words.isEmpty());
    QCOMPARE(Names(), u"One"_s);
}

/// A stored value has at most 4096 bytes. No box: the caller gets the answer.
void TestDefaultsCommand::NotesThatAreTooLong() {
    CTRecord record;
    record.notes = QString(3000, u'n');
    const InstanceReply reply = Write(u"Long"_s, record);
    QCOMPARE(reply.reason, ReplyReason::Failed);
    QVERIFY2(reply.words.contains(u"4096"), qPrintable(reply.words));
    QCOMPARE(Names(), QString());
}

void TestDefaultsCommand::FailedWriteKeepsWhatWasThere() {
    QVERIFY(Write(u"One"_s, CTRecord()));
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=ON"));
    const InstanceReply reply =
        Run({{u"defaults"_s, u"time"_s}, {u"action"_s, u"delete"_s}, {u"name"_s, u"One"_s}});
    QVERIFY(m_home->tree.File().Execute("PRAGMA query_only=OFF"));
    QCOMPARE(reply.reason, ReplyReason::Failed);
    QCOMPARE(Names(), u"One"_s);
}

TEST_CLASS(TestDefaultsCommand);
#include "TestDefaultsCommand.moc"
