#pragma once

#include "app/RecordMode.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class CCfgStore;
class CClock;
class CPrompt;
class CVORec;

/// Whole records kept under names in the settings, from which new records start. The name of the empty record
/// is always there: it isn't stored, stands last, and can't be changed.
class NamedDefaults {
 public:
    NamedDefaults(CCfgStore& settings, const CClock& clock, RecordMode mode);

    /// The stored names in the order of their making, then the name of the empty record.
    [[nodiscard]] QStringList Names() const;
    [[nodiscard]] static QString EmptyRecordName();
    [[nodiscard]] static bool IsReserved(const QString& name);
    /// The stored name that equals this one, ignoring case; nothing when there is none.
    [[nodiscard]] std::optional<QString> FindName(const QString& name) const;

    /// Fills the record: the empty one is dated today, others are as they were stored. False, and the record
    /// as it was or reset, when there is no such default or it can't be read.
    [[nodiscard]] bool Read(const QString& name, CVORec& record) const;
    [[nodiscard]] bool Write(const QString& name, const CVORec& record);
    [[nodiscard]] bool Delete(const QString& name);
    [[nodiscard]] bool Rename(const QString& oldName, const QString& newName);

 private:
    CCfgStore& m_settings;
    const CClock& m_clock;
    RecordMode m_mode;
};

/// The four actions of the dialog, with all that they ask. What they need of the screen comes in as
/// functions.
class NamedDefaultsActions {
 public:
    struct Screen {
        std::function<bool(CVORec& record)> edit;  ///< the record dialog; false: cancelled
        /// Asks for a name, opening on one; nothing: cancelled.
        std::function<std::optional<QString>(const QString& opening)> askName;
        CPrompt& prompt;
    };
    NamedDefaultsActions(NamedDefaults& defaults, CVORec& working, bool confirmDelete, Screen screen);

    /// Each gives the name that the list shows then; nothing when nothing was done.
    [[nodiscard]] std::optional<QString> New();
    [[nodiscard]] bool Edit(const QString& name);
    [[nodiscard]] bool Delete(const QString& name);
    [[nodiscard]] std::optional<QString> Rename(const QString& name);

 private:
    NamedDefaults& m_defaults;
    CVORec& m_working;
    bool m_confirmDelete;
    Screen m_screen;
};
