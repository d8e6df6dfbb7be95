#pragma once

#include "app/CVelmarchApp.h"
#include "platform/host/CMessagePump.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "support/TestHome.h"

/// A start of a program: its application object, and what that needs from outside.
struct AppStart {
    CTestClock clock;
    CScriptedPrompt prompt;
    CNoPump pump;
    TestHome::Views views;
    RecordModeScope mode{RecordMode::Time};
    CVelmarchApp app{{clock, prompt, pump, views}};

    /// All steps up to the load step.
    [[nodiscard]] bool OpenAll(const QString& home) {
        return app.ResolveHome(home) && app.OpenSettings() && app.OpenStore();
    }
};
