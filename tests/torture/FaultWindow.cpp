#include "torture/FaultWindow.h"

#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "shell/list/CRecordListView.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void EnterNote(CVORec& record) {
    if (record.Kind() == RecordKind::Time)
        static_cast<CTRecord&>(record).notes = u"entered"_s;
    else
        static_cast<CERecord&>(record).notes = u"entered"_s;
}

}  // namespace

Answer CAgreeingPrompt::Ask(const MessageBox& box) {
    return box.buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
}

FaultWindow::FaultWindow(const QString& home, const CClock& clock, int agreed)
    : m_clock(clock), m_app({clock, m_prompt, m_pump, m_hub}), m_set(clock) {
    if (!m_app.ResolveHome(home) || !m_app.OpenSettings() || !m_app.OpenStore()) return;
    m_timers = std::make_unique<CRecordTimers>(m_set, m_app.Document(), m_app.Settings());
    m_app.Document().SetTimers(m_timers.get());
    m_timers->RestoreTimers();
    m_dialogs.edit = [this, agreed](CVORec& record) {
        EnterNote(record);
        return m_dialogs.edited <= agreed;
    };
    m_frame = std::make_unique<CMainFrame>(
        CMainFrame::Context{m_app, *m_timers, m_hub, m_prompt, m_pump, m_clock, m_launcher, m_dialogs});
    m_frame->Refresh();
}

FaultWindow::~FaultWindow() {
    if (!m_frame) return;
    m_frame->PersistEverything();
    m_app.Document().SetTimers(nullptr);
    m_frame.reset();
    m_app.CloseSettings();
}

void FaultWindow::Run(int command, const QStringList& ids) {
    m_frame->findChild<CRecordListView*>(u"recordList"_s)->SelectIds(ids);
    m_frame->RunCommand(command);
}
