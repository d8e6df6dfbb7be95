#include "exchange/backup/BackupFormat.h"
#include "support/TestProgram.h"

#include <QTest>

class TestBackupFormat : public QObject {
    Q_OBJECT
 private Q_SLOTS:
    void OneIdentityIsReadAsItWasMeant();
};

void TestBackupFormat::OneIdentityIsReadAsItWasMeant() {
    using BackupFormat::MeantIdentity;
    QCOMPARE(MeantIdentity(QStringLiteral("FFFF26110BDC7162F073A5BC94A400011")),
             QStringLiteral("FFFF26110BDC7162F073A5BC94A40011"));
    for (const char* other : {"", "FFFF26110BDC7162F073A5BC94A40011", "FFFF26110BDC7162F073A5BC94A400010",
                              "ffff26110bdc7162f073a5bc94a400011"})
        QCOMPARE(MeantIdentity(QString::fromLatin1(other)), QString::fromLatin1(other));
}

TEST_CLASS(TestBackupFormat);
#include "TestBackupFormat.moc"
