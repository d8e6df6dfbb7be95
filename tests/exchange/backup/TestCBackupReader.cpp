#include "exchange/backup/CBackupReader.h"

#include "changes/CProgress.h"
#include "exchange/backup/BackupBytes.h"
#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QBuffer>
#include <QSet>
#include <QTest>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Fails from a place in the file on, when that is read for the second time or the first; and may refuse to
/// go back.
class CFailingDevice final : public QBuffer {
 public:
    qint64 failsAt = -1;
    int passes = 0;  ///< that succeed
    int seeksThatWork = 100;
    bool seek(qint64 place) override { return seeksThatWork-- > 0 && QBuffer::seek(place); }

 protected:
    qint64 readData(char* data, qint64 size) override {
        const qint64 from = pos();
        const qint64 read = QBuffer::readData(data, size);
        const bool isMet = failsAt >= 0 && from <= failsAt && from + read > failsAt;
        return isMet && passes-- <= 0 ? -1 : read;
    }
};

/// A user who cancels at a step.
class CCancelled final : public CProgress {
 public:
    explicit CCancelled(int step) : m_left(step) {}
    void Begin(const QString&, int) override {}
    bool Advance() override { return m_left-- > 0; }
    void End() override { ++ends; }
    int ends = 0;

 private:
    int m_left;
};

BackupOutcome Read(const QByteArray& bytes) {
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    CNoProgress progress;
    return CBackupReader(file, progress).Read(QString(), {});
}

BackupOutcome ReadParts(const QByteArray& bytes) {
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    CNoProgress progress;
    return CBackupReader(file, progress).VerifyParts();
}

QByteArray EndMarks(int count) {
    return Int32(-1).repeated(count);
}

}  // namespace

class TestCBackupReader : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void SoundFiles_data();
    void SoundFiles();
    void TheRecordsOfAFile();
    void Refused_data();
    void Refused();
    void EveryByteFlipped();
    void EveryLengthCut();
    void EveryLengthCutWithADigestThatFits();
    void AnyBytesWithADigestThatFits();
    void DevicesThatFail_data();
    void DevicesThatFail();
    void Cancel();
    void WhatTakesTheRecordsMayEndIt();
    void OnceMore_data();
    void OnceMore();
    void OnceMoreFromADeviceThatFails();

 private:
    TestHome m_home;  // the language library
};

void TestCBackupReader::SoundFiles_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QList<int>>("counts");
    const auto row = [](const char* name, const char* file, const QList<int>& counts) {
        QTest::newRow(name) << QString::fromLatin1(file) << counts;
    };
    row("all kinds", "current.vbk", {2, 2, 2, 2});
    row("no records: end marks alone", "empty.vbk", {0, 0, 0, 0});
    row("identities as bytes", "bytes.vbk", {1, 1, 0, 0});
    row("packed dependencies of version 1", "packed.vbk", {0, 0, 0, 1});
    row("no identity, and a negative length", "no-identity.vbk", {2, 0, 0, 0});
    row("an identity a digit too long", "long-identity.vbk", {0, 0, 0, 1});
}

void TestCBackupReader::SoundFiles() {
    QFETCH(QString, file);
    QFETCH(QList<int>, counts);
    const BackupOutcome read = Read(GoldenFile(file));
    QVERIFY2(read, qPrintable(read.error));
    QCOMPARE(QList<int>(read.content.counts.begin(), read.content.counts.end()), counts);
    QCOMPARE(read.content.time, (SYSTEMTIME{2026, 11, 5, 20, 12, 34, 56, 789}));
    QCOMPARE(ReadParts(GoldenFile(file)).content, read.content);
}

