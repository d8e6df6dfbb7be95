#include "shell/frame/CFrameExchange.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "config/NameColumns.h"
#include "exchange/backup/MakeBackup.h"
#include "exchange/export/ItemExport.h"
#include "exchange/export/PostProcessing.h"
#include "exchange/export/RecordText.h"
#include "exchange/import/CLineQuestion.h"
#include "exchange/import/CRecordImport.h"
#include "exchange/import/ItemImport.h"
#include "exchange/text/GuessDelimiters.h"
#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/exchange/CDelimiterDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/FrameContext.h"
#include "shell/list/CRecordListView.h"
#include "timers/CRecordTimers.h"

namespace {

QString FilterOfExports() {
    return QStringLiteral("%1 (*.%2)")
        .arg(LoadText(Text::ExportDescription), LoadText(Text::ExportExtension));
}

}  // namespace

CFrameExchange::CFrameExchange(const FrameContext& context)
    : m_context(context),
      m_timers(context.timers),
      m_changes({.document = context.document,
                 .timers = m_timers,
                 .catalogue = context.catalogue,
                 .entered = context.dialogs.Entered(),
                 .settings = context.settings,
                 .prompt = context.prompt,
                 .progress = context.progress,
                 .partial = CRecordChanges::Partial::Kept}),
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
                          .form = {.delimiters = {}, .form = form, .clock24 = m_context.settings.clock24}};
    const auto requestOf = [&request](const TextFileDraft& draft) {
        ImportRequest wanted = request;
        wanted.form.delimiters = draft.delimiters;
        wanted.encoding = draft.encoding;
        wanted.addListItems = draft.addListItems;
        wanted.skipDuplicates = draft.skipDuplicates;
        return wanted;
    };
    file.Begin({});
    const int least = static_cast<int>(TextColumnsOf(request.kind).size()) - 2;
    const auto draft = m_context.dialogs.ChooseTextFile(
        m_context.control.Window(), TextFilePurpose::ImportRecords, {GuessDelimiters(file, least)},
        [&](const TextFileDraft& chosen) {
            return PreviewRecords(file, requestOf(chosen), m_context.document.Store(),
                                  m_context.catalogue.Labels(), m_context.settings);
        });
    if (!draft) return;
    CRecordImport import(file, requestOf(*draft));
    CLineQuestion question(m_context.prompt);
    const ImportPlan plan =
        import.Look({.store = m_context.document.Store(),
                     .goesOn = [&question](const RefusedLine& line) { return question.GoesOn(line); },
                     .advance = {}});
    Store(import, plan, file);
}

/// What can't be read on ends an import in silence: what was read is imported.
void CFrameExchange::Store(CRecordImport& import, const ImportPlan& plan, const CTextFile& file) {
    if (plan.end == ImportPlan::End::StoreFailed) return;
    if (plan.end == ImportPlan::End::Undecodable)
        return Tell(Text::LineUndecodable,
                    FormatText<Text::LineUndecodable>(plan.lastLine, QString::fromLatin1(file.Encoding())),
                    Text::LineRefusedTitle);
    const Outcome outcome = import.Run(plan, m_changes, Hold::Yes, {});
    if (import.FileChanged())
        Tell(Text::ImportFileChanged, LoadText(Text::ImportFileChanged), Text::LineRefusedTitle);
    if (outcome.end == Outcome::End::Cancelled)
        Tell(Text::ImportCancelled, LoadText(Text::ImportCancelled), Text::LineRefusedTitle);
    if (outcome) Tell(Text::ImportDone, FormatText<Text::ImportDone>(plan.records), Text::ExchangeTitle);
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
    bool mayDelete = true;
    if (path && WriteRecords(*path, form, ids, mayDelete)) Process(*path, ids, mayDelete);
}

/// False, and nothing is written, where a record is gone.
bool CFrameExchange::WriteRecords(const QString& path, const ExportForm& form, const QStringList& ids,
                                  bool& mayDelete) {
    CTextExport file(path, form);
    // What can't be written is told at the end.
    static_cast<void>(file.Put(
        HeadLine(KindOf(theRecordMode), form.delimiters, m_context.catalogue.Labels(), m_context.settings)));
    for (const QString& id : ids) {
        const CVORec* record = m_context.document.FindLoaded(id);
        if (!record) {
            Tell(Text::ExportRecordGone, LoadText(Text::ExportRecordGone), Text::ExportTitle);
            return false;
        }
        static_cast<void>(file.Put(LineOf(*record, form.delimiters)));
    }
    const ExportEnd end = file.Finish();
    if (!end.isWritten) TellNotExported(end, m_context.prompt);
    if (end.replaced > 0)
        Tell(Text::ExportCharsReplaced, FormatText<Text::ExportCharsReplaced>(static_cast<int>(end.replaced)),
             Text::ExportTitle);
    mayDelete = end.replaced == 0;
    return end.isWritten;
}

void CFrameExchange::Process(const QString& path, const QStringList& ids, bool mayDelete) {
    auto what = static_cast<AfterExport>(m_context.settings.exportPostProcessing);
    if (what == AfterExport::Ask)
        what = m_context.dialogs.ChooseAfterExport(m_context.control.Window(), static_cast<int>(ids.size()),
                                                   path);
    if (what == AfterExport::Delete && !mayDelete)
        return Tell(Text::ExportNotDeleted, LoadText(Text::ExportNotDeleted), Text::ExportTitle);
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
    Tell(Text::ExportItemsDone, FormatText<Text::ExportItemsDone>(*path, end.items), Text::ExchangeTitle);
}
