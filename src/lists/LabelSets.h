#pragma once

#include "app/RecordMode.h"
#include "lang/Text.h"

#include <QString>
#include <map>
#include <span>

class CPulldownCatalogue;

/// One field that the user can name: its list heading and its field name are kept in two lists.
struct LabelRow {
    Text title;
    int first;   ///< heading of its list
    int second;  ///< name of the field
};
/// The fields of a record kind that can be named, in the order in which they are shown.
[[nodiscard]] std::span<const LabelRow> LabelRows(RecordMode mode);

/// What a ready-made set, 1 or 2, calls the fields: a name for every one that can be named, empty where the
/// set gives none. Nothing without such a set.
[[nodiscard]] std::map<int, QString> PresetNames(int preset);

/// An empty name for every field that can be named.
[[nodiscard]] std::map<int, QString> NoNames();

/// Gives fields names: each change is stored as it is made.
class CLabelEditor {
 public:
    explicit CLabelEditor(CPulldownCatalogue& catalogue) : m_catalogue(catalogue) {}
    /// The user's own name takes the place of the former one; an empty text takes it away. False, and the
    /// user told, when it can't be stored; false as well for a number that names no field.
    bool SetLabel(int field, const QString& text);
    /// Takes all own names away, as one change.
    bool Reset();
    /// A set of names in place of all own names, as one change: those that the set doesn't give are the
    /// default ones again. False without such a set, and on failure.
    bool ApplyPreset(int preset);
    /// Whether any name was changed.
    [[nodiscard]] bool IsChanged() const { return m_isChanged; }

 private:
    CPulldownCatalogue& m_catalogue;
    bool m_isChanged = false;
};
