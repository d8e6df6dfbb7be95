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
    /// The name of a row that stands for the empty record: exactly that name.
    [[nodiscard]] static bool IsReserved(const QString& name);
    /// The same, ignoring case: what a default can't be renamed to.
    [[nodiscard]] static bool LooksReserved(const QString& name);
    /// The stored name that equals this one, ignoring case; nothing when there is none.
    [[nodiscard]] std::optional<QString> FindName(const QString& name) const;
    /// Whether a stored name other than one equals this name, ignoring case.
    [[nodiscard]] bool IsTaken(const QString& name, const QString& except) const;

    /// Fills the record: the empty one is dated today, others are as they were stored. False, and the record
    /// as it was, when there is no such default, it can't be read, or the record is of the other kind. The
    /// identity of the record stays, but the empty record has none.
    [[nodiscard]] bool Read(const QString& name, CVORec& record) const;
    /// False for an empty name, a record of the other kind, and on failure, of which the user is told.
    [[nodiscard]] bool Write(const QString& name, const CVORec& record);
    [[nodiscard]] bool Delete(const QString& name);
    /// False for a new name that is empty, reserved or taken by another default, ignoring case, and for a
    /// default without a value.
    [[nodiscard]] bool Rename(const QString& oldName, const QString& newName);

 private:
    [[nodiscard]] QStringList Stored() const;

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
        /// Asks for a name, opening on one; nothing: cancelled. Asked again until it fits, so a source that
        /// always gives the same name must cancel the second time.
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
    [[nodiscard]] std::optional<QString> AskNewName();
    [[nodiscard]] std::optional<QString> AskOtherName(const QString& name);

    NamedDefaults& m_defaults;
    CVORec& m_working;
    bool m_confirmDelete;
    Screen m_screen;
};