void TestCBackupReader::TheRecordsOfAFile() {
    QBuffer file;
    file.setData(GoldenFile(u"no-identity.vbk"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    CNoProgress progress;
    QList<std::pair<QString, QByteArray>> records;
    const BackupOutcome read = CBackupReader(file, progress).Read({}, [&](CVORec& record) {
        records.append({record.GetId(), record.ToBytes()});
        return QString();
    });
    QVERIFY(read);
    QCOMPARE(records.size(), 2);
    QVERIFY(records[0].first != records[1].first);
    for (const auto& [id, bytes] : records) {
        QVERIFY(IsIdentity(id));
        QVERIFY(file.data().contains(bytes));
    }
}

void TestCBackupReader::Refused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& bytes, Text reason) {
        QTest::newRow(name) << bytes << LoadText(reason);
    };
    const QByteArray id = u"00000000000000000000000000000001"_s.toUtf8();
    row("an empty file", {}, Text::BackupLacksDigest);
    row("fifteen bytes", QByteArray(15, 'x'), Text::BackupLacksDigest);
    row("a digest of nothing", WithDigest({}), Text::BackupHeadCut);
    row("another digest", QByteArray(16, '\0') + Head() + EndMarks(4), Text::BackupDigestDiffers);
    row("three bytes of the format code", WithDigest("abc"), Text::BackupHeadCut);
    row("no version", WithDigest(Int32(200)), Text::BackupHeadCut);
    row("half a version", WithDigest(Int32(200) + "ab"), Text::BackupHeadCut);
    row("half a time", WithDigest(Head().left(20)), Text::BackupHeadCut);
    row("format 101", WithDigest(Head(101) + EndMarks(4)), Text::BackupFormUnknown);
    row("format 0", WithDigest(Head(0) + EndMarks(4)), Text::BackupFormUnknown);
    row("version 0", WithDigest(Head(200, 0) + EndMarks(4)), Text::BackupVersionUnknown);
    row("version 3", WithDigest(Head(200, 3) + EndMarks(4)), Text::BackupVersionUnknown);
    row("exactly 40 bytes", WithDigest(Head()), Text::BackupEndMissing);
    row("three end marks", WithDigest(Head() + EndMarks(3)), Text::BackupEndMissing);
    row("three and a half end marks", WithDigest(Head() + EndMarks(3) + "ab"), Text::BackupEndMissing);
    row("an identity cut",
        WithDigest(Head() + Int32(32) +
                   "0\0"
                   "0"),
        Text::BackupIdCut);
    row("an identity longer than the file", WithDigest(Head() + Int32(0x7FFFFFFF)), Text::BackupIdCut);
    row("identity bytes that are no text", WithDigest(Head(100) + Int32(2) + "\xC3\x28" + EndMarks(4)),
        Text::BackupIdCut);
    row("no size", WithDigest(Head(100) + Int32(32) + id), Text::BackupSizeCut);
    row("no size behind no identity", WithDigest(Head() + Int32(0)), Text::BackupSizeCut);
    row("no size behind a negative length", WithDigest(Head() + Int32(-7) + "ab"), Text::BackupSizeCut);
    row("data cut", WithDigest(Head() + Int32(0) + Int32(100) + QByteArray(99, 'x')), Text::BackupDataCut);
    row("a size of four thousand millions", WithDigest(Head() + Int32(0) + Int32(-1)), Text::BackupDataCut);
    for (const auto& [marks, name] :
         {std::pair(0, "CTRecord"), {1, "CERecord"}, {2, "CPRecord"}, {3, "CDRecord"}})
        QTest::addRow("%s of nonsense", name)
            << WithDigest(Head() + EndMarks(marks) + Int32(0) + Int32(9) + "nonsense!" + EndMarks(4 - marks))
            << LoadText(Text::BackupRecordBad) + QString::fromLatin1(name) +
                   LoadText(Text::BackupRecordBadEnd);
    QTest::newRow("a record of no bytes")
        << WithDigest(Head() + Int32(0) + Int32(0) + EndMarks(4))
        << LoadText(Text::BackupRecordBad) + u"CTRecord"_s + LoadText(Text::BackupRecordBadEnd);
}

void TestCBackupReader::Refused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const BackupOutcome read = Read(bytes);
    QCOMPARE(read.error, reason);
    QCOMPARE(read.content, BackupContent());
    QCOMPARE(ReadParts(bytes).error, reason);
}

