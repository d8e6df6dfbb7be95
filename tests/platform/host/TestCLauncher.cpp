#include "platform/host/CLauncher.h"

#include "support/TestProgram.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace Qt::Literals::StringLiterals;

class TestCLauncher : public QObject {
    Q_OBJECT

    std::optional<QByteArray> output;
    CLauncher::Heard Listen() {
        return [this](const QByteArray& heard) { output = heard; };
    }
    static QStringList Script(const QString& script) { return {u"-c"_s, script}; }

 private Q_SLOTS:
    void init() { output.reset(); }

    void WhatAProgramWritesIsHeardAtItsEnd() {
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/bin/sh"_s, Script(u"echo 'two words'; echo aside >&2"_s), Listen());
        QVERIFY(!output);
        QTRY_COMPARE(output.value_or(""), "two words\n");
    }

    void ItIsHeardWhateverTheExitCode() {
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/bin/sh"_s, Script(u"echo damaged; exit 1"_s), Listen());
        QTRY_COMPARE(output.value_or(""), "damaged\n");
    }

    void ItWorksWhileOthersSleep() {
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/bin/sh"_s, Script(u"nice"_s), Listen());
        QTRY_COMPARE(output.value_or(""), "19\n");
    }

    void ThereIsNothingToReadForIt() {
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/bin/sh"_s, Script(u"cat; echo end"_s), Listen());
        QTRY_COMPARE(output.value_or(""), "end\n");
    }

    void OneThatCantBeStartedIsNotHeard() {
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/no/such/program"_s, {}, Listen());
        QTest::qWait(100);
        QVERIFY(!output);
    }

    void OneThatIsKilledIsNotHeard() {
        QTemporaryDir folder;
        const QString mark = folder.filePath(u"mark"_s);
        CProcessLauncher launcher;
        launcher.RunInBackground(u"/bin/sh"_s, Script(u"echo half; touch '%1'; kill -9 $$"_s.arg(mark)),
                                 Listen());
        QTRY_VERIFY(QFile::exists(mark));
        QTest::qWait(100);
        QVERIFY(!output);
    }

    void WhatRunsEndsWithTheLauncher() {
        QElapsedTimer timer;
        timer.start();
        {
            CProcessLauncher launcher;
            launcher.RunInBackground(u"/bin/sh"_s, Script(u"exec sleep 60"_s), Listen());
        }
        QVERIFY(timer.elapsed() < 30'000);
        QVERIFY(!output);
    }
};

TEST_CLASS(TestCLauncher);
#include "TestCLauncher.moc"
