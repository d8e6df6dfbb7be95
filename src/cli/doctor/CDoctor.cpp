#include "cli/doctor/CDoctor.h"

#include "app/CVelmarchApp.h"
#include "app/HomeFiles.h"
#include "cli/doctor/Examinations.h"
#include "cli/home/ReadOnlyHome.h"
#include "lang/FormatText.h"
#include "platform/settings/SettingsChecks.h"
#include "platform/sqlite/CSqliteFile.h"
#include "platform/sqlite/SqliteErrors.h"
#include "records/CHistoryFile.h"

#include <QFileInfo>

namespace {

using enum Finding::Verdict;

constexpr char kHistory[] = "history";

/// A file that is there and can't be read for want of rights; advice for a damaged one would be wrong.
bool IsClosedToUs(const QString& path) {
    return QFileInfo::exists(path) && !QFileInfo(path).isReadable();
}

Finding NoAccess(const char* name, const QString& path) {
    return {name, Bad, FormatText<Text::CliNoAccess>(path), LoadText(Text::CliAdviseNoAccess)};
}

Finding ReadOnly(const char* name, const QString& path) {
    return {name, Bad, FormatText<Text::CliReadOnly>(path), LoadText(Text::CliAdviseReadOnly)};
}

/// What can be done about a file in which something is wrong; where it is merely in use, nothing is.
QString AdviceOn(const CSqliteFile& file, Text advice) {
    return LoadText(OutcomeOf(file.ErrorCode()) == OpenOutcome::Locked ? Text::CliAdviseInUse : advice);
}

}  // namespace

void CDoctor::Note(const Finding& finding) {
    m_findings.push_back(finding);
}

const std::vector<Finding>& CDoctor::Examine(const QString& homeOption) {
    m_findings.clear();
    // That this runs at all says that the library is there.
    Note({"language", Good, FormatText<Text::CliTextsSound>(static_cast<int>(AllTexts().size()))});
    if (!ExamineHome(homeOption)) return m_findings;
    const QString settingsPath = SettingsPath(m_home);
    const bool canReadSettings = ExamineSettings(settingsPath);
    const bool isRead = canReadSettings && QFileInfo::exists(settingsPath);
    ReadOnlyHome reader(m_clock, m_home, isRead ? settingsPath : QString());
    const Store store = ExamineStore(reader);
    ExamineHistory(HistoryPath(m_home));
    ExamineData(reader, canReadSettings, store);
    return m_findings;
}

bool CDoctor::ExamineHome(const QString& homeOption) {
    CNoPump pump;
    CNoViews views;
    CRecordingPrompt prompt;
    CVelmarchApp app({m_clock, prompt, pump, views});
    const bool isResolved = app.ResolveHome(homeOption);
    m_home = app.Home();
    if (!isResolved)
        Note({"home", Bad, prompt.TakeHeard(), LoadText(Text::CliAdviseHome)});
    else
        Note(QFileInfo(m_home).isWritable() ? Finding{"home", Good, m_home} : ReadOnly("home", m_home));
    return isResolved;
}

bool CDoctor::ExamineSettings(const QString& path) {
    const auto note = [this](const Finding& finding, bool canRead) {
        Note(finding);
        return canRead;
    };
    if (!QFileInfo::exists(path)) return note({"settings", Good, LoadText(Text::CliNoSettingsYet)}, true);
    if (IsClosedToUs(path)) return note(NoAccess("settings", path), false);
    CSqliteFile file;
    const OpenOutcome outcome = file.Open(path, CSettingsTree::kFileKind, false);
    const bool isOpen = outcome == OpenOutcome::Existed || outcome == OpenOutcome::ReadOnly;
    const QString wrong = isOpen ? file.IntegrityReport() : file.Error();
    if (!wrong.isEmpty() || !isOpen)
        return note({"settings", Bad, wrong, AdviceOn(file, Text::CliAdviseSettings)}, false);
    const auto damaged = DamagedEntries(file);
    if (!damaged || !damaged->empty())
        return note(
            {"settings", Bad,
             damaged ? FormatText<Text::CliDamagedValues>(NamesOf(file, *damaged).join(u", ")) : file.Error(),
             AdviceOn(file, Text::CliAdviseValues)},
            false);
    return note(file.IsReadOnly() ? ReadOnly("settings", path) : Finding{"settings", Good, path}, true);
}

