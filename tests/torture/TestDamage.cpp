#include "cli/home/ConsoleHome.h"
#include "support/TestProgram.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTest>
#include <algorithm>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The commands whose answers are held against those of the sound home.
const QList<QStringList> kQuestions = {
    {u"time"_s, u"list"_s},     {u"expense"_s, u"list"_s},  {u"timer"_s, u"status"_s},
    {u"settings"_s, u"list"_s}, {u"defaults"_s, u"list"_s}, {u"items"_s, u"list"_s, u"16"_s},
};

using Files = QMap<QString, QByteArray>;

Files FilesOf(const QString& folder) {
    Files files;
    for (const QString& name : QDir(folder).entryList(QDir::Files)) {
        QFile file(QDir(folder).filePath(name));
        if (file.open(QIODevice::ReadOnly)) files.insert(name, file.readAll());
    }
    return files;
}

void Lay(const Files& files, const QString& folder) {
    for (const QString& old : QDir(folder).entryList(QDir::Files)) QFile::remove(QDir(folder).filePath(old));
    for (auto file = files.begin(); file != files.end(); ++file) {
        QFile out(QDir(folder).filePath(file.key()));
        if (!out.open(QIODevice::WriteOnly) || out.write(*file) != file->size())
            QTest::qFail("a file could not be laid out", __FILE__, __LINE__);
    }
}

enum class Harm { Bit, Byte, Page, Cut };

QByteArray Harmed(QByteArray bytes, Harm harm, std::mt19937& random) {
    constexpr qsizetype kPage = 4096;
    const auto at = static_cast<qsizetype>(random() % static_cast<std::size_t>(bytes.size()));
    switch (harm) {
        case Harm::Bit:
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
            break;
        case Harm::Byte:
            bytes[at] = static_cast<char>(bytes[at] + 1 + static_cast<int>(random() % 255));
            break;
        case Harm::Page:
            for (qsizetype i = at / kPage * kPage; i < std::min(bytes.size(), (at / kPage + 1) * kPage); ++i)
                bytes[i] = static_cast<char>(random() % 256);
            break;
        case Harm::Cut:
            bytes.truncate(at);
            break;
    }
    return bytes;
}

/// What came of the trials.
struct Tally {
    int trials = 0;
    int right = 0;  ///< all answers as they were
    int told = 0;
    QStringList silent;   ///< other answers, and nothing was said
    QStringList crashes;  ///< or runs without an end
    QStringList written;  ///< a record was added to a store of which damage was known
};

}  // namespace

/// Damages the files of a home at random places, by bits, bytes, pages and cuts, and asks the console program
/// what is in it: the answers are right, or it says that something is wrong, and nothing is written to a
/// store of which it has said so. The long form (VELMARCH_LONG_TESTS) damages 1,000 places of each file.
class TestDamage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase();
    void EveryPlace_data();
    void EveryPlace();

 private:
    void Try(const Files& damaged, const QString& what, Tally& tally) const;
    Files m_sound;
    Files m_interrupted;  ///< a change was cut off: with a journal that undoes it
    QList<QJsonDocument> m_answers;
};

void TestDamage::initTestCase() {
    const ConsoleHome home;
    QCOMPARE(home.Run({u"demo"_s, u"fill"_s, u"300"_s}).exit, 0);
    QCOMPARE(home.Run({u"defaults"_s, u"save"_s, u"usual"_s, u"--item1"_s, u"Alpha"_s}).exit, 0);
    QCOMPARE(home.Run({u"settings"_s, u"set"_s, u"roundDurationMinutes"_s, u"15"_s}).exit, 0);
    for (int i = 0; i < 3; ++i) {
        const QString id = home.Add(
            {u"--date"_s, u"2026-11-19"_s, u"--duration"_s, u"7:30"_s, u"--notes"_s, QString(5000, u'n')});
        QCOMPARE(home.Run({u"timer"_s, u"start"_s, id}).exit, 0);
        QCOMPARE(home.Run({u"timer"_s, u"pause"_s, id}).exit, 0);
    }
    for (const QStringList& question : kQuestions) m_answers += home.RunJson(question).Json();
    m_sound = FilesOf(home.Path());

    sqlite3* db = nullptr;
    QCOMPARE(sqlite3_open(home.File(u"velmarch.store"_s).toUtf8().constData(), &db), SQLITE_OK);
    QCOMPARE(sqlite3_exec(db,
                          "PRAGMA journal_mode=TRUNCATE; PRAGMA cache_size=4; BEGIN; "
                          "UPDATE time_velmarch SET notes='half done', item1='Nobody'",
                          nullptr, nullptr, nullptr),
             SQLITE_OK);
    m_interrupted = FilesOf(home.Path());
    sqlite3_close(db);
    QVERIFY(!m_interrupted.value(u"velmarch.store-journal"_s).isEmpty());
    QVERIFY(m_interrupted.value(u"velmarch.store"_s) != m_sound.value(u"velmarch.store"_s));
}

