#pragma once

#include "app/CVelmarchApp.h"
#include "platform/host/CPrompt.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CMainFrame.h"
#include "shell/frame/ScriptedDialogs.h"
#include "support/CNotedLauncher.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/program/CViewHub.h"

#include <QStringList>
#include <memory>

/// Agrees to everything, and notes what was told.
class CAgreeingPrompt final : public CPrompt {
 public:
    [[nodiscard]] Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override { told += box.text; }
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }

    QStringList told;
};

/// The window on a home, wired as the program wires it, until it is closed. The dialog of a record is agreed
/// to so many times, with a note of the user's in it, and called off when it comes again.
class FaultWindow {
 public:
    FaultWindow(const QString& home, const CClock& clock, int agreed);
    ~FaultWindow();
    FaultWindow(const FaultWindow&) = delete;
    FaultWindow& operator=(const FaultWindow&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_frame != nullptr; }
    /// Selects the records and carries a command out, as a menu would.
    void Run(int command, const QStringList& ids);
    [[nodiscard]] const QStringList& Told() const { return m_prompt.told; }

 private:
    const CClock& m_clock;
    CAgreeingPrompt m_prompt;
    CEventPump m_pump;
    CViewHub m_hub;
    CVelmarchApp m_app;
    CNotedLauncher m_launcher;
    ScriptedDialogs m_dialogs;
    ActiveTimerSet m_set;
    std::unique_ptr<CRecordTimers> m_timers;
    std::unique_ptr<CMainFrame> m_frame;
};
