#pragma once

#include "app/Hints.h"
#include "app/RecordMode.h"
#include "shell/frame/CFrameCommands.h"
#include "shell/frame/CFrameControl.h"
#include "shell/list/CStatusBar.h"
#include "viewmodel/list/EmptyReason.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

class CActions;
class CCalendarPopup;
class CDataTreeView;
class CEmptyNote;
class CEventPump;
class CConditionStrip;
class CFrameTray;
class CListFindBar;
class CPanes;
class CProgressBox;
class CRecordListModel;
class CRecordListView;
class CRecordTimers;
class CReportPane;
class CReportScreen;
class CTimerTicker;
class CVelmarchApp;
class CViewHub;
class CWorkBar;
class QStackedWidget;
class QToolBar;

/// The one top-level window. It builds the panes, makes the actions and connects them; the work is done by
/// the classes it holds.
class CMainFrame final : public QMainWindow, public CViewListener, private CFrameControl {
    Q_OBJECT

 public:
    /// All must outlive the frame.
    struct Context {
        CVelmarchApp& app;
        CRecordTimers& timers;
        CViewHub& hub;
        CPrompt& prompt;
        CEventPump& pump;
        const CClock& clock;
        CLauncher& launcher;
        CFrameDialogs& dialogs;
    };
    explicit CMainFrame(const Context& context);
    ~CMainFrame() override;

    /// The load step, with the window on screen.
    void Refresh() override;
    /// At the end: timers, layout and period are kept. Before the settings are closed.
    void PersistEverything();
    void ComeForward() override;
    void Leave() override;
    void SwitchMode(RecordMode mode) override;
    [[nodiscard]] bool IsBusy() const { return m_busy > 0; }

    void OnHint(Hint hint, const QStringList& ids) override;
    /// Carries a command out as a menu would: the view first, then the frame, if it is offered.
    void RunCommand(int command) override;
    [[nodiscard]] CommandState State() const override;

 protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    class BusyScope;
    void MakePanes();
    [[nodiscard]] CStatusBar::Records ListedRecords();
    [[nodiscard]] CStatusBar::Records SelectedRecords();
    [[nodiscard]] FrameContext MakeFrameContext();
    void ShowTreeMenu(const QPoint& at);
    void MakeCommands();
    void Connect();
    void RestoreLayout();
    void PersistLayout();
    void PersistWindow();
    void ReadLists() override;
    void RebuildList() override;
    void TellList(Hint hint, const QStringList& ids);
    void TakeUpList();
    void Front(QWidget& wanted);
    [[nodiscard]] bool IsListInFront() const;
    [[nodiscard]] bool IsListActive() const;
    void ShowListOrNote();
    [[nodiscard]] EmptyReason WhyNothing() const;
    void ShowWhyNothing();
    [[nodiscard]] QWidget* MakeListPane();
    void MakeWorkBar();
    void UpdateActions();
    void WrapBars();
    void RememberPlace();
    void RestorePlace();

    [[nodiscard]] QWidget& Window() override { return *this; }
    void FollowList() override;
    void ToggleWorkBar() override;
    void ToggleBar1() override;
    void ToggleBar2() override;
    void ToggleStatusBar() override;
    void PickDay() override;
    void ShowReport() override;
    void CloseReport() override;
    void Say(const QString& what) override;

    Context m_context;
    QTimer m_toPersist;  ///< runs while layout, period or order may have changed and aren't kept yet
    int m_busy = 0;
    bool m_isLoading = true;  ///< until the first load step has run
    QStringList m_keptSelection;
    QString m_keptCurrent;
    CRecordListModel* m_model = nullptr;
    CRecordListView* m_view = nullptr;
    CConditionStrip* m_conditions = nullptr;
    CListFindBar* m_findBar = nullptr;
    CEmptyNote* m_note = nullptr;
    CReportPane* m_report = nullptr;
    QStackedWidget* m_pane = nullptr;
    CDataTreeView* m_tree = nullptr;
    CPanes* m_panes = nullptr;
    CStatusBar* m_status = nullptr;
    CWorkBar* m_workBar = nullptr;
    QToolBar* m_workPlace = nullptr;  ///< what holds it
    CActions* m_actions = nullptr;
    CTimerTicker* m_ticker = nullptr;
    std::unique_ptr<CProgressBox> m_progress;
    std::unique_ptr<CReportScreen> m_screen;
    std::unique_ptr<CFrameCommands> m_commands;
    std::unique_ptr<CFrameTray> m_tray;  ///< null where the desktop has no notification area
};
