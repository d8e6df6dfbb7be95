#include "cli/CDoctor.h"

#include "app/CVelmarchApp.h"
#include "calendar/CalendarMath.h"
#include "cli/EnteredValues.h"
#include "lang/FormatText.h"
#include "platform/CMessagePump.h"
#include "platform/CPrompt.h"
#include "platform/CRegionalInfo.h"
#include "platform/CSqliteFile.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "timers/CRecordTimers.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFirstYear = EnteredValues::kFirstYear;
constexpr int kLastYear = 9999;
constexpr qsizetype kNamed = 5;  ///< of the records at fault, so many are named

/// Keeps what would be told, and agrees to nothing.
class CListeningPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override {
        m_heard.append(box.text.simplified());
        return box.buttons == Buttons::YesNo || box.buttons == Buttons::YesNoCancel ? Answer::No
                                                                                    : box.defaultAnswer;
    }
    void Tell(const MessageBox& box) override { m_heard.append(box.text.simplified()); }
    std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }

    void Forget() { m_heard.clear(); }
    [[nodiscard]] bool HasHeard() const { return !m_heard.isEmpty(); }
    [[nodiscard]] QString Heard() const { return m_heard.join(u' '); }

 private:
    QStringList m_heard;
};

/// Identities at fault: their number, and the first of them by name.
class CFaults {
 public:
    void Add(const QString& id) {
        if (m_named.size() < kNamed) m_named.append(id);
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

/// Everything that reading the data of a home takes, without a way to make or change any of it.
struct ReadingRoom {
    ReadingRoom(const CClock& clock, const QString& home, const QString& settingsPath)
        : profile(tree, LoadText(Text::ProfileKeyName)),
          areSettingsOpen(tree.Open(QFileInfo::exists(settingsPath) ? settingsPath : u":memory:"_s)),
          settings(tree, profile, prompt, TheRegion(), LoadText(Text::BaseKeyPath)),
          precisions(settings),
          store(manager, prompt, CVelmarchApp::DataSourceName()),
          document({store, views, pump, clock, settings}),
          timers(clock),
          recordTimers(timers, document, settings) {
        settings.KeepStoreUntouched();
        manager.m_directory = home;
        manager.m_fileName = LoadText(Text::StoreFileName);
        manager.m_mayCreate = false;
    }

    CNoPump pump;
    CNoViews views;
    CListeningPrompt prompt;
    CSettingsTree tree;
    CProfile profile;
    bool areSettingsOpen;
    CCfgStore settings;
    PrecisionScope precisions;
    CVOSrcMgr manager;
    CRecordStore store;
    CVelmarchDoc document;
    ActiveTimerSet timers;
    CRecordTimers recordTimers;
};

Finding ExamineStore(ReadingRoom& room, const QString& path, bool& isThere) {
    isThere = QFileInfo(path).size() > 0;
    if (!isThere && CVelmarchApp::ExpectsStore(room.profile))
        return {"store", false, FormatText<Text::CliStoreGone>(path), LoadText(Text::CliAdviseStoreGone)};
    if (!isThere) return {"store", true, LoadText(Text::CliNoStoreYet), {}};
    eActionDisposition source{}, second{};
    if (!room.manager.InitDataSrc(source, second)) {
        isThere = false;
        return {"store", false, room.manager.m_error, LoadText(Text::CliAdviseStore)};
    }
    const QString report = room.manager.File().IntegrityReport();
    if (!report.isEmpty()) return {"store", false, report, LoadText(Text::CliAdviseStore)};
    if (source == eActionDisposition::Created)
        return {"store", false, LoadText(Text::CliTablesMissing), LoadText(Text::CliAdviseTables)};
    if (room.manager.File().IsReadOnly())
        return {"store", false, FormatText<Text::CliReadOnly>(path), LoadText(Text::CliAdviseReadOnly)};
    return {"store", true, path, {}};
}

/// Reads all records of a kind and looks at each.
Finding ExamineRecords(ReadingRoom& room, const char* name, RecordKind kind) {
    const RecordModeScope mode(kind == RecordKind::Time ? RecordMode::Time : RecordMode::Expense);
    room.prompt.Forget();  // what the settings had to say is no matter of the records
    room.document.LoadRecords(kind);
    if (room.prompt.HasHeard() || room.store.m_lastError != 0)
        return {name, false, room.prompt.Heard(), LoadText(Text::CliAdviseStore)};
    room.document.BuildVisible();
    CFaults identities, dates;
    room.document.ForEachVisible([&](const CVORec& record) {
        if (!IsIdentity(record.GetId())) identities.Add(record.GetId());
        if (!IsPlausible(DateOf(record))) dates.Add(record.GetId());
    });
    if (!identities.IsEmpty())
        return {name, false, FormatText<Text::CliBadIdentities>(identities.Count(), identities.Named()),
                LoadText(Text::CliAdviseIdentities)};
    if (!dates.IsEmpty())
        return {name, false, FormatText<Text::CliBadDates>(dates.Count(), dates.Named()),
                LoadText(Text::CliAdviseDates)};
    return {name, true, FormatText<Text::CliRecordsSound>(static_cast<int>(room.document.RecordCount())), {}};
}

/// The time records are loaded, unless there is no store.
Finding ExamineTimers(ReadingRoom& room) {
    if (!room.recordTimers.RestoreTimers())
        return {"timers", false, LoadText(Text::CliTimersUnreadable), LoadText(Text::CliAdviseTimers)};
    CFaults orphans;
    for (int i = 0; i < room.timers.Count(); ++i)
        if (!room.document.FindTime(room.timers.IdAt(i))) orphans.Add(room.timers.IdAt(i));
    if (!orphans.IsEmpty())
        return {"timers", false, FormatText<Text::CliOrphanTimers>(orphans.Count(), orphans.Named()),
                LoadText(Text::CliAdviseOrphans)};
    return {"timers", true, FormatText<Text::CliTimersSound>(room.timers.Count()), {}};
}

}  // namespace

bool CDoctor::Note(const char* name, bool isOk, const QString& detail, const QString& advice) {
    m_findings.push_back({name, isOk, detail, advice});
    return isOk;
}

const std::vector<Finding>& CDoctor::Examine(const QString& homeOption) {
    m_findings.clear();
    // That this runs at all says that the library is there.
    (void)Note("language", true, FormatText<Text::CliTextsSound>(static_cast<int>(AllTexts().size())));
    if (!ExamineHome(homeOption)) return m_findings;
    const QString settingsPath = m_home + u'/' + CVelmarchApp::SettingsFileName();
    if (ExamineSettings(settingsPath)) ExamineData(settingsPath);
    return m_findings;
}

bool CDoctor::ExamineHome(const QString& homeOption) {
    CNoPump pump;
    CNoViews views;
    CListeningPrompt prompt;
    CVelmarchApp app({m_clock, prompt, pump, views});
    const bool isResolved = app.ResolveHome(homeOption);
    m_home = app.Home();
    if (!isResolved) return Note("home", false, prompt.Heard(), LoadText(Text::CliAdviseHome));
    if (!QFileInfo(m_home).isWritable())
        return Note("home", false, FormatText<Text::CliReadOnly>(m_home), LoadText(Text::CliAdviseReadOnly));
    return Note("home", true, m_home);
}

bool CDoctor::ExamineSettings(const QString& path) {
    if (!QFileInfo::exists(path)) return Note("settings", true, LoadText(Text::CliNoSettingsYet));
    CSqliteFile file;
    const OpenOutcome outcome = file.Open(path, CSettingsTree::kFileKind, false);
    if (outcome == OpenOutcome::ReadOnly)
        return Note("settings", false, FormatText<Text::CliReadOnly>(path),
                    LoadText(Text::CliAdviseReadOnly));
    if (outcome != OpenOutcome::Existed)
        return Note("settings", false, file.Error(), LoadText(Text::CliAdviseSettings));
    const QString report = file.IntegrityReport();
    return Note("settings", report.isEmpty(), report.isEmpty() ? path : report,
                report.isEmpty() ? QString() : LoadText(Text::CliAdviseSettings));
}

void CDoctor::ExamineData(const QString& settingsPath) {
    ReadingRoom room(m_clock, m_home, settingsPath);
    bool isThere = false;
    m_findings.push_back(ExamineStore(room, m_home + u'/' + LoadText(Text::StoreFileName), isThere));
    if (isThere && !m_findings.back().isOk) return;
    if (isThere) m_findings.push_back(ExamineRecords(room, "time records", RecordKind::Time));
    m_findings.push_back(ExamineTimers(room));
    if (isThere) m_findings.push_back(ExamineRecords(room, "expense records", RecordKind::Expense));
}
