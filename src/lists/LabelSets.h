#pragma once

#include "app/RecordMode.h"
#include "lang/Text.h"

#include <QString>
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

/// One name of a ready-made set.
struct LabelPresetRow {
    int preset;  ///< 1 or 2
    RecordMode mode;
    Text firstText, secondText;
    int first, second;
};
[[nodiscard]] std::span<const LabelPresetRow> LabelPresets();

/// Gives fields names: each change is stored as it is made.
class CLabelEditor {
 public:
    explicit CLabelEditor(CPulldownCatalogue& catalogue) : m_catalogue(catalogue) {}
    /// The user's own name takes the place of the former one; an empty text takes it away.
    bool SetLabel(int field, const QString& text);
    /// Takes all own names away.
    bool Reset();
    /// Resets, then takes over a set of names, time records' first.
    bool ApplyPreset(int preset);
    /// Whether any name was changed.
    [[nodiscard]] bool IsChanged() const { return m_isChanged; }

 private:
    CPulldownCatalogue& m_catalogue;
    bool m_isChanged = false;
};
