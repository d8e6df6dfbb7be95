#include "app/CVelmarchApp.h"

#include "app/HomeFiles.h"
#include "config/NameColumns.h"
#include "lang/FormatText.h"
#include "platform/host/CInstallLocation.h"
#include "platform/host/CPrompt.h"
#include "platform/host/CRegionalInfo.h"
#include "records/RecordFactory.h"

#include <QDir>
#include <QFileInfo>
#include <array>
#include <cerrno>

using namespace Qt::Literals::StringLiterals;

CTRecord* theTimeEntry = nullptr;
CTRecord* theClockEntry = nullptr;
CTRecord* theSpanEntry = nullptr;
CERecord* theExpenseEntry = nullptr;

namespace {

struct VerbRow {
    QStringView name;
    Verb verb;
};
/// In the order in which they are tried: with "-syncend -shutdown" the program shuts down.
constexpr VerbRow kVerbs[] = {
    {u"shutdown", Verb::Shutdown},
    {u"syncend", Verb::SyncEnd},
    {u"regadosync", Verb::RegisterSync},
};

bool IsVerb(const QString& token, QStringView name) {
    return (token.startsWith(u'-') || token.startsWith(u'/')) && QStringView(token).mid(1) == name;
}

}  // namespace

std::optional<Verb> FindVerb(const QStringList& arguments) {
    for (const VerbRow& row : kVerbs)
        for (const QString& token : arguments)
            if (IsVerb(token, row.name)) return row.verb;
    return std::nullopt;
}

CVelmarchApp::CVelmarchApp(const Context& context) : m_context(context) {}

CVelmarchApp::~CVelmarchApp() {
    DropCatalogue();
    m_document.reset();
    theTimeEntry = theClockEntry = theSpanEntry = nullptr;
    theExpenseEntry = nullptr;
    CloseSettings();
}

// --- Home

bool CVelmarchApp::ResolveHome(const QString& homeOption) {
    const QString named = homeOption.isEmpty() ? qEnvironmentVariable("VELMARCH_HOME") : homeOption;
    return named.isEmpty() ? CheckInstallLocation() : UseFolder(named);
}

/// One folder, however it is written, is one home: the running window is found by it.
bool CVelmarchApp::UseFolder(const QString& path) {
    const QString folder = QDir::cleanPath(QDir::current().absoluteFilePath(path));
    const QFileInfo present(folder);
    if (present.exists() && !present.isDir()) {
        Tell(Text::HomeIsNoFolder, FormatText<Text::HomeIsNoFolder>(folder), Text::HomeTitle);
        return false;
    }
    // Records and settings are nobody else's business.
    errno = 0;
    if (!present.exists() &&
        !(QDir().mkpath(present.path()) &&
          QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))) {
        const QString why = qt_error_string(errno);
        Tell(Text::HomeCantBeMade, FormatText<Text::HomeCantBeMade>(folder, why), Text::HomeTitle);
        return false;
    }
    m_home = QFileInfo(folder).canonicalFilePath();
    return true;
}

/// The program runs only from the folder that the installer wrote down, where the store lies too.
bool CVelmarchApp::CheckInstallLocation() {
    const InstalledPlace installed = ReadInstallLocation();
    if (!installed.known || installed.directory.isEmpty()) {
        TellNotInstalled(installed.reason);
        return false;
    }
    errno = 0;
    const QString module = ModulePath();
    if (module.isEmpty()) {
        TellNotInstalled(qt_error_string(errno));
        return false;
    }
    const QString folder = FolderOf(module);
    if (folder.isEmpty() || folder.compare(installed.directory, Qt::CaseInsensitive) != 0) {
        TellNotInstalled(u"\"%1\"\n\"%2\""_s.arg(installed.directory, folder));
        return false;
    }
    m_home = installed.directory;
    return true;
}

void CVelmarchApp::TellNotInstalled(const QString& why) {
    QString text = LoadText(Text::NotInstalledHere);
    if (!why.isEmpty()) text += u"\n\n"_s + why;
    Tell(Text::NotInstalledHere, text, Text::ProgramTitle);
}

// --- Settings

bool CVelmarchApp::OpenSettings() {
    const QString path = SettingsPath(m_home);
    // Records without settings: the file was there when they were made, and timers were in it.
    const bool areMissing = QFileInfo(path).size() == 0 && QFileInfo(StorePath(m_home)).size() > 0;
    const bool areKept = m_tree.Open(path);
    if (!areKept)
        Tell(Text::SettingsInMemory, FormatText<Text::SettingsInMemory>(m_tree.Error()), Text::SettingsTitle);
    else if (!m_tree.KeptAside().isEmpty())
        Tell(Text::SettingsKeptAside, FormatText<Text::SettingsKeptAside>(m_tree.KeptAside()),
             Text::SettingsTitle);
    else if (areMissing)
        Tell(Text::SettingsMissing, FormatText<Text::SettingsMissing>(path), Text::SettingsTitle);
    m_profile = std::make_unique<CProfile>(m_tree, LoadText(Text::ProfileKeyName));
    TellDamagedSettings();
    m_settings = std::make_unique<CCfgStore>(m_tree, *m_profile, m_context.prompt, TheRegion(),
                                             LoadText(Text::BaseKeyPath));
    m_precisions = std::make_unique<PrecisionScope>(*m_settings);
    // After the precisions: a record takes them over when it is made.
    m_timeEntry = std::make_unique<CTRecord>();
    m_clockEntry = std::make_unique<CTRecord>();
    m_spanEntry = std::make_unique<CTRecord>();
    m_expenseEntry = std::make_unique<CERecord>();
    theTimeEntry = m_timeEntry.get();
    theClockEntry = m_clockEntry.get();
    theSpanEntry = m_spanEntry.get();
    theExpenseEntry = m_expenseEntry.get();
    theRecordMode = LastMode(*m_settings);
    return areKept && m_settings->AreKept();
}