CDoctor::Store CDoctor::ExamineStore(ReadOnlyHome& reader) {
    const QString path = StorePath(m_home);
    const auto note = [this](Store store, const Finding& finding) {
        Note(finding);
        return store;
    };
    if (IsClosedToUs(path)) return note(Store::Unreadable, NoAccess("store", path));
    if (QFileInfo(path).size() == 0) {
        if (!IsStoreKnown(reader.profile))
            return note(Store::Absent, {"store", Good, LoadText(Text::CliNoStoreYet)});
        return note(Store::Absent,
                    {"store", Bad, FormatText<Text::CliStoreGone>(path), LoadText(Text::CliAdviseStoreGone)});
    }
    reader.manager.File().OnDamage([&] { NoteDamage(reader); });
    eActionDisposition source{}, second{};
    const bool isOpen = reader.manager.InitDataSrc(source, second);
    const QString wrong = isOpen ? reader.manager.File().IntegrityReport() : reader.manager.m_error;
    if (isOpen && !wrong.isEmpty() && reader.manager.File().ErrorCode() == 0) NoteDamage(reader);
    if (!wrong.isEmpty() || !isOpen)
        return note(Store::Unreadable,
                    {"store", Bad, wrong, AdviceOn(reader.manager.File(), Text::CliAdviseStore)});
    if (source == eActionDisposition::Created)
        return note(Store::Unreadable,
                    {"store", Bad, LoadText(Text::CliTablesMissing), LoadText(Text::CliAdviseTables)});
    return note(Store::Readable,
                reader.manager.File().IsReadOnly() ? ReadOnly("store", path) : Finding{"store", Good, path});
}

/// A history of changes that can't be read or written costs nobody a record: it is named with what to do, and
/// nothing else depends on it.
void CDoctor::ExamineHistory(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || (info.isFile() && info.size() == 0))
        return Note({kHistory, Good, LoadText(Text::CliNoHistoryYet)});
    if (info.isDir())
        return Note(
            {kHistory, Bad, FormatText<Text::HistoryIsFolder>(path), LoadText(Text::CliAdviseHistoryPlace)});
    if (IsClosedToUs(path)) return Note(NoAccess(kHistory, path));
    const HistoryHealth health = CHistoryFile::Examine(path);
    if (!health.error.isEmpty())
        return Note({kHistory, Bad, health.error,
                     LoadText(health.outcome == OpenOutcome::Locked ? Text::CliAdviseInUse
                                                                    : Text::CliAdviseHistory)});
    if (health.faults > 0)
        return Note({kHistory, Bad, FormatText<Text::CliHistoryFaults>(health.faults),
                     LoadText(Text::CliAdviseHistory)});
    // In a home where nothing can be stored there is nothing to undo either.
    const Text advice =
        QFileInfo(m_home).isWritable() ? Text::CliAdviseHistoryPlace : Text::CliAdviseReadOnly;
    if (health.outcome == OpenOutcome::ReadOnly)
        return Note({kHistory, Bad, FormatText<Text::CliReadOnly>(path), LoadText(advice)});
    Note({kHistory, Good, FormatText<Text::CliHistorySound>(health.changes)});
}

/// The one thing that is written to a home that is looked at: with it no program changes the store before it
/// is sound again.
void CDoctor::NoteDamage(ReadOnlyHome& reader) {
    m_isStoreDamaged = true;
    static_cast<void>(NoteStoreDamaged(reader.profile, true));
}

/// Where there is no store yet, nothing of it is named.
void CDoctor::ExamineData(ReadOnlyHome& reader, bool canReadSettings, Store store) {
    for (const Examination& examination : Examinations()) {
        const bool isOfSettings = examination.context != ExaminationContext::Store;
        const bool isOfStore = examination.context != ExaminationContext::Settings;
        if (isOfSettings && !canReadSettings)
            Note({examination.name, Unchecked, LoadText(Text::CliUncheckedSettings)});
        else if (isOfStore && store == Store::Unreadable)
            Note({examination.name, Unchecked, LoadText(Text::CliUncheckedStore)});
        else if (isOfSettings || store == Store::Readable)
            Note(examination.examine(examination.name, reader));
    }
}
