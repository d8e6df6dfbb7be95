#include "cli/home/ConsoleHome.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// Settings that a newer version of the program has written: what would live in memory only, and be lost with
/// the command, is refused; records are none of their business.
class TestSettingsNotOpened : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void init();
    void RefusedInWords_data();
    void RefusedInWords();
    void RecordsAreStored();
    void CommandsOfTheSettingsSayThatTheyFailed_data();
    void CommandsOfTheSettingsSayThatTheyFailed();

 private:
    void SetVersion(int version) const {
        CSqliteFile file;
        static_cast<void>(file.Open(m_home->File(u"velmarch.settings"_s),
                                    {.applicationId = CSettingsTree::kFileKind.applicationId, .version = 99},
                                    false));
        QVERIFY(file.Execute("PRAGMA user_version=" + QByteArray::number(version)));
    }
    std::unique_ptr<ConsoleHome> m_home;
    QString m_id;
};

void TestSettingsNotOpened::init() {
    m_home = std::make_unique<ConsoleHome>();
    m_id = m_home->Add({});
    QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, m_id}).exit, 0);
    SetVersion(2);
}

void TestSettingsNotOpened::RefusedInWords_data() {
    QTest::addColumn<QString>("command");
    for (const char* command :
         {"timer start %1", "timer stop %1", "timer pause %1", "timer stop-all", "timer pause-all",
          "timer status", "timer drop %1", "time new --timer", "defaults save Usual",
          // A timer that nobody sees would write its count over these.
          "time edit %1 --duration 2:00", "time edit %1 --clear end", "--yes time delete %1",
          "time list --timers yes",
          // What isn't found may be there all the same.
          "time list --query Mine", "query show Mine", "query save Mine", "query list", "report show Mine",
          "report save Mine --kind listing"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

void TestSettingsNotOpened::RefusedInWords() {
    QFETCH(QString, command);
    const QStringList words = Words(command.replace(u"%1"_s, m_id));
    const Reply reply = m_home->Run(words);
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("newer version"), reply.err.constData());
    QVERIFY2(!reply.err.contains("key of the settings"), reply.err.constData());  // no reason for anybody
    QCOMPARE(reply.out, QByteArray());
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 1);
    SetVersion(1);
    QCOMPARE(m_home->RunJson({u"timer"_s, u"status"_s}).Array().size(), 1);
    QCOMPARE(m_home->RunJson({u"defaults"_s, u"list"_s}).Array().size(), 1);
}

void TestSettingsNotOpened::RecordsAreStored() {
    QCOMPARE(m_home->Run({u"time"_s, u"add"_s, u"--item1"_s, u"Acme"_s}).exit, 0);
    QCOMPARE(m_home->RunJson({u"time"_s, u"list"_s}).Object()[u"count"].toInt(), 2);
    QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, m_id, u"--item1"_s, u"Acme"_s}).exit, 0);
    QCOMPARE(m_home->Run({u"expense"_s, u"delete"_s, m_home->AddExpense({})}).exit, 1);  // unconfirmed
    QCOMPARE(m_home->Run({u"--yes"_s, u"expense"_s, u"delete"_s, m_home->AddExpense({})}).exit, 0);
}

void TestSettingsNotOpened::CommandsOfTheSettingsSayThatTheyFailed_data() {
    QTest::addColumn<QString>("command");
    for (const char* command : {"settings set confirmCopy 0", "settings reset", "columns reset time",
                                "defaults rename Usual Other", "settings list"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

/// That the program goes on with the defaults, as the first sentence says, is true of the window.
void TestSettingsNotOpened::CommandsOfTheSettingsSayThatTheyFailed() {
    QFETCH(QString, command);
    const Reply reply = m_home->Run(Words(command));
    QCOMPARE(reply.exit, 1);
    QVERIFY2(reply.err.contains("was not carried out"), reply.err.constData());
    QCOMPARE(reply.out, QByteArray());
}

TEST_CLASS(TestSettingsNotOpened);
#include "TestSettingsNotOpened.moc"
