#pragma once

#include "LoudPrompt.h"
#include "app/CVelmarchApp.h"
#include "entry/CEnteredItems.h"
#include "exchange/export/PostProcessing.h"
#include "platform/host/CClock.h"
#include "platform/host/CLauncher.h"
#include "shell/frame/CEventPump.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/CMainFrame.h"
#include "shell/list/CRecordListView.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/program/CViewHub.h"

#include <memory>
#include <optional>

/// Today at noon and so many seconds.
class NoonClock final : public CClock {
 public:
    void Advance(int seconds) { m_seconds += seconds; }
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override;

 private:
    int m_seconds = 0;
};

/// Nobody is there to answer.
class NoDialogs final : public CFrameDialogs {
 public:
    bool EditRecord(QWidget&, CVORec&, CVORec*) override { return false; }
    CEnteredItems& Entered() override { return m_entered; }
    bool EditSettings(QWidget&) override { return false; }
    bool ChooseDefault(QWidget&, CVORec&) override { return false; }
    std::optional<TextFileDraft> ChooseTextFile(QWidget&, TextFilePurpose, const TextFileDraft&,
                                                const CDelimiterDialog::Preview&) override {
        return std::nullopt;
    }
    AfterExport ChooseAfterExport(QWidget&, int, const QString&) override { return AfterExport::Nothing; }
    void EditDefaults(QWidget&, CVORec&) override {}
    void EditLists(QWidget&, CRecordChanges&) override {}
    bool EditLabels(QWidget&) override { return false; }
    bool EditDependencies(QWidget&, CDependencyEditor&, CRecordChanges&) override { return false; }
    bool RunGuide(QWidget&, CGuide&) override { return false; }

 private:
    CEnteredItems m_entered;
};

/// The window over a home, wired as the program wires it and on the screen, its records loaded. Nothing is
/// kept at the end, so the next run starts from the same state.
struct WindowHome {
    NoonClock clock;
    LoudPrompt prompt;
    CEventPump pump;
    CViewHub hub;
    CVelmarchApp app{{clock, prompt, pump, hub}};
    CProcessLauncher launcher;
    NoDialogs dialogs;
    ActiveTimerSet set{clock};
    std::unique_ptr<CRecordTimers> timers;
    std::unique_ptr<CMainFrame> frame;

    explicit WindowHome(const QString& home);
    ~WindowHome();
    WindowHome(const WindowHome&) = delete;
    WindowHome& operator=(const WindowHome&) = delete;

    void SetLayout(ListLayout layout);
    [[nodiscard]] CRecordListView& List() const { return *frame->findChild<CRecordListView*>(); }
    [[nodiscard]] CRecordListModel& Model() const { return *frame->findChild<CRecordListModel*>(); }
};
