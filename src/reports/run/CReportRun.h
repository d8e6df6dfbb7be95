#pragma once

#include "platform/host/SafeFile.h"
#include "reports/aggregate/ReportResult.h"
#include "reports/run/CReportSource.h"
#include "reports/write/CHTMLWriter.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

class CCfgStore;
class CClock;
class CFieldCatalogue;
class CProgress;
class CPrompt;
class CVelmarchDoc;
class CVORec;

/// How a step of a run ended.
enum class RunEnd {
    Done,
    Told,        ///< there are no records; the user was told
    NotInFront,  ///< the records are those of the list, which isn't in front
    QueryGone,   ///< the stored query can't be read any more
    Cancelled,
    RecordGone,  ///< a record of the run is gone
    NoSuchKind   ///< a damaged definition
};

struct [[nodiscard]] RunOutcome {
    RunEnd end = RunEnd::Done;
    explicit operator bool() const { return end == RunEnd::Done; }
};

/// What a run works with.
struct ReportContext {
    CVelmarchDoc& document;
    CCfgStore& settings;
    const CFieldCatalogue& catalogue;
    CReportSource& source;
    CPrompt& prompt;
    CProgress& progress;
    const CClock& clock;
};

/// Makes the page of a report from the loaded records of the mode in force. The page stays until the next run
/// that gets as far as making one.
class CReportRun {
 public:
    explicit CReportRun(const ReportContext& context) : m_context(context) {}

    /// Which records the report covers: their identities go into the definition, in the order in which they
    /// stand before the sort keys act. A date of a stored query that can't be read is told first, since the
    /// report would cover another time than it was made for.
    [[nodiscard]] RunOutcome ResolveRecords(CReportDef& report);
    /// Sorts and counts those records and makes the page of them. A report without fields to group by or to
    /// add up is told of, and has its page without the groups; so are distances that aren't read whole.
    [[nodiscard]] RunOutcome RunReport(const CReportDef& report);

    /// Empty before the first run.
    [[nodiscard]] QString GetHtml() const { return m_writer.GetHtml(); }
    [[nodiscard]] const ReportResult& Result() const { return m_result; }
    /// The table of the page for a spreadsheet, in UTF-8.
    [[nodiscard]] QByteArray Csv();
    /// How many characters of the page the system's code page lacks: ask before saving.
    [[nodiscard]] qint64 CountLostCharacters() const;
    [[nodiscard]] FileOutcome SavePage(const QString& path) const { return m_writer.SaveToFile(path); }

 private:
    class CShownRows;
    template <class Filter>
    [[nodiscard]] RunOutcome FilterFor(const CReportDef& report, Filter& filter);
    template <class Filter>
    [[nodiscard]] RunOutcome ResolveQuery(CReportDef& report);
    [[nodiscard]] RunOutcome TakeIds(CReportDef& report, const std::optional<QStringList>& ids,
                                     int noneText) const;
    void Tell(int textId, const QString& words) const;
    [[nodiscard]] bool FindRecords(const QStringList& ids, std::vector<const CVORec*>& records) const;
    void TellWhatLacks(const CReportDef& report) const;
    void TellOfCutDistances(const ReportResult& result) const;

    ReportContext m_context;
    CHTMLWriter m_writer;
    ReportResult m_result;
    std::vector<QStringList> m_rows;  ///< of the listing, as the page shows them
};

/// The first groups of a report over these records, for a preview while it is being defined.
[[nodiscard]] GroupedTable PreviewGroups(const CReportDef& report, const std::vector<const CVORec*>& records,
                                         const CFieldCatalogue& catalogue);