/// Behind the digest as well as in it: it doesn't fit any more, and nothing else is looked at.
void TestCBackupReader::EveryByteFlipped() {
    const QByteArray sound = GoldenFile(u"current.vbk"_s);
    for (qsizetype place = 0; place < sound.size(); ++place) {
        for (const char flip : {'\x01', '\x80', '\xFF'}) {
            QByteArray bytes = sound;
            bytes[place] = static_cast<char>(bytes[place] ^ flip);
            QCOMPARE(Read(bytes).error, LoadText(Text::BackupDigestDiffers));
        }
    }
}

void TestCBackupReader::EveryLengthCut() {
    const QByteArray sound = GoldenFile(u"current.vbk"_s);
    for (qsizetype length = 0; length < sound.size(); ++length)
        QCOMPARE(Read(sound.left(length)).error,
                 LoadText(length < 16 ? Text::BackupLacksDigest : Text::BackupDigestDiffers));
}

void TestCBackupReader::EveryLengthCutWithADigestThatFits() {
    const QByteArray sound = GoldenFile(u"current.vbk"_s);
    const QList<QString> reasons = {LoadText(Text::BackupHeadCut), LoadText(Text::BackupEndMissing),
                                    LoadText(Text::BackupIdCut), LoadText(Text::BackupSizeCut),
                                    LoadText(Text::BackupDataCut)};
    QSet<QString> met;
    for (qsizetype length = 16; length < sound.size(); ++length) {
        const QString error = Read(WithDigest(sound.mid(16, length - 16))).error;
        QVERIFY2(reasons.contains(error), qPrintable(error));
        met.insert(error);
    }
    QCOMPARE(met.size(), reasons.size());
}

void TestCBackupReader::AnyBytesWithADigestThatFits() {
    const QByteArray sound = GoldenFile(u"current.vbk"_s).mid(16);
    std::mt19937 random(4711);
    int refused = 0;
    for (int run = 0; run < 3000; ++run) {
        QByteArray bytes = sound;
        for (int change = 0; change < 4; ++change)
            bytes[static_cast<qsizetype>(random() % static_cast<std::uint32_t>(bytes.size()))] =
                static_cast<char>(random() % 3 == 0 ? 0xFF : random() & 0xFFU);
        const BackupOutcome read = Read(WithDigest(bytes)), parts = ReadParts(WithDigest(bytes));
        QCOMPARE(parts.error, read.error);
        QCOMPARE(parts.content, read.content);
        if (!read) ++refused;
    }
    QVERIFY(refused > 300);
}

void TestCBackupReader::DevicesThatFail_data() {
    QTest::addColumn<qint64>("place");
    QTest::addColumn<int>("passes");
    QTest::addColumn<int>("seeks");
    QTest::addColumn<Text>("reason");
    struct Row {
        const char* name;
        qint64 place;
        int passes;
        int seeks;
        Text reason;
    };
    // The first record of the file: length at 40, identity at 44, size at 108, data at 112.
    const Row rows[] = {
        {"the digest", 3, 0, 100, Text::BackupCantRead},
        {"the rest, for the digest", 50, 0, 100, Text::BackupCantRead},
        {"no way back", -1, 0, 1, Text::BackupCantSeek},
        {"the format code", 16, 1, 100, Text::BackupCantRead},
        {"the version", 20, 1, 100, Text::BackupCantRead},
        {"the time", 24, 1, 100, Text::BackupCantRead},
        {"the length of an identity", 40, 1, 100, Text::BackupRecordNotRead},
        {"an identity", 44, 1, 100, Text::BackupRecordNotRead},
        {"a size", 108, 1, 100, Text::BackupRecordNotRead},
        {"data", 112, 1, 100, Text::BackupRecordNotRead},
    };
    for (const Row& row : rows) QTest::newRow(row.name) << row.place << row.passes << row.seeks << row.reason;
}

