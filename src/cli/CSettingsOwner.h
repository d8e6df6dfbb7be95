#pragma once

#include <QJsonObject>

class CCfgStore;
class CWindowLink;

/// Where settings are changed: by the running window, which owns them, or here when none runs.
class CSettingsOwner {
 public:
    CSettingsOwner(CCfgStore& settings, CWindowLink& window) : m_settings(settings), m_window(window) {}

    /// Carries out a change as RunSettingCommand does; "exit" 3 when the window can't be told.
    [[nodiscard]] QJsonObject Change(const QJsonObject& command);
    /// The settings as they are stored, after a change too.
    [[nodiscard]] const CCfgStore& Stored() const { return m_settings; }

 private:
    CCfgStore& m_settings;
    CWindowLink& m_window;
};
