#include "viewmodel/commands/CRecordCommands.h"

#include "app/CTimerService.h"
#include "app/CVelmarchDoc.h"
#include "config/Settings.h"
#include "entry/RecordMarks.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "viewmodel/program/CProgress.h"

#include <functional>
#include <memory>

namespace {

/// Does a step for each identity until one fails or the user has enough; the number of steps done.
int RunOver(const QStringList& ids, CProgress& progress, const QString& what,
            const std::function<bool(const QString&)>& step) {
    progress.Begin(what, static_cast<int>(ids.size()));
    int done = 0;
    for (const QString& id : ids) {
        if (!progress.Advance() || !step(id)) break;
        ++done;
    }
    progress.End();
    return done;
}

/// One transaction around the changes of a selection: 5,000 deletes are one wait for the disk, not 5,000.
/// Where it can't be opened, each change is written by itself and tells why it fails.
class Batch {
 public:
    explicit Batch(CVelmarchDoc& document) : m_document(document), m_isOpen(document.BeginBatch()) {}
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    /// False when nothing of the batch was kept: memory has to be read anew.
    [[nodiscard]] bool Close() {
        return !m_isOpen || m_document.Commit() || m_document.Store().Manager().HasOpenChanges();
    }

 private:
    CVelmarchDoc& m_document;
    bool m_isOpen;
};

}  // namespace

bool CRecordCommands::Confirmed(Text question, Text title, qsizetype records) const {
    return m_context.prompt.Ask(
               {.textId = static_cast<int>(question),
                .title = LoadText(title),
                .text = FormatText<Text::QuestionWithNumber>(LoadText(question), static_cast<int>(records)),
                .icon = BoxIcon::Warning,
                .buttons = Buttons::YesNo,
                .defaultAnswer = Answer::No,
                .actionLabel = LoadText(title)}) == Answer::Yes;
}

void CRecordCommands::Delete(const QStringList& ids, bool ask) {
    if (ids.isEmpty()) return;
    if (ask && m_context.settings.confirmDelete &&
        !Confirmed(Text::AskDeleteRecords, Text::AskDeleteTitle, ids.size()))
        return;
    m_context.document.NotifyViews(Hint::AboutToGo, ids);
    Batch batch(m_context.document);
    const RecordKind kind = KindOf(theRecordMode);
    const int done =
        RunOver(ids, m_context.progress, FormatText<Text::ProgressDelete>(static_cast<int>(ids.size())),
                [this, kind](const QString& id) { return m_context.document.DeleteRecord(kind, id, false); });
    const bool isKept = batch.Close();
    // The timers go once their records are gone for good.
    for (const QString& id : ids.first(isKept ? done : 0))
        if (m_context.timers.HasTimer(id)) m_context.timers.Drop(id);
    m_context.document.FlushPending(Hint::Deleted);
    // What stayed, because one failed or the user cancelled, was taken out of the views above, and one that
    // failed out of what the document shows, too.
    if (isKept && done < ids.size()) {
        m_context.document.BuildVisible();
        m_context.document.NotifyViews(Hint::Rebuild);
    }
    if (!isKept) ReadAnew();
}

void CRecordCommands::ReadAnew() {
    m_context.document.LoadCurrentMode();
    m_context.document.BuildVisible();
    m_context.document.NotifyViews(Hint::Rebuild);
}

void CRecordCommands::Copy(const QStringList& ids) {
    if (ids.isEmpty()) return;
    if (m_context.settings.confirmCopy && !Confirmed(Text::AskCopyRecords, Text::AskCopyTitle, ids.size()))
        return;
    Batch batch(m_context.document);
    RunOver(ids, m_context.progress, FormatText<Text::ProgressCopy>(static_cast<int>(ids.size())),
            [this, &batch](const QString& id) {
                const CVORec* record = m_context.document.FindRecord(id);
                return record && m_context.document.AddRecord(*record, false, batch.IsOpen(), true);
            });
    const bool isKept = batch.Close();
    m_context.document.FlushPending(Hint::Added);
    if (!isKept) ReadAnew();
}

void CRecordCommands::SetMark(RecordMark mark, const QStringList& ids, bool ask) {
    if (ids.isEmpty() || !IsMarkOf(KindOf(theRecordMode), mark)) return;
    if (ask && m_context.settings.confirmMark &&
        !Confirmed(Text::AskMarkRecords, Text::AskMarkTitle, ids.size()))
        return;
    Batch batch(m_context.document);
    RunOver(ids, m_context.progress, FormatText<Text::ProgressMark>(static_cast<int>(ids.size())),
            [this, mark, &batch](const QString& id) { return MarkOne(mark, id, batch.IsOpen()); });
    const bool isKept = batch.Close();
    m_context.document.FlushPending(Hint::Changed);
    if (!isKept) ReadAnew();
}

/// A record that isn't there or bears the mark is passed over: true.
bool CRecordCommands::MarkOne(RecordMark mark, const QString& id, bool inBatch) {
    const CVORec* record = m_context.document.FindRecord(id);
    if (!record) return true;
    const std::unique_ptr<CVORec> marked = CVelmarchDoc::CloneRecord(*record);
    if (!::SetMark(*marked, mark)) return true;
    m_context.document.NotifyViews(Hint::AboutToChange, {id});
    return m_context.document.ModifyRecord(*marked, id, false, inBatch, true, true);
}
