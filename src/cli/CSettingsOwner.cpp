#include "cli/CSettingsOwner.h"

#include "cli/CWindowLink.h"
#include "cli/ExitCode.h"
#include "config/CCfgStore.h"
#include "config/SettingCommand.h"
#include "lang/LoadText.h"

using namespace Qt::Literals::StringLiterals;

QJsonObject CSettingsOwner::Change(const QJsonObject& command) {
    if (!m_window.IsThere()) return RunSettingCommand(command, m_settings);
    if (const auto answer = m_window.Ask(InstanceCommand::kSetting, command)) {
        m_settings.LoadValues();
        return *answer;
    }
    if (!m_window.IsThere()) return RunSettingCommand(command, m_settings);
    return {{u"ok"_s, false},
            {u"exit"_s, static_cast<int>(ExitCode::Refused)},
            {u"error"_s, LoadText(Text::CliWindowOwnsSettings)}};
}
