#include <QElapsedTimer>
#include <QEventLoop>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "lang/LoadText.h"
#include "support/TestProgram.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWriters = 8;

/// Records that each writer adds.
int PerWriter() {
    return qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS") ? 500 : 12;
}

/// When the command that added a record was begun and had ended, in nanoseconds.
struct Written {
    qint64 begun = 0;
    qint64 ended = 0;
};

/// One command of the console after another.
class CCommands : public QObject {
 public:
    explicit CCommands(const QString& home) : m_home(home) {
        connect(&m_program, &QProcess::finished, this, [this](int code) {
            const QByteArray out = m_program.readAllStandardOutput();
            if (code != 0) complaints += QString::fromUtf8(m_program.readAllStandardError());
            ended(code == 0 ? out : QByteArray());
        });
    }
    void Run(const QStringList& words) {
        m_program.start(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"),
                        QStringList{u"--home"_s, m_home, u"--json"_s, u"--yes"_s} + words);
    }
    std::function<void(const QByteArray& out)> ended;
    QStringList complaints;

 private:
    QString m_home;
    QProcess m_program;
};

}  // namespace

/// Backups while eight other programs store records: each holds the records of one moment.
class TestBackupOfWriters : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void EachIsOfOneMoment();

 private:
    void StartWriter();
    void StartBackups();
    [[nodiscard]] QStringList Restored(const QString& backup);
    void Judge(const QStringList& ids);

    QTemporaryDir m_home, m_files, m_other;
    QElapsedTimer m_clock;
    std::vector<std::unique_ptr<CCommands>> m_writers;
    std::unique_ptr<CCommands> m_backups;
    int m_writing = kWriters;
    bool m_backingUp = false;
    QStringList m_made;
    QHash<QString, Written> m_written;
};

void TestBackupOfWriters::StartWriter() {
    auto& writer = *m_writers.emplace_back(std::make_unique<CCommands>(m_home.path()));
    struct Progress {
        int left = PerWriter();
        qint64 begun = 0;
    };
    const auto state = std::make_shared<Progress>();
    const auto next = [this, &writer, state] {
        state->begun = m_clock.nsecsElapsed();
        writer.Run({u"time"_s, u"add"_s, u"--item1"_s, u"of a writer"_s});
    };
    writer.ended = [this, state, next](const QByteArray& out) {
        const QString id = QJsonDocument::fromJson(out)[u"id"_s].toString();
        if (!id.isEmpty()) m_written.insert(id, {state->begun, m_clock.nsecsElapsed()});
        if (--state->left > 0)
            next();
        else
            --m_writing;
    };
    next();
}

void TestBackupOfWriters::StartBackups() {
    m_backups = std::make_unique<CCommands>(m_home.path());
    const auto next = [this] {
        m_backingUp = true;
        m_made.append(m_files.filePath(QString::number(m_made.size()) + u".vbk"_s));
        m_backups->Run({u"backup"_s, m_made.last()});
    };
    m_backups->ended = [this, next](const QByteArray&) {
        m_backingUp = false;
        if (m_writing > 0) next();
    };
    next();
}

/// The identities that a home has after the restore.
QStringList TestBackupOfWriters::Restored(const QString& backup) {
    QByteArray listed;
    CCommands commands(m_other.path());
    QEventLoop loop;
    commands.ended = [&](const QByteArray&) { loop.quit(); };
    commands.Run({u"restore"_s, backup});
    loop.exec();
    commands.ended = [&](const QByteArray& out) {
        listed = out;
        loop.quit();
    };
    commands.Run({u"time"_s, u"list"_s});
    loop.exec();
    [&] { QCOMPARE(commands.complaints, QStringList()); }();
    QStringList ids;
    for (const QJsonValue& record : QJsonDocument::fromJson(listed)[u"records"_s].toArray())
        ids.append(record[u"id"_s].toString());
    return ids;
}

/// What was stored before the command of any of its records had begun is in it as well.
void TestBackupOfWriters::Judge(const QStringList& ids) {
    qint64 latest = 0;
    for (const QString& id : ids) {
        QVERIFY2(m_written.contains(id), qPrintable(id));
        latest = std::max(latest, m_written[id].begun);
    }
    for (auto record = m_written.cbegin(); record != m_written.cend(); ++record)
        QVERIFY(record->ended > latest || ids.contains(record.key()));
}

void TestBackupOfWriters::EachIsOfOneMoment() {
    m_clock.start();
    {
        CCommands first(m_home.path());
        QEventLoop loop;
        first.ended = [&](const QByteArray& out) {
            m_written.insert(QJsonDocument::fromJson(out)[u"id"_s].toString(), {0, m_clock.nsecsElapsed()});
            loop.quit();
        };
        first.Run({u"time"_s, u"add"_s, u"--item1"_s, u"the first"_s});
        loop.exec();
    }
    for (int writer = 0; writer < kWriters; ++writer) StartWriter();
    StartBackups();
    QTRY_VERIFY_WITH_TIMEOUT(m_writing == 0 && !m_backingUp, 1000 * 60 * 60);

    QCOMPARE(m_backups->complaints, QStringList());
    for (const auto& writer : m_writers) QCOMPARE(writer->complaints, QStringList());
    QCOMPARE(m_written.size(), kWriters * PerWriter() + 1);
    QVERIFY(m_made.size() > 1);
    qsizetype former = 0;
    for (const QString& backup : m_made) {
        const QStringList ids = Restored(backup);
        QVERIFY(ids.size() >= std::max(former, qsizetype{1}));
        former = ids.size();
        Judge(ids);
    }
    qInfo("%d backups under %d writers, of %d records each", static_cast<int>(m_made.size()), kWriters,
          PerWriter());
}

TEST_CLASS(TestBackupOfWriters);
#include "TestBackupOfWriters.moc"
