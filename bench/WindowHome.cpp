#include "WindowHome.h"

#include "Painted.h"
#include "shell/look/IconTheme.h"

SYSTEMTIME NoonClock::GetLocalTime() const {
    SYSTEMTIME time = CSystemClock().GetLocalTime();
    time.wHour = static_cast<std::uint16_t>(12 + m_seconds / 3600);
    time.wMinute = static_cast<std::uint16_t>(m_seconds / 60 % 60);
    time.wSecond = static_cast<std::uint16_t>(m_seconds % 60);
    return time;
}

WindowHome::WindowHome(const QString& home) {
    ChooseIconTheme();
    if (!app.ResolveHome(home) || !app.OpenSettings() || !app.OpenStore()) qFatal("the home can't be opened");
    app.Settings().KeepStoreUntouched();
    timers = std::make_unique<CRecordTimers>(set, app.Document(), app.Settings());
    app.Document().SetTimers(timers.get());
    frame = std::make_unique<CMainFrame>(
        CMainFrame::Context{app, *timers, hub, prompt, pump, clock, launcher, dialogs});
    frame->show();
    WaitForPaint(*List().viewport(), [this] { frame->Refresh(); });
}

WindowHome::~WindowHome() {
    app.Document().SetTimers(nullptr);
    frame.reset();
}

void WindowHome::SetLayout(ListLayout layout) {
    WaitForPaint(*List().viewport(), [&] {
        app.Settings().listLayout = static_cast<int>(layout);
        app.Document().NotifyViews(Hint::Rebuild);
    });
}
