#include "platform/host/ErrorText.h"

#include "support/TestProgram.h"

#include <QTest>
#include <cerrno>

/// What the platform says of an error number.
class TestErrorText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Says_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("a file that isn't there") << ENOENT << QStringLiteral("No such file or directory");
        QTest::newRow("a full disk") << ENOSPC << QStringLiteral("No space left on device");
        QTest::newRow("no error has no text") << 0 << QString();
        QTest::newRow("a number that stands for nothing has none") << 99999 << QString();
        QTest::newRow("nor has one below 0") << -5 << QString();
    }
    void Says() {
        QFETCH(int, code);
        QTEST(ErrorText(code), "text");
    }
};

TEST_CLASS(TestErrorText);
#include "TestErrorText.moc"
