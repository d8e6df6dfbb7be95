#include "cli/commands/ReportRunCommand.h"

#include "app/CFieldCatalogue.h"
#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/commands/CCountedRecords.h"
#include "cli/commands/CListedRecords.h"
#include "cli/commands/RecordSteps.h"
#include "cli/commands/ReportOutlet.h"
#include "cli/commands/ReportRequest.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CTimerAccess.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "cli/output/FieldOutput.h"
#include "cli/output/RunOutput.h"
#include "config/CCfgStore.h"
#include "exchange/backup/MakeBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "records/FieldTexts.h"
#include "reports/aggregate/CAggregation.h"
#include "reports/definition/ReportKinds.h"

#include <unistd.h>
#include <QFileInfo>
#include <utility>

namespace {

constexpr OptionRow kRunOptions[] = {
    {"ids", "ID,ID", OptionShape::Value, Text::CliOptIds},
    {"format", "html|csv", OptionShape::Value, Text::CliOptFormat},
    {"out", "FILE", OptionShape::Value, Text::CliOptOut},
};

/// Says what there is to say of a filter, and how the command ends by it.
ExitCode Refuse(const FilterProblem& problem, Console& console) {
    for (const QString& note : problem.notes) console.out.Note(note);
    if (!problem.words.isEmpty()) console.out.Complain(problem.words);
    return problem.exit;
}

/// The rows of the listing, read while they are written.
class CReadRows final : public CListingRows {
 public:
    CReadRows(CListedRecords& records, const ReportResult& result) : m_records(records), m_result(result) {}

    [[nodiscard]] bool ForEachRow(const Visit& visit) override {
        QStringList cells;
        bool isWhole = true;
        const bool isRead = m_records.ForEachShown([&](const CVORec& record) {
            m_result.listing->ReadCells(record, cells);
            isWhole = visit(cells);
            return isWhole;
        });
        return isRead && isWhole;
    }

 private:
    CListedRecords& m_records;
    const ReportResult& m_result;
};

/// Of a report without a listing.
class CNoRows final : public CListingRows {
 public:
    [[nodiscard]] bool ForEachRow(const Visit&) override { return true; }
};

/// Shows on a terminal how far the counting is.
class CCountProgress {
 public:
    explicit CCountProgress(COutput& out)
        : m_out(out), m_isShown(!out.isQuiet && ::isatty(STDERR_FILENO) != 0) {}
    ~CCountProgress() {
        if (m_isShown && m_count >= kStep) m_out.NoteBare(QStringLiteral("\n"));
    }
    CCountProgress(const CCountProgress&) = delete;
    CCountProgress& operator=(const CCountProgress&) = delete;

    void Advance() {
        if (++m_count % kStep == 0 && m_isShown) m_out.Progress(FormatText<Text::CliReportProgress>(m_count));
    }

 private:
    static constexpr int kStep = 10000;
    COutput& m_out;
    bool m_isShown;
    int m_count = 0;
};

/// One run from the definition to what it writes.
class CRun {
 public:
    CRun(ReportRequest request, Console& console, RecordContext& context)
        : m_request(std::move(request)), m_console(console), m_context(context) {}

    [[nodiscard]] ExitCode Run() {
        NoteQuickRun();
        const ExitCode chosen = ChooseRecords();
        if (chosen != ExitCode::Done) return chosen;
        if (!m_context.catalogue.Load()) return ExitCode::Failed;
        return MakeReport();
    }

 private:
    /// What was made of the records, for all forms in which it is written.
    struct Made {
        const ReportResult& result;
        CListingRows& rows;
        std::size_t count;
        ForEachIdentity forEachId;
    };

