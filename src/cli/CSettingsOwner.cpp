#include "cli/CSettingsOwner.h"

#include "cli/CWindowLink.h"
#include "cli/ExitCode.h"
#include "config/CCfgStore.h"
#include "entry/DefaultsCommand.h"
#include "lang/LoadText.h"

using namespace Qt::Literals::StringLiterals;

QJsonObject CSettingsOwner::Change(const QJsonObject& command) {
    if (!m_window.IsThere()) return RunSettingsRequest(command, m_settings, m_clock);
    if (const auto answer = m_window.Ask(InstanceCommand::kSetting, command)) {
        m_settings.LoadAll();
        return *answer;
    }
    if (!m_window.IsThere()) return RunSettingsRequest(command, m_settings, m_clock);
    return {{u"ok"_s, false},
            {u"exit"_s, static_cast<int>(ExitCode::Refused)},
            {u"error"_s, LoadText(Text::CliWindowOwnsSettings)}};
}
