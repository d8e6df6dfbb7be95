#include "cli/home/CSettingsOwner.h"

#include "cli/home/CWindowLink.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

/// What another program has changed since they were read stays: they are read again, and the change is made
/// of that, with nobody in between.
InstanceReply CSettingsOwner::ChangeHere(const SettingsRequest& request) {
    std::optional<InstanceReply> reply;
    const bool isKept = m_settings.Profile().Change([&] {
        m_settings.LoadAll();
        reply = RunSettingsRequest(request, m_settings, m_clock);
        return bool(*reply);
    });
    if (isKept || (reply && !*reply)) return *reply;
    m_settings.LoadAll();
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::SettingNotSaved>(m_settings.Tree().Error()));
}

InstanceReply CSettingsOwner::Change(const SettingsRequest& request) {
    if (!m_window.IsThere()) return ChangeHere(request);
    if (const auto reply = m_window.Ask(ToMessage(request))) {
        m_settings.LoadAll();
        return *reply;
    }
    if (!m_window.IsThere()) return ChangeHere(request);
    return InstanceReply::Refused(ReplyReason::WindowOwns, LoadText(Text::CliWindowOwnsSettings));
}

PeriodContext CSettingsOwner::Periods() const {
    return {m_clock, m_settings.Region(), m_settings.firstDayOfWeek, m_settings.yearDisplayFormat};
}

bool CSettingsOwner::NameColumns(const CColumnNames& names) {
    for (CColSet* columns : {&m_settings.ListColumns(), static_cast<CColSet*>(&m_settings.TreeColumns())}) {
        columns->SetCatalogue(&names);
        (void)columns->ApplyCaptions(m_settings);  // false only without names
        columns->SetCatalogue(nullptr);
    }
    return m_settings.SaveAll();
}
