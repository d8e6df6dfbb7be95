#include "cli/doctor/Examinations.h"

#include "app/DependencyBytes.h"
#include "app/DependencyStore.h"
#include "app/HomeFiles.h"
#include "calendar/CalendarMath.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/home/ReadOnlyHome.h"
#include "cli/output/ReportNames.h"
#include "entry/NamedDefaults.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"
#include "records/CutDistances.h"
#include "records/RecordFactory.h"
#include "reports/definition/CReportStore.h"
#include "reports/query/CQueryStore.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

using enum Finding::Verdict;

constexpr int kFirstYear = EnteredValues::kFirstYear;
constexpr int kLastYear = 9999;
constexpr qsizetype kNamed = 5;  ///< of what is at fault, so many are named

/// What is at fault: its number, and the first of it by name.
class CFaults {
 public:
    void Add(const QString& name) {
        if (m_named.size() < kNamed) m_named.append(name);
        ++m_count;
    }
    [[nodiscard]] bool IsEmpty() const { return m_count == 0; }
    [[nodiscard]] int Count() const { return m_count; }
    [[nodiscard]] QString Named() const {
        return m_named.join(u", "_s) + (m_count > m_named.size() ? u", …"_s : QString());
    }

 private:
    int m_count = 0;
    QStringList m_named;
};

// --- Records

/// A date that isn't set is none at fault: a record may have no day.
bool IsPlausible(const RecordDate& date) {
    if (!date.IsSet() && date.day < 1 && date.year < 1) return true;
    return date.month >= 1 && date.month <= 12 && date.year >= kFirstYear && date.year <= kLastYear &&
           date.day >= 1 && date.day <= DaysInMonth(date.month, date.year);
}

const RecordDate& DateOf(const CVORec& record) {
    return record.Kind() == RecordKind::Time ? static_cast<const CTRecord&>(record).date
                                             : static_cast<const CERecord&>(record).date;
}

/// Reads all records of a kind and looks at each.
template <RecordMode Mode, Text AdviceOnDates>
Finding ExamineRecords(const char* name, ReadOnlyHome& reader) {
    const RecordModeScope mode(Mode);
    (void)reader.prompt.TakeHeard();  // what the settings had to say is no matter of the records
    reader.document.LoadRecords(KindOf(Mode));
    if (reader.prompt.HasHeard() || reader.store.m_lastError != 0)
        return {name, Bad, reader.prompt.TakeHeard(), LoadText(Text::CliAdviseStore)};
    reader.document.BuildVisible();
    CFaults identities, dates, distances;
    reader.document.ForEachVisible([&](const CVORec& record) {
        if (!IsIdentity(record.GetId())) identities.Add(record.GetId());
        if (!IsPlausible(DateOf(record))) dates.Add(record.GetId());
        if (HasCutDistance(record)) distances.Add(record.GetId());
    });
    if (!identities.IsEmpty())
        return {name, Bad, FormatText<Text::CliBadIdentities>(identities.Count(), identities.Named()),
                LoadText(Text::CliAdviseIdentities)};
    if (!dates.IsEmpty())
        return {name, Bad, FormatText<Text::CliBadDates>(dates.Count(), dates.Named()),
                LoadText(AdviceOnDates)};
    if (!distances.IsEmpty())
        return {name, Bad, FormatText<Text::CliCutDistances>(distances.Count(), distances.Named()),
                LoadText(Text::CliAdviseDistances)};
    return {name, Good, FormatText<Text::CliRecordsSound>(static_cast<int>(reader.document.RecordCount()))};
}

/// The time records are loaded.
Finding ExamineTimers(const char* name, ReadOnlyHome& reader) {
    if (!reader.recordTimers.RestoreTimers())
        return {name, Bad, LoadText(Text::CliTimersUnreadable), LoadText(Text::CliAdviseTimers)};
    if (reader.recordTimers.AreLost())
        return {name, Bad, LoadText(Text::TimersLost), LoadText(Text::CliAdviseTimers)};
    CFaults orphans;
    for (int i = 0; i < reader.timers.Count(); ++i)
        if (!reader.document.FindTime(reader.timers.IdAt(i))) orphans.Add(reader.timers.IdAt(i));
    if (!orphans.IsEmpty())
        return {name, Bad, FormatText<Text::CliOrphanTimers>(orphans.Count(), orphans.Named()),
                LoadText(Text::CliAdviseOrphans)};
    return {name, Good, FormatText<Text::CliTimersSound>(reader.timers.Count())};
}

// --- Lists

Finding ExamineItems(const char* name, ReadOnlyHome& reader) {
    CFaults strays;
    int count = 0;
    auto item = std::make_unique<CPRecord>();
    QString id;
    if (reader.store.Query(reader.store.SelectAll(RecordKind::PulldownItem)))
        for (; reader.store.NextRecord(*item, id, true); ++count, item = std::make_unique<CPRecord>()) {
            const QString shown = u"%1 (%2)"_s.arg(item->GetText()).arg(item->listId);
            if (!reader.lists.Add(std::move(item))) strays.Add(shown);
        }
    if (reader.prompt.HasHeard() || reader.store.m_lastError != 0)
        return {name, Bad, reader.prompt.TakeHeard(), LoadText(Text::CliAdviseStore)};
    if (!strays.IsEmpty())
        return {name, Bad, FormatText<Text::CliUnknownLists>(strays.Count(), strays.Named()),
                LoadText(Text::CliAdviseUnknownLists)};
    return {name, Good, FormatText<Text::CliItemsSound>(count)};
}

