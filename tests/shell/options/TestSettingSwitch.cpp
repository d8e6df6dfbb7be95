#include "shell/options/SettingSwitch.h"

#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QTest>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

class TestSettingSwitch final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void SaveSetting();
    void SaveSettingThatIsNotThere();
};

namespace {

/// Saves a setting in a process of its own, where neither the test's handlers nor a core file are in the way.
[[noreturn]] void SaveInChild(TestHome& home, const QString& name) {
    const rlimit none{};
    ::setrlimit(RLIMIT_CORE, &none);
    std::signal(SIGABRT, SIG_DFL);
    std::signal(SIGSEGV, SIG_DFL);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    SaveSetting(name, *home.settings, home.prompt);
    ::_exit(0);
}

/// How a process that saves the setting ends, as waitpid says it.
int EndOfSaving(TestHome& home, const QString& name) {
    const pid_t child = ::fork();
    if (child == 0) SaveInChild(home, name);
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child ? status : -1;
}

}  // namespace

void TestSettingSwitch::SaveSetting() {
    TestHome home;
    const int end = EndOfSaving(home, u"confirmCopy"_s);
    QVERIFY(WIFEXITED(end));
    QCOMPARE(WEXITSTATUS(end), 0);
}

/// A name that no setting has is a slip of the code. The assert stops it: asserts are on in tests.
void TestSettingSwitch::SaveSettingThatIsNotThere() {
    TestHome home;
    const int end = EndOfSaving(home, u"noSuchSetting"_s);
    QVERIFY(WIFSIGNALED(end));
    QCOMPARE(WTERMSIG(end), SIGABRT);
}

TEST_CLASS(TestSettingSwitch);
#include "TestSettingSwitch.moc"
