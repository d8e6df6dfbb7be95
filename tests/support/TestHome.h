#pragma once

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "config/CCfgStore.h"
#include "platform/host/CMessagePump.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "records/CRecordStore.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"

#include <QTemporaryDir>
#include <memory>

/// A scratch home with settings and store, all objects of the core wired as the programs wire them, the clock
/// and the user's answers in the test's hands. Loads the language library of the build. The mode is time, the
/// regional values are the defaults (12 hours, month first, full stop) unless others are handed in.
class TestHome {
 public:
    explicit TestHome(const CRegionalInfo& regionalInfo = {});
    /// A second program on the home of another, or the next start on a folder that outlives this object.
    explicit TestHome(const QString& folder, const CRegionalInfo& regionalInfo = {});
    ~TestHome();
    TestHome(const TestHome&) = delete;
    TestHome& operator=(const TestHome&) = delete;

    [[nodiscard]] QString Path() const { return m_path; }
    /// A stored record with these times ("09:00", "17:00", empty for none) on a date.
    QString AddTime(int year, int month, int day, const QString& start = {}, const QString& end = {});

    /// Notes every hint with its identities.
    class Views final : public CViewListener {
     public:
        void OnHint(Hint hint, const QStringList& ids) override { seen.append({hint, ids}); }
        QList<std::pair<Hint, QStringList>> seen;
    };

 private:
    void Open();

    QTemporaryDir m_folder;
    QString m_path;
    RecordModeScope m_mode{RecordMode::Time};
    std::unique_ptr<RegionScope> m_regionScope;
    std::unique_ptr<PrecisionScope> m_precisions;
    CNoPump m_pump;

 public:
    CTestClock clock;
    CScriptedPrompt prompt;
    CRegionalInfo region;
    Views views;
    CSettingsTree tree;
    std::unique_ptr<CProfile> profile;
    std::unique_ptr<CCfgStore> settings;
    CVOSrcMgr manager;
    std::unique_ptr<CRecordStore> store;
    std::unique_ptr<CVelmarchDoc> document;
    std::unique_ptr<CPulldownCatalogue> catalogue;  ///< loaded, and the one in use

 private:
    CPulldownCatalogue* m_previousCatalogue = thePulldownCatalogue;
};
