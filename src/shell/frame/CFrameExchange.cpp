#include "shell/frame/CFrameExchange.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "config/NameColumns.h"
#include "exchange/backup/MakeBackup.h"
#include "exchange/export/CRecordExport.h"
#include "exchange/export/ItemExport.h"
#include "exchange/export/PostProcessing.h"
#include "exchange/import/CLineQuestion.h"
#include "exchange/import/CLookProgress.h"
#include "exchange/import/CRecordImport.h"
#include "exchange/import/ImportPreview.h"
#include "exchange/import/ItemImport.h"
#include "exchange/text/GuessDelimiters.h"
#include "exchange/text/TextColumns.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/exchange/CDelimiterDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/ChangesOf.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "timers/CRecordTimers.h"

#include <algorithm>
#include <span>

namespace {

QString FilterOfExports() {
    return QStringLiteral("%1 (*.%2)")
        .arg(LoadText(Text::ExportDescription), LoadText(Text::ExportExtension));
}

}  // namespace

CFrameExchange::CFrameExchange(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_changes(ChangesOf(context, m_timers, CRecordChanges::Partial::Kept)),
      m_delimiters(PresetDelimiters()) {}

void CFrameExchange::Tell(Text id, const QString& words, Text title) {
    m_context.prompt.Tell({.textId = static_cast<int>(id),
                           .title = LoadText(title),
                           .text = words,
                           .icon = title == Text::ExchangeTitle ? BoxIcon::Information : BoxIcon::Warning,
                           .actionLabel = {}});
}

// --- Import

bool CFrameExchange::OpenFile(CTextFile& file, Text title, Text failure) {
    const auto path = m_context.prompt.ChooseFile({.purpose = FileChoice::Purpose::Open,
                                                   .title = LoadText(title),
                                                   .suggestedName = {},
                                                   .filter = LoadText(Text::ImportFileFilter)});
    const int error = path ? file.Open(*path) : 0;
    if (error != 0) Tell(failure, FormatText<Text::ImportCantOpen>(*path, error), Text::ReadWriteTitle);
    return path && error == 0;
}

void CFrameExchange::ImportRecords(RecordForm form) {
    CTextFile file;
    if (!OpenFile(file, Text::ImportTitle, Text::ImportCantOpen)) return;
    ImportRequest request{.kind = KindOf(theRecordMode),
                          .form = {.delimiters = {}, .form = form, .clock24 = m_context.settings.clock24},
                          .distances = m_context.catalogue.Texts(ListId::kDistance)};
    const auto requestOf = [&request](const TextFileDraft& draft) {
        ImportRequest wanted = request;
        wanted.form.delimiters = draft.delimiters;
        wanted.encoding = draft.encoding;
        wanted.addListItems = draft.addListItems;
        wanted.skipDuplicates = draft.skipDuplicates;
        return wanted;
    };
    file.Begin({});
    CStoredContents stored(request.kind, form);
    if (!ReadStored(stored)) return;
    const int least = static_cast<int>(TextColumnsOf(request.kind).size()) - 2;
    const auto draft = m_context.dialogs.ChooseTextFile(
        m_context.control.Window(), TextFilePurpose::ImportRecords, {GuessDelimiters(file, least)},
        [&](const TextFileDraft& chosen) {
            return PreviewRecords(file, requestOf(chosen), stored, NamesOfColumns());
        });
    // Others may have stored something while the user was choosing.
    if (!draft || !ReadStored(stored)) return;
    CRecordImport import(file, requestOf(*draft), stored);
    Store(import, LookAt(import, file), file);
}

/// False, and nothing is to be done any more, when the user cancels or they can't be read, which was told.
bool CFrameExchange::ReadStored(CStoredContents& stored) {
    CProgress& progress = m_context.progress;
    progress.Begin(LoadText(Text::ProgressStoredLook),
                   static_cast<int>(m_context.document.RecordCount() / CStoredContents::kPiece + 1));
    const auto end = stored.Read(m_context.document.Store(), [&progress] { return progress.Advance(); });
    progress.End();
    return end == CStoredContents::ReadEnd::Complete;
}

ImportPlan CFrameExchange::LookAt(CRecordImport& import, const CTextFile& file) {
    CLineQuestion question(m_context.prompt);
    CLookProgress progress(m_context.progress, file);
    return import.Look({.goesOn = [&question](const RefusedLine& line) { return question.GoesOn(line); },
                        .advance = [&progress] { return progress.GoesOn(); }});
}

/// What can't be read on ends an import in silence: what was read is imported.
void CFrameExchange::Store(CRecordImport& import, const ImportPlan& plan, const CTextFile& file) {
    if (plan.end == ImportPlan::End::Undecodable)
        return Tell(Text::LineUndecodable,
                    FormatText<Text::LineUndecodable>(plan.lastLine, QString::fromLatin1(file.Encoding())),
                    Text::LineRefusedTitle);
    if (plan.end == ImportPlan::End::Cancelled) return TellCancelled();
    const Outcome outcome = import.Run(plan, m_changes, Hold::Yes, {});
    if (import.FileChanged())
        Tell(Text::ImportFileChanged, LoadText(Text::ImportFileChanged), Text::LineRefusedTitle);
    if (outcome.end == Outcome::End::Cancelled) TellCancelled();
    if (outcome) Tell(Text::ImportDone, DoneWords(plan), Text::ExchangeTitle);
}

void CFrameExchange::TellCancelled() {
    Tell(Text::ImportCancelled, LoadText(Text::ImportCancelled), Text::LineRefusedTitle);
}

QString CFrameExchange::DoneWords(const ImportPlan& plan) const {
    constexpr std::size_t kMostNamed = 5;
    QString done = FormatText<Text::ImportDone>(plan.records);
    if (plan.misreadCount == 0) return done;
    const auto named = std::span(plan.misread).first(std::min(plan.misread.size(), kMostNamed));
    return FormatText<Text::ImportDoneNotes>(done, plan.misreadCount,
                                             MisreadWords(named, NamesOfColumns()).join(u'\n'));
}

ColumnNames CFrameExchange::NamesOfColumns() const {
    return {m_context.catalogue.Labels(), m_context.settings};
}

void CFrameExchange::ImportItems() {
    CTextFile file;
    if (!OpenFile(file, Text::ImportItemsTitle, Text::ImportItemsCantOpen)) return;
    file.Begin({});
    const auto draft = m_context.dialogs.ChooseTextFile(
        m_context.control.Window(), TextFilePurpose::ImportItems, {GuessDelimiters(file, 2)},
        [&](const TextFileDraft& chosen) {
            return PreviewItems(file, chosen.delimiters, chosen.encoding, m_context.catalogue);
        });
    if (!draft) return;
    const ItemPlan plan =
        LookAtItems(file, draft->delimiters, draft->encoding, [this](const RefusedLine& line) {
            Tell(Text::ItemLineRefused,
                 LoadText(Text::ItemLineRefused) + line.line + LoadText(Text::LineReason) +
                     TextOf(line.code) + LoadText(Text::ItemLineRefusedEnd),
                 Text::ItemLineRefusedTitle);
        });
    if (plan.end == ItemPlan::End::Failed)
        Tell(Text::ImportReadFailed, FormatText<Text::ImportReadFailed>(file.Error()), Text::ReadWriteTitle);
    int added = 0;
    if (!m_changes.AddItems(plan.texts, added)) return;
    Tell(Text::ImportItemsDone, FormatText<Text::ImportItemsDone>(added), Text::ExchangeTitle);
    m_context.catalogue.FillLabels();
    if (NameColumns(m_context.settings)) m_context.document.NotifyViews(Hint::Rebuild);
}

// --- Export

std::optional<QString> CFrameExchange::ChooseTarget(Text title, Text suggestedName, ExportForm& form) {
    const auto draft = m_context.dialogs.ChooseTextFile(m_context.control.Window(), TextFilePurpose::Export,
                                                        {m_delimiters}, {});
    if (!draft) return std::nullopt;
    m_delimiters = form.delimiters = draft->delimiters;
    if (!draft->encoding.isEmpty()) form.encoding = draft->encoding;
    auto path = m_context.prompt.ChooseFile(
        {.purpose = FileChoice::Purpose::Save,
         .title = LoadText(title),
         .suggestedName = LoadText(suggestedName) + u'.' + LoadText(Text::ExportExtension),
         .filter = FilterOfExports()});
    if (!path || !IsFileOfHome(m_context.home, *path)) return path;
    Tell(Text::ExportOwnFile, FormatText<Text::ExportOwnFile>(*path), Text::ReadWriteTitle);
    return std::nullopt;
}

void CFrameExchange::ExportRecords() {
    const QStringList ids = m_context.view.SelectedIds();
    if (ids.isEmpty())
        return Tell(Text::ExportNothingSelected, LoadText(Text::ExportNothingSelected), Text::ExportTitle);
    ExportForm form;
    const auto path = ChooseTarget(
        Text::ExportTitle,
        theRecordMode == RecordMode::Time ? Text::ExportTimesName : Text::ExportExpensesName, form);
    if (!path) return;
    const auto end = WriteRecords(*path, form, ids);
    if (end && end->isWritten) Process(*path, ids, *end);
}

/// Nothing, and nothing is written, where a record is gone or the user cancels.
std::optional<ExportEnd> CFrameExchange::WriteRecords(const QString& path, const ExportForm& form,
                                                      const QStringList& ids) {
    CRecordExport file(path, form, KindOf(theRecordMode), NamesOfColumns());
    const auto count = static_cast<int>(ids.size());
    m_context.progress.Begin(FormatText<Text::ProgressExport>(count), count);
    const auto failure = PutAll(file, ids);
    m_context.progress.End();
    if (failure) {
        Tell(*failure, LoadText(*failure), Text::ExportTitle);
        return std::nullopt;
    }
    const ExportEnd end = file.Finish();
    if (!end.isWritten) TellNotExported(end, m_context.prompt);
    TellNotes(end);
    return end;
}

/// Why it can't go on; nothing when all are in the file.
std::optional<Text> CFrameExchange::PutAll(CRecordExport& file, const QStringList& ids) {
    const CVelmarchDoc::ChangeScope reading(m_context.document);
    for (const QString& id : ids) {
        const CVORec* record = m_context.document.FindLoaded(id);
        if (!record) return Text::ExportRecordGone;
        file.Put(*record);
        if (!m_context.progress.Advance()) return Text::ExportCancelled;
    }
    return std::nullopt;
}

void CFrameExchange::TellNotes(const ExportEnd& end) {
    for (const ExportNote& note : NotesOn(end)) Tell(note.id, note.words, Text::ExportTitle);
}

void CFrameExchange::Process(const QString& path, const QStringList& ids, const ExportEnd& end) {
    auto what = static_cast<AfterExport>(m_context.settings.exportPostProcessing);
    if (what == AfterExport::Ask)
        what = m_context.dialogs.ChooseAfterExport(m_context.control.Window(), static_cast<int>(ids.size()),
                                                   path);
    const auto objection = WhyNotDeleted(end);
    if (what == AfterExport::Delete && objection)
        return Tell(*objection, LoadText(*objection), Text::ExportTitle);
    // What failed was told.
    static_cast<void>(PostProcess(what, KindOf(theRecordMode), ids, m_changes));
}

void CFrameExchange::ExportItems() {
    ExportForm form;
    const auto path = ChooseTarget(Text::ExportItemsTitle, Text::ExportItemsName, form);
    if (!path) return;
    const ItemExportEnd end = ::ExportItems(*path, form, m_context.document.Store());
    if (!end.areItemsRead) return;
    if (!end.file.isWritten) return TellNotExported(end.file, m_context.prompt);
    TellNotes(end.file);
    Tell(Text::ExportItemsDone, FormatText<Text::ExportItemsDone>(*path, end.items), Text::ExchangeTitle);
}
