#include "timers/StopNote.h"

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <QTest>

class TestStopNote : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ReadBack() {
        const TestHome home;
        CTRecord record;
        record.GenUnique();
        record.SetDuration(30, 5, true);
        const auto note = StopNote::FromBytes(StopNote::Of(record).ToBytes());
        QVERIFY(note);
        QCOMPARE(note->recordId, record.GetId());
        QCOMPARE(note->hours, 30);
        QCOMPARE(note->minutes, 5);
        QVERIFY(note->IsIn(record));
    }

    void OnlyTheWholeDurationCounts_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<bool>("isIn");
        QTest::newRow("the same") << 1 << 30 << true;
        QTest::newRow("other minutes") << 1 << 31 << false;
        QTest::newRow("other hours") << 2 << 30 << false;
        QTest::newRow("none") << -1 << -1 << false;
    }
    void OnlyTheWholeDurationCounts() {
        QFETCH(int, hours);
        QFETCH(int, minutes);
        const TestHome home;
        CTRecord record;
        record.SetDuration(hours, minutes, true);
        QTEST((StopNote{QString(32, u'A'), 1, 30}.IsIn(record)), "isIn");
        QVERIFY(!(StopNote{QString(32, u'A'), -1, -1}.IsIn(CTRecord())));
    }

    /// Nothing is said by what can't be read.
    void Damage_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray good = StopNote{QString(32, u'A'), 1, 30}.ToBytes();
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("cut off") << good.chopped(1);
        QTest::newRow("another identity") << StopNote{QStringLiteral("short"), 1, 30}.ToBytes();
        QTest::newRow("other bytes") << QByteArray(40, 'x');
    }
    void Damage() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!StopNote::FromBytes(bytes));
    }
};

TEST_CLASS(TestStopNote);
#include "TestStopNote.moc"