/// That timers are lost is noted, as nobody would see it any more with the next command. Where it can't be
/// noted it is told each time anew.
void CVelmarchApp::TellDamagedSettings() {
    if (!m_tree.KeptAside().isEmpty() || HasTimers(m_tree.DamagedValues()))
        static_cast<void>(NoteTimersLost(*m_profile, true));
    if (m_tree.DamagedValues().isEmpty()) return;
    Tell(Text::SettingsValuesDamaged,
         FormatText<Text::SettingsValuesDamaged>(m_tree.DamagedValues().join(u", "_s)), Text::SettingsTitle);
}

void CVelmarchApp::CloseSettings() {
    DropCatalogue();
    // Damage may have been met within a change of the settings that was undone.
    if (m_profile && m_isStoreFoundDamaged) NoteDamage();
    m_precisions.reset();
    m_settings.reset();
}

void CVelmarchApp::DropCatalogue() {
    if (m_settings) {
        m_settings->ListColumns().SetCatalogue(nullptr);
        m_settings->TreeColumns().SetCatalogue(nullptr);
    }
    if (m_catalogue) thePulldownCatalogue = nullptr;
    m_catalogue.reset();
}

// --- Store

bool CVelmarchApp::OpenStore() {
    m_srcMgr.m_directory = m_home;
    m_srcMgr.m_fileName = LoadText(Text::StoreFileName);
    m_srcMgr.m_thirdLocation = LoadText(Text::StoreThirdLocation);
    m_store = std::make_unique<CRecordStore>(m_srcMgr, m_context.prompt, DataSourceName());
    m_document = std::make_unique<CVelmarchDoc>(
        DocumentContext{*m_store, m_context.views, m_context.pump, m_context.clock, *m_settings});
    m_catalogue = std::make_unique<CPulldownCatalogue>(
        CPulldownCatalogue::Context{m_srcMgr, m_context.prompt, *m_settings, DataSourceName()});
    thePulldownCatalogue = m_catalogue.get();

    const QString path = StorePath(m_home);
    const bool isKnown = IsStoreKnown(*m_profile);
    const bool isMissing = isKnown && QFileInfo(path).size() == 0;
    if (isMissing && !AskAboutMissingStore(path)) return false;

    m_srcMgr.m_mayCreate = isMissing || !isKnown;
    m_isStoreFoundDamaged = false;
    if (IsStoreDamaged(*m_profile)) m_srcMgr.Suspect();
    m_srcMgr.File().OnDamage([this] { NoteDamage(); });
    eActionDisposition source{}, second{};
    if (!m_srcMgr.InitDataSrc(source, second)) return TellStoreCantOpen(path);
    if (source == eActionDisposition::Created) {
        // A file is there, but its tables are gone: the same question.
        if (isKnown && !isMissing && !AskAboutMissingStore(path)) return false;
        if (!MakeTables()) return TellStoreCantOpen(path);
    }
    // Where it can't be noted, a later loss goes unnoticed, and nothing else.
    static_cast<void>(NoteStoreKnown(*m_profile, true));
    // Another file has taken the damaged one's place, or it was mended.
    if (!m_isStoreFoundDamaged) static_cast<void>(NoteStoreDamaged(*m_profile, false));
    return true;
}

/// Where it can't be noted, other programs meet the damage themselves.
void CVelmarchApp::NoteDamage() {
    m_isStoreFoundDamaged = true;
    static_cast<void>(NoteStoreDamaged(*m_profile, true));
}

bool CVelmarchApp::TellStoreCantOpen(const QString& path) {
    Tell(Text::StoreCantOpen, FormatText<Text::StoreCantOpen>(path, m_srcMgr.m_error),
         Text::StoreProblemTitle);
    return false;
}

bool CVelmarchApp::MakeTables() {
    for (const RecordKind kind : kStoreTables)
        if (!m_srcMgr.InitDataSrcTable(m_store->TableName(kind), *NewRecord(kind))) return false;
    return true;
}

bool CVelmarchApp::AskAboutMissingStore(const QString& path) {
    const MessageBox box{static_cast<int>(Text::StoreMissing),
                         LoadText(Text::StoreProblemTitle),
                         FormatText<Text::StoreMissing>(path),
                         BoxIcon::Warning,
                         Buttons::YesNo,
                         Answer::No,
                         LoadText(Text::StartWithoutRecords)};
    return m_context.prompt.Ask(box) == Answer::Yes;
}

bool CVelmarchApp::LoadStep() {
    m_document->LoadCurrentMode();
    m_document->BuildVisible();
    if (!LoadLists()) return false;
    m_document->NotifyViews(Hint::Rebuild);
    return true;
}

/// A list that could not be read is reported where it is loaded; the program goes on with what came.
bool CVelmarchApp::LoadLists() {
    m_catalogue->Load();
    for (CColSet* set : {&m_settings->ListColumns(), static_cast<CColSet*>(&m_settings->TreeColumns())})
        set->SetCatalogue(&m_catalogue->Labels());
    return NameColumns(*m_settings);
}

void CVelmarchApp::Tell(Text id, const QString& text, Text title) {
    m_context.prompt.Tell(
        {static_cast<int>(id), LoadText(title), text, BoxIcon::Warning, Buttons::Ok, Answer::Ok, {}});
}