void TestCBackupReader::DevicesThatFail() {
    QFETCH(qint64, place);
    QFETCH(int, passes);
    QFETCH(int, seeks);
    QFETCH(Text, reason);
    CFailingDevice file;
    file.setData(GoldenFile(u"current.vbk"_s));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    file.failsAt = place;
    file.passes = passes;
    file.seeksThatWork = seeks;
    CNoProgress progress;
    QCOMPARE(CBackupReader(file, progress).Read(QString(), {}).error, LoadText(reason));
}

void TestCBackupReader::Cancel() {
    QBuffer file;
    file.setData(WithDigest(QByteArray(200'000, 'x')));
    QVERIFY(file.open(QIODevice::ReadOnly));
    CCancelled progress(1);
    const BackupOutcome read = CBackupReader(file, progress).Read(QString(), {});
    QVERIFY(read.isCancelled);
    QCOMPARE(read.error, LoadText(Text::BackupCancelled));
    QCOMPARE(progress.ends, 1);
}

void TestCBackupReader::WhatTakesTheRecordsMayEndIt() {
    QBuffer file;
    file.setData(GoldenFile(u"current.vbk"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    CNoProgress progress;
    int taken = 0;
    const BackupOutcome read = CBackupReader(file, progress).Read({}, [&](CVORec&) {
        return ++taken == 3 ? u"enough"_s : QString();
    });
    QCOMPARE(read.error, u"enough"_s);
    QCOMPARE(taken, 3);
}

void TestCBackupReader::OnceMore_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("taken");
    QTest::addColumn<QString>("reason");
    const QByteArray sound = GoldenFile(u"current.vbk"_s);
    const auto flipped = [&sound](qsizetype place) {
        QByteArray bytes = sound;
        bytes[place] = static_cast<char>(bytes[place] ^ 1);
        return bytes;
    };
    const QString differs = LoadText(Text::BackupDigestDiffers);
    QTest::newRow("as it was") << sound << 8 << QString();
    QTest::newRow("another digest") << flipped(3) << 8 << differs;
    QTest::newRow("another value: the records are there, and the digest tells")
        << flipped(sound.indexOf(QByteArrayView("P\0r\0o\0j", 7)) + 1) << 8 << differs;
    QTest::newRow("something behind the records, which the digest knows")
        << WithDigest(sound.mid(16) + QByteArray(200'000, 'x')) << 8 << QString();
    QTest::newRow("something behind the records, which it doesn't") << sound + 'x' << 8 << differs;
    QTest::newRow("cut") << sound.chopped(1) << 8 << LoadText(Text::BackupEndMissing);
}

/// The digest is compared behind the last record.
void TestCBackupReader::OnceMore() {
    QFETCH(QByteArray, bytes);
    QBuffer file;
    file.setData(bytes);
    QVERIFY(file.open(QIODevice::ReadOnly));
    CNoProgress progress;
    int taken = 0;
    const BackupOutcome read = CBackupReader(file, progress).ReadAgain({}, [&taken](CVORec&) {
        ++taken;
        return QString();
    });
    QTEST(read.error, "reason");
    QTEST(taken, "taken");
    QCOMPARE(read.content.Total(), read ? 8 : 0);
}

/// It is read in one go: a place that fails is met where it stands.
void TestCBackupReader::OnceMoreFromADeviceThatFails() {
    for (const auto& [place, reason] :
         {std::pair(3, Text::BackupCantRead), {20, Text::BackupCantRead}, {112, Text::BackupRecordNotRead}}) {
        CFailingDevice file;
        file.setData(GoldenFile(u"current.vbk"_s));
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        file.failsAt = place;
        CNoProgress progress;
        QCOMPARE(CBackupReader(file, progress).ReadAgain({}, {}).error, LoadText(reason));
    }
    CFailingDevice file;
    file.setData(WithDigest(GoldenFile(u"current.vbk"_s).mid(16) + QByteArray(200'000, 'x')));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    file.failsAt = file.size() - 1;
    CNoProgress progress;
    QCOMPARE(CBackupReader(file, progress).ReadAgain({}, {}).error, LoadText(Text::BackupCantRead));
}

TEST_CLASS(TestCBackupReader);
#include "TestCBackupReader.moc"
