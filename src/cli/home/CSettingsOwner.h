#pragma once

#include "entry/NamedDefaults.h"
#include "entry/SettingsRequest.h"
#include "reports/definition/CReportStore.h"
#include "reports/query/CQueryStore.h"

class CCfgStore;
class CClock;
class CColumnNames;
class CWindowLink;

/// Where settings are changed: by the running window, which owns them, or here when none runs.
class CSettingsOwner {
 public:
    CSettingsOwner(CCfgStore& settings, CWindowLink& window, const CClock& clock)
        : m_settings(settings), m_window(window), m_clock(clock) {}

    /// For settings that couldn't be opened: what isn't found in them may be there all the same.
    void NoteUnread() { m_areRead = false; }
    [[nodiscard]] bool AreRead() const { return m_areRead; }
    /// Carries out a change as RunSettingsRequest does; the window owns them when it can't be told.
    [[nodiscard]] InstanceReply Change(const SettingsRequest& request);
    /// Gives the columns the names of their fields and saves them, where no window does that. False when they
    /// can't be saved.
    [[nodiscard]] bool NameColumns(const CColumnNames& names);
    /// The settings as they are stored, after a change too.
    [[nodiscard]] const CCfgStore& Stored() const { return m_settings; }
    /// The stored defaults of a mode, for reading.
    [[nodiscard]] NamedDefaults Defaults(RecordMode mode) const { return {m_settings, m_clock, mode}; }
    /// The stored queries of a mode, for reading.
    [[nodiscard]] CQueryStore Queries(RecordMode mode) const { return {m_settings, mode}; }
    /// The stored definitions of a mode and a kind of report, for reading.
    [[nodiscard]] CReportStore Reports(RecordMode mode, ReportKind kind) const {
        return {m_settings, mode, kind};
    }
    /// What periods are worked out with.
    [[nodiscard]] PeriodContext Periods() const;

 private:
    [[nodiscard]] InstanceReply ChangeHere(const SettingsRequest& request);

    CCfgStore& m_settings;
    CWindowLink& m_window;
    const CClock& m_clock;
    bool m_areRead = true;
};
