#include "platform/sqlite/CSqliteFile.h"
#include "records/RecordsFixture.h"
#include "support/TestProgram.h"
#include "torture/FileHistory.h"

#include <QFile>
#include <random>
#include <vector>

/// Cuts the power at every moment of a day's work with the store and looks what is left: each record that was
/// acknowledged must be there, with its content, in a sound file.
///
/// VELMARCH_POWER_CUTS sets the number of states that are looked at (the long form: 50000, some minutes).
class TestPowerCut : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void HistoryIsComplete();
    void AcknowledgedRecordsSurvive();
    void OtherSettingsLoseRecords_data();
    void OtherSettingsLoseRecords();
};

namespace {

/// Identities with what their records hold.
using Content = QHash<QString, QString>;

/// What had been promised when so many events had happened.
struct Promise {
    std::size_t events;
    Content content;
};

QString Summary(const CTRecord& record) {
    return QStringLiteral("%1 %2 %3").arg(record.item1, record.date.longText).arg(record.notes.size());
}

/// A hundred and fifty changes through the program's own store access, with their file events and promises.
class Workload {
 public:
    explicit Workload(const QByteArray& settings = {}) : m_settings(settings) {
        // From the first moment on: the store and its tables are made under the eyes of the history.
        m_home.manager.Close();
        QFile::remove(m_home.Path());
        disk.Put(m_home.Path(), {});
        FileHistory history;
        m_history = &history;
        Reopen();
        Promised();
        for (int step = 0; step < 150; ++step) {
            if (step % 50 == 49) Reopen();
            Step(step);
            Promised();
        }
        finalFile = Read();
        m_home.manager.Close();
        events = std::move(history.events);
    }

    DiskState disk;  ///< before the first event
    std::vector<FileEvent> events;
    std::vector<Promise> promises;
    QByteArray finalFile;
    [[nodiscard]] QString Path() const { return m_home.Path(); }