void TestDamage::Try(const Files& damaged, const QString& what, Tally& tally) const {
    const ConsoleHome home;
    Lay(damaged, home.Path());
    ++tally.trials;
    const Reply doctor = home.RunJson({u"doctor"_s});
    bool isTold = doctor.exit != 0 || !doctor.err.isEmpty();
    bool isKnown = doctor.Object()[u"storeDamaged"].toBool();
    bool isRight = true;
    bool hasEnded = doctor.exit >= 0;
    for (qsizetype i = 0; i < kQuestions.size(); ++i) {
        const Reply reply = home.RunJson(kQuestions[i]);
        hasEnded = hasEnded && reply.exit >= 0;
        isTold = isTold || reply.exit != 0 || !reply.err.isEmpty();
        isKnown = isKnown || reply.err.contains("velmarch.store is damaged");
        isRight = isRight && reply.Json() == m_answers[i];
    }
    const Reply add = home.Run({u"time"_s, u"add"_s, u"--date"_s, u"2026-11-20"_s});
    if (!hasEnded || add.exit < 0) tally.crashes += what;
    if (isKnown && add.exit == 0) tally.written += what;
    if (!isRight && !isTold) tally.silent += what;
    (isTold ? tally.told : tally.right) += 1;
}

void TestDamage::EveryPlace_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isInterrupted");
    QTest::newRow("the store") << u"velmarch.store"_s << false;
    QTest::newRow("the settings") << u"velmarch.settings"_s << false;
    QTest::newRow("a store with a change that was cut off") << u"velmarch.store"_s << true;
    QTest::newRow("the journal of such a store") << u"velmarch.store-journal"_s << true;
}

void TestDamage::EveryPlace() {
    QFETCH(QString, name);
    QFETCH(bool, isInterrupted);
    const int wanted = qEnvironmentVariableIntValue("VELMARCH_DAMAGES");
    const int usual = qEnvironmentVariableIntValue("VELMARCH_LONG_TESTS") > 0 ? 1000 : 8;
    const int trials = wanted > 0 ? wanted : usual;
    Tally tally;
    const auto tryNumber = [&](int number) {
        // Its number is the trial's seed: one that fails can be made again.
        std::mt19937 random(static_cast<std::uint32_t>(number));
        Files damaged = isInterrupted ? m_interrupted : m_sound;
        damaged[name] = Harmed(damaged[name], static_cast<Harm>(number % 4), random);
        Try(damaged, u"%1"_s.arg(number), tally);
    };
    for (int number = 0; number < trials; ++number) tryNumber(number);
    // Rows that can't be read in a file that passes for sound as a whole: an add was taken once.
    for (const int number : {176, 988}) tryNumber(number);
    qInfo("%d trials: %d right, %d told; wrong in silence: %lld, crashed: %lld, written to: %lld",
          tally.trials, tally.right, tally.told, static_cast<long long>(tally.silent.size()),
          static_cast<long long>(tally.crashes.size()), static_cast<long long>(tally.written.size()));
    QVERIFY2(tally.crashes.isEmpty(), qPrintable(tally.crashes.join(u' ')));
    QVERIFY2(tally.written.isEmpty(), qPrintable(tally.written.join(u' ')));
    QVERIFY2(tally.silent.isEmpty(), qPrintable(tally.silent.join(u' ')));
}

TEST_CLASS(TestDamage);
#include "TestDamage.moc"
