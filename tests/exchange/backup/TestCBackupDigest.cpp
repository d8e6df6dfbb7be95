#include "exchange/backup/CBackupDigest.h"

#include "support/TestProgram.h"

#include <QCryptographicHash>
#include <QTest>
#include <algorithm>

class TestCBackupDigest : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ofAnyLength_data();
    void ofAnyLength();
    void thatNobodyAsksFor();
};

void TestCBackupDigest::ofAnyLength_data() {
    QTest::addColumn<qsizetype>("length");
    QTest::addColumn<qsizetype>("piece");
    constexpr qsizetype kHashedAtOnce = 1 << 20;
    QTest::newRow("nothing") << qsizetype{0} << qsizetype{1};
    QTest::newRow("one byte") << qsizetype{1} << qsizetype{1};
    QTest::newRow("a byte less than is hashed at once") << kHashedAtOnce - 1 << qsizetype{4096};
    QTest::newRow("as much as is hashed at once") << kHashedAtOnce << qsizetype{4096};
    QTest::newRow("several times that, in odd pieces") << kHashedAtOnce * 5 + 321 << qsizetype{65537};
    QTest::newRow("in pieces that are larger") << kHashedAtOnce * 7 << kHashedAtOnce * 2 + 1;
}

void TestCBackupDigest::ofAnyLength() {
    QFETCH(qsizetype, length);
    QFETCH(qsizetype, piece);
    QByteArray bytes(length, Qt::Uninitialized);
    for (qsizetype i = 0; i < length; ++i) bytes[i] = static_cast<char>(i * 31 + i / 251);
    CBackupDigest digest;
    for (qsizetype at = 0; at < length; at += piece)
        digest.Add(QByteArrayView(bytes).sliced(at, std::min(piece, length - at)));
    QCOMPARE(digest.Result().toHex(), QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

/// A reading that is broken off while some bytes are hashed.
void TestCBackupDigest::thatNobodyAsksFor() {
    CBackupDigest digest;
    for (int i = 0; i < 3; ++i) digest.Add(QByteArray(1 << 20, 'x'));
}

TEST_CLASS(TestCBackupDigest);
#include "TestCBackupDigest.moc"
