#pragma once

#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "support/CScriptedPrompt.h"

#include <QTest>
#include <memory>

/// The settings of one program on a file: tree, profile and settings object.
class SettingsHome {
 public:
    explicit SettingsHome(const QString& folder, const CRegionalInfo& region = {}) {
        isOpen = LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)) &&
                 tree.Open(folder + QStringLiteral("/velmarch.settings"));
        profile = std::make_unique<CProfile>(tree, LoadText(Text::ProfileKeyName));
        m_region = region;
    }

    /// Starts the settings object, and ends an earlier one.
    CCfgStore& Start() {
        settings.reset();
        settings = std::make_unique<CCfgStore>(tree, *profile, prompt, m_region, LoadText(Text::BaseKeyPath));
        return *settings;
    }
    [[nodiscard]] CSettingsKey BaseKey() { return tree.OpenKey(tree.Root(), LoadText(Text::BaseKeyPath)); }
    [[nodiscard]] static QString Section() { return QStringLiteral("CoreRuntime"); }

    bool isOpen = false;
    CScriptedPrompt prompt;
    CSettingsTree tree;
    std::unique_ptr<CProfile> profile;
    std::unique_ptr<CCfgStore> settings;

 private:
    CRegionalInfo m_region;
};
