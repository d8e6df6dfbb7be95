#include "shell/frame/CFrameWork.h"

#include "app/CVelmarchDoc.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameRecords.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "shell/work/CRecentMenu.h"
#include "shell/work/CWorkBar.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/commands/CommandTable.h"

#include <QWidget>
#include <algorithm>

CFrameWork::CFrameWork(const FrameContext& context, CFrameRecords& records, CRecentWork& recent)
    : m_context(context), m_records(records), m_recent(recent) {
    Connect();
}

/// What is asked of the bar while records are being read or a dialog waits can't be done, as with a command.
void CFrameWork::Connect() {
    CWorkBar& bar = m_context.workBar;
    CFrameControl& control = m_context.control;
    bar.Line().SetProposals([this](const QString& line) { return ProposeWork(line, Known()); });
    bar.Recent().SetRecent([this] { return RecentWorks(); });
    connect(&bar.Line(), &CWorkLine::StartWanted, this, &CFrameWork::StartLine);
    connect(&bar.Line(), &CWorkLine::Left, this, &CFrameWork::EndLine);
    connect(&bar.Recent(), &CRecentMenu::Chosen, this, &CFrameWork::Start);
    connect(&bar, &CWorkBar::OpenWanted, this, &CFrameWork::OpenRecord);
    connect(&bar, &CWorkBar::PauseWanted, this, [&control] { control.RunCommand(Command::kWorkPause); });
    connect(&bar, &CWorkBar::StopWanted, this, [&control] { control.RunCommand(Command::kWorkStop); });
    connect(&bar, &CWorkBar::LineWanted, this, [&control] { control.RunCommand(Command::kWorkLine); });
}

// --- What is shown

void CFrameWork::OnHint(Hint hint) {
    m_recent.OnHint(hint);
    if (hint == Hint::Rebuild || hint == Hint::Changed) m_works.clear();
    // The records are being replaced: what the bar shows is made of what comes then.
    if (hint != Hint::Clear && hint != Hint::SelectionChanged) Follow();
}

void CFrameWork::Follow() {
    m_works = TimedWorks(m_context.timers.Set(), m_context.document, m_works);
    Show();
}

void CFrameWork::Tick() {
    m_context.timers.Set().FoldAll();
    TakeCounts(m_works, m_context.timers.Set());
    Show();
}

void CFrameWork::Show() {
    m_context.workBar.ShowWorks(m_works);
    QWidget& window = m_context.control.Window();
    const QString title = WindowTitle(m_works);
    if (window.windowTitle() != title) window.setWindowTitle(title);
    Q_EMIT Shown();
}

// --- The line and what was worked on last

const CKnownWork& CFrameWork::Known() {
    if (!m_known) m_known.emplace(m_context.catalogue, m_recent);
    return *m_known;
}

/// Who asks for the bar wants to see it.
void CFrameWork::ShowBar() {
    if (!m_context.control.State().workBarShown) m_context.control.ToggleWorkBar();
}

void CFrameWork::OpenLine() {
    ShowBar();
    m_known.reset();
    m_context.workBar.OpenLine();
}

void CFrameWork::OpenRecent() {
    ShowBar();
    m_context.workBar.OpenRecent();
}

std::vector<Work> CFrameWork::RecentWorks() {
    std::vector<Work> works;
    for (const CRecentWork::Entry& entry : m_recent.Entries()) works.push_back(entry.work);
    return works;
}

void CFrameWork::StartLine(const QString& line) {
    m_known.reset();
    Start(ReadWorkLine(line, Known()));
}

/// The pane of the list hands the keyboard to what is in front.
void CFrameWork::LeaveLine() {
    QWidget* pane = m_context.view.parentWidget();
    (pane ? pane : &m_context.view)->setFocus();
}

/// The keyboard goes back to the list, unless it is elsewhere already.
void CFrameWork::EndLine() {
    m_known.reset();
    if (m_context.workBar.Line().hasFocus()) LeaveLine();
}

// --- Commands

void CFrameWork::Start(const Work& work) {
    if (m_context.control.State().busy) return;
    const WorkTerms terms = m_recent.TermsFor(work);
    const bool isStarted = m_records.StartWork([&](CVORec& record) {
        auto& time = static_cast<CTRecord&>(record);
        PutWork(work, time);
        PutTerms(terms, time);
        return true;
    });
    // What was typed stays where it could not be stored.
    if (isStarted) {
        const bool hadKeyboard = m_context.workBar.Line().hasFocus();
        m_context.workBar.CloseLine();
        if (hadKeyboard) LeaveLine();
    }
    Follow();
    m_context.control.FollowList();
}

/// A record whose timer is there is what is worked on: it goes on itself, where others begin a new one.
void CFrameWork::ContinueSelected() {
    const QStringList ids = m_context.view.SelectedIds();
    if (ids.size() != 1) return;
    Follow();
    const auto timed = std::ranges::find(m_works, ids.front(), &TimedWork::id);
    if (timed != m_works.end()) {
        if (timed->isRunning) return m_context.control.Say(LoadText(Text::StateRunning));
        m_records.StartTimer(ids.front());
        return Follow();
    }
    const auto* record =
        static_cast<const CTRecord*>(m_context.document.FetchRecord(RecordKind::Time, ids.front()));
    if (record) Start(WorkOf(*record));
}

void CFrameWork::PauseOrGoOn() {
    Follow();
    if (m_works.empty()) return;
    const QString id = m_works.front().id;
    m_works.front().isRunning ? m_records.PauseTimer(id) : m_records.StartTimer(id);
    Follow();
}

void CFrameWork::Stop() {
    Follow();
    // What is known goes with the change.
    if (!m_works.empty()) m_records.StopTimer(QString(m_works.front().id));
    Follow();
}

void CFrameWork::Open() {
    if (!m_works.empty()) OpenRecord(QString(m_works.front().id));
}

/// The record is read anew where its kind isn't the one in memory.
void CFrameWork::OpenRecord(const QString& id) {
    if (m_context.control.State().busy || !m_context.document.FetchRecord(RecordKind::Time, id)) return;
    m_records.Edit(id);
    m_works.clear();
    Follow();
}
