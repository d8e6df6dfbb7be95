#include "records/CVOId.h"

#include "support/TestProgram.h"

#include <sys/wait.h>
#include <unistd.h>
#include <QSet>
#include <QTest>
#include <ctime>
#include <mutex>
#include <thread>
#include <vector>

class TestCVOId : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void IsIdentity_data();
    void IsIdentity();
    void NewIsEmpty();
    void GenUnique();
    void GenUniqueAscends();
    void GenUniqueBeginsWithTheTime();
    void GenUniqueInThreads();
    void GenUniqueInTwoProcesses();
    void Equality();
};

namespace {

QString NewId() {
    CVOId id;
    id.GenUnique();
    return id.GetId();
}

}  // namespace

void TestCVOId::IsIdentity_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    const QString good = QStringLiteral("0123456789ABCDEF0123456789ABCDEF");
    QTest::newRow("32 upper-case digits") << good << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("31 digits") << good.left(31) << false;
    QTest::newRow("33 digits") << good + u'0' << false;
    QTest::newRow("lower case") << good.toLower() << false;
    QTest::newRow("a letter beyond F") << good.left(31) + u'G' << false;
    QTest::newRow("an apostrophe") << good.left(31) + u'\'' << false;
    QTest::newRow("a blank at the end") << good.left(31) + u' ' << false;
    QTest::newRow("full-width digits") << QString(32, QChar(0xFF11)) << false;
    QTest::newRow("a null character") << good.left(31) + QChar(0) << false;
}

void TestCVOId::IsIdentity() {
    QFETCH(QString, text);
    QTEST(::IsIdentity(text), "expected");
}

void TestCVOId::NewIsEmpty() {
    QCOMPARE(CVOId().GetId(), QString());
}

void TestCVOId::GenUnique() {
    const QString id = NewId();
    QVERIFY2(::IsIdentity(id), qPrintable(id));
    QVERIFY(!id.startsWith(QStringLiteral("FFFF26110BDC")));
}

void TestCVOId::GenUniqueAscends() {
    QString last = NewId();
    // More than one millisecond's worth of counts.
    for (int i = 0; i < 200000; ++i) {
        QString next = NewId();
        QVERIFY2(next > last, qPrintable(last + u' ' + next));
        last = std::move(next);
    }
}

void TestCVOId::GenUniqueBeginsWithTheTime() {
    const auto before = static_cast<qulonglong>(std::time(nullptr)) * 1000U;
    const qulonglong stamp = NewId().left(12).toULongLong(nullptr, 16);
    QVERIFY(stamp + 2000 >= before);
    QVERIFY(stamp <= before + 60000);
}

void TestCVOId::GenUniqueInThreads() {
    constexpr int kThreads = 4;
    constexpr int kEach = 20000;
    std::vector<QStringList> made(kThreads);
    std::vector<std::thread> threads;
    for (QStringList& list : made)
        threads.emplace_back([&list] {
            for (int i = 0; i < kEach; ++i) list.append(NewId());
        });
    for (std::thread& thread : threads) thread.join();
    QSet<QString> all;
    for (const QStringList& list : made) all.unite(QSet<QString>(list.begin(), list.end()));
    QCOMPARE(all.size(), qsizetype{kThreads} * kEach);
}

void TestCVOId::GenUniqueInTwoProcesses() {
    constexpr int kEach = 1000;
    int channel[2];
    QCOMPARE(pipe(channel), 0);
    const pid_t child = fork();
    if (child == 0) {
        for (int i = 0; i < kEach; ++i) {
            const QByteArray id = NewId().toLatin1();
            if (write(channel[1], id.constData(), 32) != 32) _exit(1);
        }
        _exit(0);
    }
    close(channel[1]);
    QSet<QString> all;
    for (int i = 0; i < kEach; ++i) all.insert(NewId());
    QByteArray theirs;
    char block[4096];
    for (ssize_t got = 0; (got = read(channel[0], block, sizeof block)) > 0;) theirs.append(block, got);
    close(channel[0]);
    waitpid(child, nullptr, 0);
    QCOMPARE(theirs.size(), qsizetype{32} * kEach);
    for (int i = 0; i < kEach; ++i) all.insert(QString::fromLatin1(theirs.mid(i * 32, 32)));
    QCOMPARE(all.size(), qsizetype{2} * kEach);
}

void TestCVOId::Equality() {
    CVOId id;
    id.SetId(QStringLiteral("AB"));
    QVERIFY(id == QStringLiteral("AB"));
    QVERIFY(!(id == QStringLiteral("ab")));
    CVOId copy;
    copy = id;
    QCOMPARE(copy.GetId(), QStringLiteral("AB"));
}

TEST_CLASS(TestCVOId);
#include "TestCVOId.moc"