    [[nodiscard]] RecordKind Kind() const { return KindOf(m_request.mode); }
    void NoteQuickRun();
    [[nodiscard]] ExitCode ChooseRecords();
    [[nodiscard]] ExitCode ChooseByDefinition();
    [[nodiscard]] ExitCode ApplyQuery(const QString& name);
    [[nodiscard]] ExitCode MakeReport();
    [[nodiscard]] ExitCode MakeOfRows(CRecordReader& reader, CAggregation& aggregation);
    [[nodiscard]] ExitCode MakeOfCounts(CRecordReader& reader, CAggregation& aggregation);
    [[nodiscard]] ExitCode RefuseNone() const {
        return ::Refuse(ExitCode::Failed, LoadText(m_noneText), m_console);
    }
    [[nodiscard]] QString Today() const;
    [[nodiscard]] ExitCode Write(const Made& made);
    [[nodiscard]] bool WriteJson(const Made& made);
    void TellWhatLacks() const;
    void NoteCutDistances(const ReportResult& result) const;

    ReportRequest m_request;
    Console& m_console;
    RecordContext& m_context;
    std::optional<QStringList> m_ids;
    Text m_noneText = Text::ReportNothingListed;
};

/// What was run last can be run again and be changed. Where the settings refuse, the run goes on without.
void CRun::NoteQuickRun() {
    if (m_request.name || m_request.report.kind == ReportKind::Summary) return;
    const CReportStore store = m_context.owner.Reports(m_request.mode, m_request.report.kind);
    (void)m_context.owner.Change(store.SaveRequest(CReportStore::ReservedName(), m_request.report));
}

ExitCode CRun::ApplyQuery(const QString& name) {
    m_noneText = Text::ReportNothingFound;
    const FilterProblem problem =
        ApplyStoredQuery(name, m_context.owner.Queries(m_request.mode), m_context.document);
    return Refuse(problem, m_console);
}

/// Where the command line says nothing of records.
ExitCode CRun::ChooseByDefinition() {
    const CReportDef& report = m_request.report;
    switch (report.selection) {
        case ReportSelection::Selected:
            return ::Refuse(ExitCode::Failed, LoadText(Text::ReportNothingSelected), m_console);
        case ReportSelection::Listed:
            break;
        case ReportSelection::Query:
            m_noneText = Text::ReportNothingFound;
            if (report.useStoredQuery && !report.queryName.isEmpty()) return ApplyQuery(report.queryName);
            break;
    }
    return ExitCode::Done;
}

ExitCode CRun::ChooseRecords() {
    // Without criteria everything passes, whatever the filter was before.
    const FilterProblem problem = ReadFilter(Kind(), m_request.filter, m_context.document);
    if (const ExitCode exit = Refuse(problem, m_console); exit != ExitCode::Done) return exit;
    if (m_request.ids) {
        m_noneText = Text::ReportNothingSelected;
        m_ids = FindRecords(Kind(), *m_request.ids, m_console, m_context);
        return m_ids ? ExitCode::Done : LookupFailed(m_context);
    }
    if (m_request.query) return ApplyQuery(*m_request.query);
    return m_request.isFiltered ? ExitCode::Done : ChooseByDefinition();
}

void CRun::TellWhatLacks() const {
    const GroupLack lack = LackOf(m_request.report);
    if (lack == GroupLack::GroupFields) m_console.out.Complain(LoadText(Text::ReportLacksGroup));
    if (lack == GroupLack::SumFields) m_console.out.Complain(LoadText(Text::ReportLacksSum));
}

void CRun::NoteCutDistances(const ReportResult& result) const {
    if (result.cutDistances.Count() > 0) m_console.out.Note(result.cutDistances.Words());
}

QString CRun::Today() const {
    const SYSTEMTIME today = m_console.clock.GetLocalTime();
    return TextsOfDay(today.wMonth, today.wDay, today.wYear).longText;
}

ExitCode CRun::MakeReport() {
    const CFieldCatalogue catalogue(m_context.catalogue.Labels(), m_context.settings);
    CAggregation aggregation(Kind(), m_request.report, catalogue, m_context.settings);
    if (m_request.filter.Has("timers")) m_context.timers.Look();
    CRecordReader reader(m_context.document, Kind(), &m_context.timers.Timers());
    return m_ids || HasListing(m_request.report.kind) ? MakeOfRows(reader, aggregation)
                                                      : MakeOfCounts(reader, aggregation);
}

/// The records are read to be counted and sorted, and again when their rows are written.
ExitCode CRun::MakeOfRows(CRecordReader& reader, CAggregation& aggregation) {
    CListedRecords records(reader, {});
    CCountProgress progress(m_console.out);
    const auto take = [&](const CVORec& record) {
        aggregation.Add(record);
        progress.Advance();
    };
    if (!(m_ids ? records.FindThese(*m_ids, take) : records.Find(take))) return ExitCode::Failed;
    if (aggregation.Count() == 0) return RefuseNone();
    const std::vector<std::uint32_t> order = aggregation.Order();
    if (!m_request.report.sortKeys.isEmpty()) records.Reorder(order);
    const ReportResult result = aggregation.Result(order, Today());
    CReadRows rows(records, result);
    const ExitCode exit =
        Write({.result = result, .rows = rows, .count = records.Count(), .forEachId = [&](const auto& visit) {
                   records.ForEachId(visit);
               }});
    if (records.MissingCount() > 0)
        m_console.out.Note(FormatText<Text::ReportRecordMissing>(static_cast<int>(records.MissingCount())));
    return exit;
}

/// Which record is which has to be known only where something depends on it.
ExitCode CRun::MakeOfCounts(CRecordReader& reader, CAggregation& aggregation) {
    const CReportDef& report = m_request.report;
    const bool isOrdered = m_console.out.isJson || !report.sortKeys.isEmpty();
    CCountedRecords records(reader, aggregation,
                            isOrdered ? CCountedRecords::Known::All : CCountedRecords::Known::Groups);
    CCountProgress progress(m_console.out);
    if (!records.Count(NeededColumns(Kind(), report), [&progress] { progress.Advance(); }))
        return ExitCode::Failed;
    if (aggregation.Count() == 0) return RefuseNone();
    const std::vector<std::uint32_t> order = records.Order();
    const ReportResult result = aggregation.Result(order, Today());
    CNoRows rows;
    return Write(
        {.result = result, .rows = rows, .count = aggregation.Count(), .forEachId = [&](const auto& visit) {
             records.ForEachId(order, visit);
         }});
}

ExitCode CRun::Write(const Made& made) {
    TellWhatLacks();
    NoteCutDistances(made.result);
    const bool isJson = m_console.out.isJson;
    if (m_request.file || !isJson) {
        const ReportOutlet outlet{m_request.format, m_request.file};
        const ExitCode exit = WriteReport(outlet, made.result, made.rows, m_console);
        if (exit != ExitCode::Done) return exit;
    }
    return !isJson || WriteJson(made) ? ExitCode::Done : ExitCode::Failed;
}

bool CRun::WriteJson(const Made& made) {
    const SYSTEMTIME today = m_console.clock.GetLocalTime();
    return WriteRunJson(m_console.out,
                        {.mode = m_request.mode,
                         .name = m_request.name,
                         .date = IsoDate(today.wYear, today.wMonth, today.wDay),
                         .count = made.count,
                         .result = made.result},
                        made.forEachId, made.rows);
}

}  // namespace

std::span<const OptionRow> RunOptions() {
    return kRunOptions;
}

ExitCode RunReport(const CArguments& arguments, Console& console, RecordContext& context) {
    ReportRequest request;
    const FilterProblem problem = ReadReportRequest(arguments, console, context.owner, request);
    if (problem.exit != ExitCode::Done) return Refuse(problem, console);
    const QString& home = context.document.Store().Manager().m_directory;
    if (request.file && IsFileOfHome(home, QFileInfo(*request.file).absoluteFilePath()))
        return Refuse(ExitCode::Usage, FormatText<Text::BackupOwnFile>(*request.file), console);
    return CRun(std::move(request), console, context).Run();
}
