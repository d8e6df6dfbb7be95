#pragma once

#include "records/CVORec.h"

struct Settings;

/// What the program shows: time or expenses.
enum class RecordMode : int { Time = 1, Expense = 2 };

/// The mode in use, process-wide: which records are loaded, which filter and columns apply.
extern RecordMode theRecordMode;

[[nodiscard]] inline RecordKind KindOf(RecordMode mode) {
    return mode == RecordMode::Time ? RecordKind::Time : RecordKind::Expense;
}

[[nodiscard]] inline RecordMode ModeOf(RecordKind kind) {
    return kind == RecordKind::Expense ? RecordMode::Expense : RecordMode::Time;
}

/// The mode that a program starts in: the one that the window was in at its end.
[[nodiscard]] RecordMode LastMode(const Settings& settings);
/// The mode in use goes to the settings; for the end of the window, before they are saved.
void NoteMode(Settings& settings);

/// Sets the mode for a scope and puts the former one back.
class RecordModeScope {
 public:
    explicit RecordModeScope(RecordMode mode) : m_previous(theRecordMode) { theRecordMode = mode; }
    ~RecordModeScope() { theRecordMode = m_previous; }
    RecordModeScope(const RecordModeScope&) = delete;
    RecordModeScope& operator=(const RecordModeScope&) = delete;

 private:
    RecordMode m_previous;
};
