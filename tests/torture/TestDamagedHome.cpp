#include "cli/home/ConsoleHome.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The console over a home of which a part is damaged: what it refuses, what it tells, what it saves.
class TestDamagedHome : public QObject {
    Q_OBJECT

    std::unique_ptr<ConsoleHome> m_home;
    QStringList m_ids;
    std::unique_ptr<QTemporaryDir> m_other;

    [[nodiscard]] QString NewFolder() const { return m_other->filePath(u"saved"_s); }
    /// What lies on the disk changes, and no trigger hears of it.
    void Flip(const QString& file, const QByteArray& triggersOf, const QByteArray& sql) const {
        sqlite3* db = nullptr;
        QCOMPARE(sqlite3_open(m_home->File(file).toUtf8().constData(), &db), SQLITE_OK);
        const QByteArray all = "DROP TRIGGER " + triggersOf + "_checks_update; " + sql;
        QCOMPARE(sqlite3_exec(db, all.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }
    void FlipARecord() const {
        Flip(u"velmarch.store"_s, "time_velmarch",
             "UPDATE time_velmarch SET start_hour=11 WHERE identity='" + m_ids[1].toLatin1() + '\'');
    }
    void FlipTheTimers() const {
        Flip(u"velmarch.settings"_s, "entries",
             "UPDATE entries SET value=CAST(substr(value, 1, 40) || x'77' || substr(value, 42) AS BLOB) "
             "WHERE name='Content'");
    }
    /// Nothing is said to be stopped or paused that is lost, and it is no secret.
    void TimersAreLostUntilOneIsStarted() const {
        for (const QString& command : {u"stop-all"_s, u"pause-all"_s, u"stop-all"_s}) {
            const Reply reply = m_home->Run({u"timer"_s, command});
            QCOMPARE(reply.exit, 1);
            QVERIFY2(reply.err.contains("are lost"), reply.err.constData());
        }
        QVERIFY(m_home->Run({u"timer"_s, u"status"_s}).err.contains("are lost"));
        QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 1);
        QVERIFY(m_home->Run({u"timer"_s, u"start"_s, m_ids[1]}).err.contains("are lost"));
        QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 0);
        const Reply stopped = m_home->Run({u"timer"_s, u"stop-all"_s});
        QCOMPARE(stopped.exit, 0);
        QCOMPARE(stopped.err, QByteArray());
    }
    void DestroyPage(qint64 page) const {
        QFile file(m_home->File(u"velmarch.store"_s));
        QVERIFY(file.open(QFile::ReadWrite) && file.seek(page * 4096));
        QCOMPARE(file.write(QByteArray(4096, '\x5A')), 4096);
    }
    [[nodiscard]] QByteArray Bytes(const QString& name) const {
        QFile file(m_home->File(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] int Saved(const QJsonObject& report, const QString& kind) const {
        return report[u"saved"].toObject()[kind].toInt(-1);
    }

 private Q_SLOTS:
    void init() {
        m_home = std::make_unique<ConsoleHome>();
        m_other = std::make_unique<QTemporaryDir>();
        m_ids.clear();
        for (int i = 0; i < 3; ++i)
            m_ids += m_home->Add({u"--date"_s, u"2026-11-19"_s, u"--start"_s, u"09:00"_s, u"--end"_s,
                                  u"17:00"_s, u"--notes"_s, QString(3000, u'n')});
    }

    void AFlippedValueIsTold() {
        FlipARecord();
        const Reply doctor = m_home->RunJson({u"doctor"_s});
        QCOMPARE(doctor.exit, 1);
        QVERIFY2(doctor.out.contains(m_ids[1].toUtf8()), doctor.out.constData());
        QCOMPARE(doctor.Object()[u"storeDamaged"].toBool(true), false);
        const Reply shown = m_home->RunJson({u"time"_s, u"show"_s, m_ids[1]});
        QVERIFY2(shown.err.contains("isn't as it was written"), shown.err.constData());
        QVERIFY(m_home->RunJson({u"time"_s, u"show"_s, m_ids[0]}).err.isEmpty());
    }

    /// Saving a record is the way to mend it.
    void ARecordThatIsSavedIsSoundAgain() {
        FlipARecord();
        QCOMPARE(m_home->Run({u"time"_s, u"edit"_s, m_ids[1], u"--start"_s, u"09:00"_s}).exit, 0);
        QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 0);
    }

    void ARecordThatIsGoneIsTold() {
        Flip(u"velmarch.store"_s, "time_velmarch",
             "DROP TRIGGER time_velmarch_checks_delete; DELETE FROM time_velmarch WHERE identity='" +
                 m_ids[2].toLatin1() + '\'');
        const Reply doctor = m_home->RunJson({u"doctor"_s});
        QCOMPARE(doctor.exit, 1);
        QVERIFY2(doctor.out.contains(m_ids[2].toUtf8()), doctor.out.constData());
    }

    /// Once a list has met the damage, an add that would not have met it is refused.
    void NothingIsWrittenToADamagedStore() {
        for (qint64 page = 12; page * 4096 < QFileInfo(m_home->File(u"velmarch.store"_s)).size(); ++page)
            DestroyPage(page);
        const QByteArray before = Bytes(u"velmarch.store"_s);
        const Reply list = m_home->Run({u"time"_s, u"list"_s});
        const Reply doctor = m_home->RunJson({u"doctor"_s});
        QCOMPARE(doctor.Object()[u"storeDamaged"].toBool(), true);
        const Reply add = m_home->Run({u"expense"_s, u"add"_s, u"--amount"_s, u"1"_s});
        QVERIFY(add.exit != 0);
        QVERIFY2(add.err.contains("doctor --salvage"), add.err.constData());
        QCOMPARE(Bytes(u"velmarch.store"_s), before);
    }

    /// A good copy in its place: the mark goes by itself.
    void ASoundStoreInItsPlaceIsWritten() {
        const QByteArray sound = Bytes(u"velmarch.store"_s);
        DestroyPage(0);
        QVERIFY(m_home->Run({u"time"_s, u"list"_s}).exit != 0);
        QFile file(m_home->File(u"velmarch.store"_s));
        QVERIFY(file.open(QFile::WriteOnly) && file.write(sound) == sound.size());
        file.close();
        QVERIFY(!m_home->Add({u"--date"_s, u"2026-11-20"_s}).isEmpty());
    }

    void TheTimersAreNotUsedWhenTheyAreDamaged() {
        QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, m_ids[0]}).exit, 0);
        FlipTheTimers();
        QCOMPARE(m_home->RunJson({u"doctor"_s}).exit, 1);
        const Reply status = m_home->RunJson({u"timer"_s, u"status"_s});
        QVERIFY2(status.err.contains("ActiveTimers/Content"), status.err.constData());
        QVERIFY2(!status.out.contains(m_ids[0].toUtf8()), status.out.constData());
        TimersAreLostUntilOneIsStarted();
        const QJsonObject saved = m_home->RunJson({u"doctor"_s, u"--salvage"_s, NewFolder()}).Object();
        QCOMPARE(saved[u"notSaved"].toArray(), QJsonArray{u"ActiveTimers/Content"_s});
    }

    /// All of the settings were put aside, and the timers with them.
    void TheTimersOfSettingsThatWerePutAside() {
        QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, m_ids[0]}).exit, 0);
        QFile file(m_home->File(u"velmarch.settings"_s));
        QVERIFY(file.open(QFile::WriteOnly) && file.write(QByteArray(20000, 'x')) == 20000);
        file.close();
        QVERIFY(m_home->Run({u"timer"_s, u"status"_s}).err.contains("put aside"));
        TimersAreLostUntilOneIsStarted();
        const Reply saved = m_home->Run({u"doctor"_s, u"--salvage"_s, NewFolder()});
        QVERIFY2(saved.out.contains("velmarch.settings.unreadable-"), saved.out.constData());
    }

    /// The timers are damaged when they are to be saved.
    void SalvageNamesDamagedTimers() {
        QCOMPARE(m_home->Run({u"timer"_s, u"start"_s, m_ids[0]}).exit, 0);
        FlipTheTimers();
        const QJsonObject saved = m_home->RunJson({u"doctor"_s, u"--salvage"_s, NewFolder()}).Object();
        QCOMPARE(saved[u"settings"].toString(), u"partly"_s);
        QCOMPARE(saved[u"notSaved"].toArray(), QJsonArray{u"ActiveTimers/Content"_s});
        QCOMPARE(ConsoleHome::RunBare({u"--home"_s, NewFolder(), u"timer"_s, u"stop-all"_s}).exit, 1);
    }

    void SalvageWritesANewHome() {
        DestroyPage(0);
        const QByteArray store = Bytes(u"velmarch.store"_s), settings = Bytes(u"velmarch.settings"_s);
        const Reply reply = m_home->RunJson({u"doctor"_s, u"--salvage"_s, NewFolder()});
        QCOMPARE(reply.exit, 0);
        QCOMPARE(Saved(reply.Object(), u"times"_s), 3);
        QCOMPARE(reply.Object()[u"settings"].toString(), u"copied"_s);
        QCOMPARE(Bytes(u"velmarch.store"_s), store);
        QCOMPARE(Bytes(u"velmarch.settings"_s), settings);
        QStringList files = QDir(NewFolder()).entryList(QDir::Files);
        files.removeIf([](const QString& name) { return name.endsWith(u"-journal"_s); });
        QCOMPARE(files, QStringList({u"velmarch.settings"_s, u"velmarch.store"_s}));
        QCOMPARE(ConsoleHome::RunBare({u"--home"_s, NewFolder(), u"doctor"_s}).exit, 0);
        QCOMPARE(ConsoleHome::RunBare({u"--home"_s, NewFolder(), u"time"_s, u"add"_s}).exit, 0);
    }

    void SalvageNamesADoubtfulRecord() {
        FlipARecord();
        const QJsonObject report = m_home->RunJson({u"doctor"_s, u"--salvage"_s, NewFolder()}).Object();
        QCOMPARE(report[u"doubtful"].toArray(), QJsonArray({m_ids[1]}));
        QCOMPARE(report[u"lost"].toInt(-1), 0);
    }

    /// The root of the time records: their index knows of which day they were.
    void SalvageNamesTheLostDays() {
        DestroyPage(1);
        const QJsonObject report = m_home->RunJson({u"doctor"_s, u"--salvage"_s, NewFolder()}).Object();
        QCOMPARE(Saved(report, u"times"_s), 0);
        QCOMPARE(report[u"lost"].toInt(), 3);
        QCOMPARE(report[u"lossKnown"].toBool(), true);
        QCOMPARE(report[u"lostDays"].toArray().first().toObject(),
                 FromText(u"{'date': '2026-11-19', 'count': 3}"_s));
    }

    void WithoutAStoreNoFolderIsMade() {
        QVERIFY(QFile::remove(m_home->File(u"velmarch.store"_s)));
        QCOMPARE(m_home->Run({u"doctor"_s, u"--salvage"_s, NewFolder()}).exit, 1);
        QVERIFY(!QFile::exists(NewFolder()));
    }

    void AFolderInUseIsRefused() {
        const Reply reply = m_home->Run({u"doctor"_s, u"--salvage"_s, m_home->Path()});
        QCOMPARE(reply.exit, 1);
        QVERIFY2(reply.err.contains("isn't an empty folder"), reply.err.constData());
    }
};

TEST_CLASS(TestDamagedHome);
#include "TestDamagedHome.moc"
