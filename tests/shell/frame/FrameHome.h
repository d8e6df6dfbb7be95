#pragma once

#include "app/CVelmarchApp.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/commands/CActions.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CMainFrame.h"
#include "shell/frame/ScriptedDialogs.h"
#include "shell/list/CRecordListView.h"
#include "shell/look/CElidedLabel.h"
#include "support/CNotedLauncher.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/program/CViewHub.h"

#include <QAction>
#include <QTest>

/// The window over a home, wired as the program wires it; the record dialog is a function of the test.
struct Window {
    CTestClock clock;
    CScriptedPrompt prompt;
    CEventPump pump;
    CViewHub hub;
    CVelmarchApp app{{clock, prompt, pump, hub}};
    std::unique_ptr<ActiveTimerSet> set;
    std::unique_ptr<CRecordTimers> timers;
    std::unique_ptr<CMainFrame> frame;
    std::function<bool(CTRecord&)> dialog = [](CTRecord&) { return true; };
    CNotedLauncher launcher;
    ScriptedDialogs dialogs;

    enum class Mode { Time, AsStored };
    explicit Window(const QString& home, Mode mode = Mode::Time) {
        [&] {
            QVERIFY(app.ResolveHome(home));
            QVERIFY(app.OpenSettings());
            QVERIFY(app.OpenStore());
        }();
        if (mode == Mode::Time) theRecordMode = RecordMode::Time;
        set = std::make_unique<ActiveTimerSet>(clock);
        timers = std::make_unique<CRecordTimers>(*set, app.Document(), app.Settings());
        app.Document().SetTimers(timers.get());
        dialogs.edit = [this](CVORec& record) {
            return record.Kind() == RecordKind::Expense || dialog(static_cast<CTRecord&>(record));
        };
        frame = std::make_unique<CMainFrame>(
            CMainFrame::Context{app, *timers, hub, prompt, pump, clock, launcher, dialogs});
        frame->show();
        [&] { QVERIFY(QTest::qWaitForWindowExposed(frame.get())); }();
    }
    ~Window() {
        frame->PersistEverything();
        app.Document().SetTimers(nullptr);
        frame.reset();
        app.CloseSettings();
    }
    template <class Widget>
    [[nodiscard]] Widget* Find(const char* name) const {
        auto* widget = frame->findChild<Widget*>(QString::fromLatin1(name));
        [&] { QVERIFY2(widget, name); }();
        return widget;
    }
    [[nodiscard]] CRecordListView& List() const { return *Find<CRecordListView>("recordList"); }
    [[nodiscard]] int Rows() const { return List().model()->rowCount(); }
    [[nodiscard]] QString Status(const char* part) const { return Find<CElidedLabel>(part)->FullText(); }
    [[nodiscard]] bool Offers(int command) const {
        return frame->findChild<CActions*>()->Action(command)->isEnabled();
    }
    QString Add(int day, const char* start = "09:00", const char* end = "10:00") {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        DateTimeVal time;
        if (time.ParseTimeText(QString::fromLatin1(start), true)) record.SetStart(time);
        if (time.ParseTimeText(QString::fromLatin1(end), true)) record.SetEnd(time);
        QString id;
        [&] { QVERIFY(app.Document().AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        return id;
    }
};
