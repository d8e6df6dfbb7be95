#include "shell/program/CSingleWindow.h"

#include "app/CVelmarchApp.h"
#include "lang/LoadText.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Start = CSingleWindow::Start;

QString LockName() {
    return QString::fromLatin1(CVelmarchApp::kMutexName);
}

}  // namespace

/// Whether a window may start in a home.
class TestCSingleWindow final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void TheFirstOne() {
        const QTemporaryDir home;
        CScriptedPrompt prompt;
        CSingleWindow window(prompt);
        QCOMPARE(window.Begin(home.path()), Start::IsAlone);
        QVERIFY(window.IsLocked());
        QVERIFY(CInstance::IsHeld(LockName(), home.path()));
    }

    /// A link may lead to the lock of another folder, and nobody knows who holds what.
    void ALinkInTheLocksPlace() {
        const QTemporaryDir home;
        QVERIFY(QFile::link(u"/dev/null"_s, home.filePath(u'.' + LockName())));
        CScriptedPrompt prompt;
        prompt.ExpectTold(Text::WindowNotAlone);
        CSingleWindow window(prompt);
        QCOMPARE(window.Begin(home.path()), Start::Refused);
        prompt.Finish();
        QVERIFY(prompt.told.last().contains(u"Delete it."_s));
    }

    void AnotherOneThatDoesNotAnswer() {
        const QTemporaryDir home;
        CInstance other;
        QCOMPARE(other.Take(LockName(), home.path()), CInstance::Outcome::Taken);
        CScriptedPrompt prompt;
        prompt.ExpectTold(Text::OtherWindowIsMute);
        CSingleWindow window(prompt);
        QCOMPARE(window.Begin(home.path()), Start::Refused);
        prompt.Finish();
    }

    /// It was at its end: the next one starts as soon as it is gone.
    void AnotherOneThatEnds() {
        const QTemporaryDir home;
        int ready[2];
        QCOMPARE(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            CInstance other;
            if (other.Take(LockName(), home.path()) != CInstance::Outcome::Taken) ::_exit(1);
            if (::write(ready[1], "!", 1) != 1) ::_exit(2);
            ::usleep(500'000);
            ::_exit(0);
        }
        char sign = 0;
        QCOMPARE(::read(ready[0], &sign, 1), 1);
        CScriptedPrompt prompt;
        CSingleWindow window(prompt);
        QCOMPARE(window.Begin(home.path()), Start::IsAlone);
        ::waitpid(child, nullptr, 0);
        ::close(ready[0]);
        ::close(ready[1]);
    }

    /// There is nothing that two windows could do to one another.
    void AHomeThatCanOnlyBeRead() {
        if (::geteuid() != 0) QSKIP("only the administrator can pretend to be another user");
        const QTemporaryDir home;
        QCOMPARE(::chmod(QFile::encodeName(home.path()).constData(), 0755), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            if (::seteuid(65534) != 0) ::_exit(2);
            CScriptedPrompt prompt;
            CSingleWindow window(prompt);
            ::_exit(window.Begin(home.path()) == Start::IsAlone && !window.IsLocked() ? 0 : 1);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        QCOMPARE(status, 0);
    }
};

TEST_CLASS(TestCSingleWindow);
#include "TestCSingleWindow.moc"
