#pragma once

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "records/CERecord.h"
#include "records/CRecordStore.h"
#include "records/CTRecord.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

class CClock;
class CMessagePump;
class CPrompt;
class CViewListener;

/// What a command line asks a running instance for instead of starting the program.
enum class Verb { Shutdown, SyncEnd, RegisterSync };

/// The first verb of a command line ("-syncend" or "/syncend", case-sensitive), tried in the order shutdown,
/// syncend, regadosync over all arguments.
[[nodiscard]] std::optional<Verb> FindVerb(const QStringList& arguments);

/// The records that screens edit, made once and reused. Process-wide names for those of the application in
/// use.
extern CTRecord* theTimeEntry;     ///< what the time entry screens edit
extern CTRecord* theClockEntry;    ///< behind the start and end time pickers
extern CTRecord* theSpanEntry;     ///< behind the duration picker
extern CERecord* theExpenseEntry;  ///< what the expense screens edit

/// The application object of window and console: opens home, settings and store in the order of the start,
/// owns the document and the catalogue of pick lists, and closes everything in the reverse order, the store
/// last. Timers and views are wired by main().
class CVelmarchApp {
 public:
    /// What the application needs from outside. All must outlive it.
    struct Context {
        const CClock& clock;
        CPrompt& prompt;
        CMessagePump& pump;
        CViewListener& views;
    };
    explicit CVelmarchApp(const Context& context);
    ~CVelmarchApp();
    CVelmarchApp(const CVelmarchApp&) = delete;
    CVelmarchApp& operator=(const CVelmarchApp&) = delete;

    /// The folder of records and settings: the one given (created when absent, no install check), else the
    /// environment variable VELMARCH_HOME, else the installed location after its check. False after telling
    /// the user why.
    [[nodiscard]] bool ResolveHome(const QString& homeOption);
    [[nodiscard]] const QString& Home() const { return m_home; }

    /// Opens the settings and makes the settings object and the working records; sets theRecordMode. A
    /// settings file that can't be read was put aside; the user is told once. False when the settings can't
    /// be kept (a newer or locked file): the user is told, and they live in memory. The window goes on like
    /// that; a console command, whose effect would be lost with its end, doesn't.
    [[nodiscard]] bool OpenSettings();
    /// Opens the record store and makes its tables when it is new. A home that had a store before never
    /// starts empty in silence: a missing store is asked about, any other trouble told. False then. A store
    /// that can only be read is opened: changes fail one by one, in words.
    [[nodiscard]] bool OpenStore();
    /// Damage was met in the store since OpenStore began, even where it could not be opened for it.
    [[nodiscard]] bool IsStoreFoundDamaged() const { return m_isStoreFoundDamaged; }
    /// Damage was met in the open store, by whatever program: nothing is written to it from now on.
    void NoteStoreDamage() { m_srcMgr.File().NoteDamage(); }
    /// Closes the store for a caller that puts another one in its place; OpenStore opens that.
    void CloseStore() { m_srcMgr.Close(); }
    /// Reloads the records of the mode, rebuilds the visible ones, reloads the catalogue, hint Rebuild. Also
    /// the handler of Refresh. What the catalogue can't read, the user was told, and the program goes on
    /// without.
    bool LoadStep();
    /// The part of it that concerns pick lists, dependencies and names of fields.
    bool LoadLists();

    [[nodiscard]] CCfgStore& Settings() { return *m_settings; }
    [[nodiscard]] CSettingsTree& Tree() { return m_tree; }
    [[nodiscard]] CProfile& Profile() { return *m_profile; }
    [[nodiscard]] CVOSrcMgr& Manager() { return m_srcMgr; }
    [[nodiscard]] CRecordStore& Store() { return *m_store; }
    [[nodiscard]] CVelmarchDoc& Document() { return *m_document; }
    /// Empty until LoadStep, or until a console command that needs it loads it.
    [[nodiscard]] CPulldownCatalogue& Catalogue() { return *m_catalogue; }
    /// Destroys the catalogue, then saves and destroys the settings object; at the end of the window, before
    /// the store closes. The window has noted the mode in them before (NoteMode); a console command leaves
    /// that as it was.
    void CloseSettings();

    static constexpr const char* kMutexName = "Dv.Win.Velmarch.{5E1C7A20-93D4-4C7F-A1B6-2F08D6C4B711}";

 private:
    [[nodiscard]] bool CheckInstallLocation();
    [[nodiscard]] bool UseFolder(const QString& path);
    [[nodiscard]] bool AskAboutMissingStore(const QString& path);
    bool TellStoreCantOpen(const QString& path);
    void TellDamagedSettings();
    void NoteDamage();
    [[nodiscard]] bool MakeTables();
    void TellNotInstalled(const QString& why);
    void Tell(Text id, const QString& text, Text title);
    void DropCatalogue();

    Context m_context;
    QString m_home;
    bool m_isStoreFoundDamaged = false;
    CVOSrcMgr m_srcMgr;
    CSettingsTree m_tree;
    std::unique_ptr<CProfile> m_profile;
    std::unique_ptr<CCfgStore> m_settings;
    std::unique_ptr<PrecisionScope> m_precisions;
    std::unique_ptr<CTRecord> m_timeEntry, m_clockEntry, m_spanEntry;
    std::unique_ptr<CERecord> m_expenseEntry;
    std::unique_ptr<CRecordStore> m_store;
    std::unique_ptr<CVelmarchDoc> m_document;
    std::unique_ptr<CPulldownCatalogue> m_catalogue;
};