 private:
    void Reopen() {
        m_home.manager.Close();
        Check(m_home.Open(m_home.manager));
        if (!m_settings.isEmpty()) Check(m_home.manager.File().Execute(m_settings));
    }
    void Promised() { promises.push_back({m_history->events.size(), m_content}); }
    [[nodiscard]] QByteArray Read() const {
        QFile file(m_home.Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    void Check(bool good) {
        if (!good) QTest::qFail(qPrintable(m_home.manager.m_error), __FILE__, __LINE__);
    }

    [[nodiscard]] CTRecord Make(int step) {
        CTRecord record = NewTime(QStringLiteral("step %1").arg(step));
        // Now and then one that takes pages of its own.
        record.notes = QString(static_cast<int>(m_random() % 10 == 0 ? 6000 : m_random() % 200), u'n');
        return record;
    }
    [[nodiscard]] QString AnyId() {
        QStringList ids = m_content.keys();
        ids.sort();
        return ids[static_cast<qsizetype>(m_random() % static_cast<std::size_t>(ids.size()))];
    }

    void Add(int step, bool noCommit) {
        const CTRecord record = Make(step);
        Check(m_home.store.InsertRecord(record, noCommit ? Commit::Later : Commit::Now));
        m_content[record.GetId()] = Summary(record);
    }
    void Edit(int step) {
        CTRecord record = Make(step);
        record.SetId(AnyId());
        Check(m_home.store.ModifyRecord(record, record.GetId(), Commit::Now));
        m_content[record.GetId()] = Summary(record);
    }
    void Remove() {
        const QString id = AnyId();
        Check(m_home.store.DeleteRecord(RecordKind::Time, id));
        m_content.remove(id);
    }
    void Batch(int step) {
        Check(m_home.manager.BeginBatch());
        for (int i = 0; i < 5; ++i) Add(step, true);
        Remove();
        Remove();
        Check(m_home.store.Commit());
    }
    void Step(int step) {
        const auto choice = m_random() % 10;
        if (m_content.size() < 5 || choice < 5)
            Add(step, false);
        else if (choice < 7)
            Edit(step);
        else if (choice < 9)
            Remove();
        else
            Batch(step);
    }

    QByteArray m_settings;  ///< other than the program's own
    RecordsFixture m_home;
    FileHistory* m_history = nullptr;
    Content m_content;
    std::mt19937 m_random{2026};
};

/// Opens what a power cut has left and compares it with what was promised.
class Inspector {
 public:
    /// An empty text when all is well; otherwise what is wrong.
    [[nodiscard]] QString Look(const QHash<QString, QByteArray>& files, const Promise& promised,
                               const Promise* next) {
        Lay(files);
        CVOSrcMgr manager;
        if (!m_home.Open(manager)) return QStringLiteral("can't be opened: ") + manager.m_error;
        const QString report = manager.File().IntegrityReport();
        if (!report.isEmpty()) return QStringLiteral("damaged: ") + report;
        Content content;
        if (!ReadAll(manager, content)) return QStringLiteral("can't be read: ") + manager.m_error;
        // A change that was under way may have come through, as a whole.
        if (content == promised.content || (next && content == next->content)) return {};
        return QStringLiteral("holds %1 records, promised were %2")
            .arg(content.size())
            .arg(promised.content.size());
    }

 private:
    void Lay(const QHash<QString, QByteArray>& files) {
        const QDir folder(m_home.folder.path());
        for (const QString& old : folder.entryList(QDir::Files)) QFile::remove(folder.filePath(old));
        for (auto file = files.begin(); file != files.end(); ++file) {
            QFile out(folder.filePath(QFileInfo(file.key()).fileName()));
            if (!out.open(QIODevice::WriteOnly) || out.write(*file) != file->size())
                QTest::qFail("a file could not be laid out", __FILE__, __LINE__);
        }
    }
    [[nodiscard]] static bool ReadAll(CVOSrcMgr& manager, Content& content) {
        RowTable rows;
        if (!manager.Query(QStringLiteral("SELECT * FROM time_velmarch"), false) ||
            !manager.m_recordset->GetRows(rows))
            return false;
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            CTRecord record;
            if (!record.Load(rows, row)) return false;
            content[record.GetId()] = Summary(record);
        }
        return true;
    }
    RecordsFixture m_home;
};

struct Findings {
    int states = 0;
    QStringList wrong;
};

/// Looks at so many states, spread evenly over the whole history.
Findings CutEverywhere(const Workload& work, int states) {
    Findings findings;
    Inspector inspector;
    DiskState disk = work.disk;
    std::size_t applied = 0;
    std::size_t promise = 0;
    for (; findings.states < states; ++findings.states) {
        const std::size_t cut =
            work.events.size() * static_cast<std::size_t>(findings.states) / static_cast<std::size_t>(states);
        for (; applied < cut; ++applied) disk.Apply(work.events[applied]);
        while (promise + 1 < work.promises.size() && work.promises[promise + 1].events <= cut) ++promise;
        const Promise* next = promise + 1 < work.promises.size() ? &work.promises[promise + 1] : nullptr;
        // Its number is the state's seed: a state that fails can be made again.
        std::mt19937 random(static_cast<std::uint32_t>(findings.states));
        const QString wrong = inspector.Look(disk.AfterPowerCut(random), work.promises[promise], next);
        if (!wrong.isEmpty())
            findings.wrong +=
                QStringLiteral("state %1, after event %2: %3").arg(findings.states).arg(cut).arg(wrong);
    }
    return findings;
}

}  // namespace

void TestPowerCut::HistoryIsComplete() {
    const Workload work;
    DiskState disk = work.disk;
    for (const FileEvent& event : work.events) disk.Apply(event);
    QCOMPARE(disk.Whole().value(work.Path()), work.finalFile);
    QVERIFY(work.promises.back().content.size() > 20);
}

void TestPowerCut::AcknowledgedRecordsSurvive() {
    const int wanted = qEnvironmentVariableIntValue("VELMARCH_POWER_CUTS");
    const Workload work;
    const Findings findings = CutEverywhere(work, wanted > 0 ? wanted : 1500);
    QVERIFY2(findings.wrong.isEmpty(), qPrintable(findings.wrong.mid(0, 10).join(u'\n')));
}

void TestPowerCut::OtherSettingsLoseRecords_data() {
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<int>("atLeast");
    QTest::newRow("no syncs at all") << QByteArray("PRAGMA synchronous=OFF") << 500;
    QTest::newRow("a deleted journal may come back")
        << QByteArray("PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL") << 5;
}

void TestPowerCut::OtherSettingsLoseRecords() {
    QFETCH(QByteArray, settings);
    QFETCH(int, atLeast);
    // The same work with settings that are not safe: if nothing were lost now, the simulation would prove
    // nothing.
    const Findings findings = CutEverywhere(Workload(settings), 1000);
    QVERIFY2(findings.wrong.size() >= atLeast, qPrintable(QString::number(findings.wrong.size())));
}

TEST_CLASS(TestPowerCut);
#include "TestPowerCut.moc"
