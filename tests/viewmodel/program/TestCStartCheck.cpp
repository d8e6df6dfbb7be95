#include "viewmodel/program/CStartCheck.h"

#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "support/CNotedLauncher.h"
#include "support/CScriptedPrompt.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray kSound =
    R"({"ok": true, "checks": [{"name": "store", "ok": true, "detail": "/home/velmarch.store", "advice": null}]})";
const QByteArray kDamaged =
    R"({"ok": false, "checks": [{"name": "store", "ok": false, "detail": "Page 2 is torn.", "advice": "Take a copy."},
        {"name": "dates", "ok": null, "detail": "Not checked.", "advice": null},
        {"name": "timers", "ok": false, "detail": "One is left over.", "advice": null}]})";

}  // namespace

class TestCStartCheck : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(FolderOf(ModulePath()))); }

    void WrongFindings_data() {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("text");
        QTest::newRow("all is sound") << kSound << QString();
        QTest::newRow("what is wrong with its advice; what wasn't looked at is left out")
            << kDamaged << u"Page 2 is torn.\nTake a copy.\n\nOne is left over."_s;
        QTest::newRow("nothing was written") << QByteArray() << QString();
        QTest::newRow("something else was written") << QByteArray("Segmentation fault") << QString();
        QTest::newRow("a list instead of an object") << QByteArray("[1, 2]") << QString();
        QTest::newRow("no checks") << QByteArray(R"({"ok": false})") << QString();
    }
    void WrongFindings() {
        QFETCH(const QByteArray, json);
        QTEST(::WrongFindings(json), "text");
    }

    void TheDoctorIsAskedAboutTheHome() {
        CNotedLauncher launcher;
        CScriptedPrompt prompt;
        CStartCheck check({launcher, prompt, [](const auto& work) { work(); }});
        check.Begin(u"/programs/velmarch-cli"_s, u"/a home"_s);
        QCOMPARE(launcher.started, u"/programs/velmarch-cli --json --home /a home doctor"_s);
    }

    void WhereAllIsSoundTheUserHearsNothing() {
        CNotedLauncher launcher;
        CScriptedPrompt prompt;
        CStartCheck check({launcher, prompt, [](const auto& work) { work(); }});
        check.Begin(u"velmarch-cli"_s, u"/home"_s);
        launcher.End(kSound);
        QVERIFY(prompt.told.isEmpty());
    }

    void WhatIsWrongIsToldWhenTheUserIsFree() {
        CNotedLauncher launcher;
        CScriptedPrompt prompt;
        std::function<void()> waiting;
        CStartCheck check({launcher, prompt, [&waiting](const auto& work) { waiting = work; }});
        check.Begin(u"velmarch-cli"_s, u"/home"_s);
        launcher.End(kDamaged);
        QVERIFY(prompt.told.isEmpty());
        prompt.ExpectTold(Text::StartCheckFound);
        waiting();
        QVERIFY(prompt.told.first().contains(u"Page 2 is torn.\nTake a copy."_s));
        prompt.Finish();
    }

    /// With the real programs: a store that is no store.
    void ADamagedStoreIsFound() {
        QTemporaryDir home;
        QFile store(home.filePath(u"velmarch.store"_s));
        QVERIFY(store.open(QIODevice::WriteOnly));
        store.write(QByteArray(8192, 'x'));
        store.close();
        CProcessLauncher launcher;
        CScriptedPrompt prompt;
        CStartCheck check({launcher, prompt, [](const auto& work) { work(); }});
        prompt.ExpectTold(Text::StartCheckFound);
        check.Begin(FolderOf(ModulePath()) + u"/velmarch-cli"_s, home.path());
        QTRY_COMPARE_WITH_TIMEOUT(prompt.told.size(), 1, 30'000);
        prompt.Finish();
    }
};

TEST_CLASS(TestCStartCheck);
#include "TestCStartCheck.moc"