/// The list items are known. Reads only: a set in the old form is converted when it is loaded.
template <DependencySet Set>
Finding ExamineDependencies(const char* name, ReadOnlyHome& reader) {
    const StoredTree stored = DependencyStore(reader.store).Read(Set);
    const QString heard = reader.prompt.TakeHeard();
    if (stored.state == StoredTree::State::Failed) return {name, Bad, heard, LoadText(Text::CliAdviseStore)};
    const auto tree =
        stored.state == StoredTree::State::Damaged
            ? std::nullopt
            : TreeFromBytes(stored.bytes, [&](const QString& id) { return reader.lists.FindById(id); });
    if (!tree)
        return {name, Bad, LoadText(Text::CliDependenciesDamaged), LoadText(Text::CliAdviseDependencies)};
    int count = 0;
    for (const auto* node = tree->Root().FirstChild(); node; node = DependencyTree::NextOf(*node)) ++count;
    return {name, Good, FormatText<Text::CliDependenciesSound>(count)};
}

// --- Checksums

/// A record that lacks its checksum was written by another program: there is nothing to hold it against.
Finding ExamineChecksums(const char* name, ReadOnlyHome& reader) {
    QStringList ids;
    for (const RecordKind kind : kStoreTables)
        if (!reader.manager.FindFaults(reader.store.TableName(kind), ids))
            return {name, Bad, reader.manager.m_error, LoadText(Text::CliAdviseStore)};
    CFaults faults;
    for (const QString& id : ids) faults.Add(id);
    if (faults.IsEmpty()) return {name, Good, LoadText(Text::CliChecksumsSound)};
    return {name, Bad, FormatText<Text::CliBadChecksums>(faults.Count(), faults.Named()),
            LoadText(Text::CliAdviseChecksums)};
}

// --- Columns and defaults

template <class Set, Text Name>
Finding ExamineColumns(const char* name, ReadOnlyHome& reader) {
    QByteArray blob;
    if (!reader.settings.ReadBinary(LoadText(Name), blob, false))
        return {name, Good, LoadText(Text::CliColumnsDefaults)};
    if (Set().LoadBlob(blob)) return {name, Good, LoadText(Text::CliColumnsSound)};
    return {name, Bad, LoadText(Text::CliColumnsDamaged), LoadText(Text::CliAdviseColumns)};
}

template <RecordMode Mode>
Finding ExamineDefaults(const char* name, ReadOnlyHome& reader) {
    const NamedDefaults defaults(reader.settings, reader.document.Clock(), Mode);
    CFaults damaged;
    for (const QString& stored : defaults.Names())
        if (!defaults.Read(stored, *NewRecord(KindOf(Mode)))) damaged.Add(stored);
    if (!damaged.IsEmpty())
        return {name, Bad, FormatText<Text::CliDefaultsDamaged>(damaged.Count(), damaged.Named()),
                LoadText(Text::CliAdviseDefaults)};
    return {name, Good, FormatText<Text::CliDefaultsSound>(static_cast<int>(defaults.Names().size()) - 1)};
}

/// Of all kinds that are stored.
template <RecordMode Mode>
Finding ExamineReports(const char* name, ReadOnlyHome& reader) {
    CFaults damaged;
    qsizetype count = 0;
    for (const ReportKind kind : StoredKinds()) {
        const CReportStore reports(reader.settings, Mode, kind);
        const QStringList stored = reports.Names();
        count += stored.size();
        for (const QString& one : stored)
            if (CReportDef report; !reports.Load(one, report)) damaged.Add(one);
    }
    if (!damaged.IsEmpty())
        return {name, Bad, FormatText<Text::CliReportsDamaged>(damaged.Count(), damaged.Named()),
                LoadText(Text::CliAdviseReports)};
    return {name, Good, FormatText<Text::CliDefaultsSound>(static_cast<int>(count))};
}

template <RecordMode Mode>
Finding ExamineQueries(const char* name, ReadOnlyHome& reader) {
    const CQueryStore queries(reader.settings, Mode);
    const QStringList stored = queries.Names();
    CFaults damaged;
    for (const QString& one : stored)
        if (!queries.Load(one)) damaged.Add(one);
    if (!damaged.IsEmpty())
        return {name, Bad, FormatText<Text::CliQueriesDamaged>(damaged.Count(), damaged.Named()),
                LoadText(Text::CliAdviseQueries)};
    return {name, Good, FormatText<Text::CliDefaultsSound>(static_cast<int>(stored.size()))};
}

using enum ExaminationContext;

constexpr Examination kExaminations[] = {
    {"time records", Store, ExamineRecords<RecordMode::Time, Text::CliAdviseDates>},
    {"timers", SettingsBesideRecords, ExamineTimers},
    {"expense records", Store, ExamineRecords<RecordMode::Expense, Text::CliAdviseExpenseDates>},
    {"list items", Store, ExamineItems},
    {"checksums", Store, ExamineChecksums},
    {"time dependencies", Store, ExamineDependencies<DependencySet::Time>},
    {"expense dependencies", Store, ExamineDependencies<DependencySet::Expense>},
    {"columns", Settings, ExamineColumns<CColSet, Text::ValueListColumns>},
    {"tree levels", Settings, ExamineColumns<CTreeColSet, Text::ValueTreeColumns>},
    {"time defaults", Settings, ExamineDefaults<RecordMode::Time>},
    {"expense defaults", Settings, ExamineDefaults<RecordMode::Expense>},
    {"time reports", Settings, ExamineReports<RecordMode::Time>},
    {"expense reports", Settings, ExamineReports<RecordMode::Expense>},
    {"time queries", Settings, ExamineQueries<RecordMode::Time>},
    {"expense queries", Settings, ExamineQueries<RecordMode::Expense>},
};

}  // namespace

std::span<const Examination> Examinations() {
    return kExaminations;
}
