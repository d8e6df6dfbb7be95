#include "cli/home/CSettingsOwner.h"

#include "cli/home/CWindowLink.h"
#include "cli/output/ExitCode.h"
#include "config/CCfgStore.h"
#include "entry/DefaultsCommand.h"
#include "lang/FormatText.h"

using namespace Qt::Literals::StringLiterals;

/// What another program has changed since they were read stays: they are read again, and the change is made
/// of that, with nobody in between.
QJsonObject CSettingsOwner::ChangeHere(const QJsonObject& command) {
    QJsonObject answer;
    const bool isKept = m_settings.Profile().Change([&] {
        m_settings.LoadAll();
        answer = RunSettingsRequest(command, m_settings, m_clock);
        return answer[u"ok"].toBool();
    });
    if (!isKept && (answer.isEmpty() || answer[u"ok"].toBool())) {
        m_settings.LoadAll();
        answer = {{u"ok"_s, false},
                  {u"exit"_s, static_cast<int>(ExitCode::Failed)},
                  {u"error"_s, FormatText<Text::SettingNotSaved>(m_settings.Tree().Error())}};
    }
    return answer;
}

QJsonObject CSettingsOwner::Change(const QJsonObject& command) {
    if (!m_window.IsThere()) return ChangeHere(command);
    if (const auto answer = m_window.Ask(InstanceCommand::kSetting, command)) {
        m_settings.LoadAll();
        return *answer;
    }
    if (!m_window.IsThere()) return ChangeHere(command);
    return {{u"ok"_s, false},
            {u"exit"_s, static_cast<int>(ExitCode::Refused)},
            {u"error"_s, LoadText(Text::CliWindowOwnsSettings)}};
}

bool CSettingsOwner::NameColumns(const CColumnNames& names) {
    for (CColSet* columns : {&m_settings.ListColumns(), static_cast<CColSet*>(&m_settings.TreeColumns())}) {
        columns->SetCatalogue(&names);
        (void)columns->ApplyCaptions(m_settings);  // false only without names
        columns->SetCatalogue(nullptr);
    }
    return m_settings.SaveAll();
}
