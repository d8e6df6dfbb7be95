#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <span>

class CTRecord;
class CVelmarchDoc;
class CTimerDesk;
class CClock;
struct Settings;

/// Bits of a quick command: where the new record comes from and what is done to it.
namespace QuickFlag {
inline constexpr int kBlank = 1;
inline constexpr int kDefaults = 2;
inline constexpr int kTree = 4;
inline constexpr int kCopy = 8;
inline constexpr int kTimestamp = 16;
inline constexpr int kSuccessive = 32;
inline constexpr int kTimer = 64;
}  // namespace QuickFlag

/// One quick command: its number and its flags.
struct QuickCommandRow {
    int command;
    int flags;
};
/// The quick commands that are offered, in order of their numbers. Those that start from stored defaults or
/// from the data tree aren't: neither is there yet.
[[nodiscard]] std::span<const QuickCommandRow> QuickCommands();

/// What a new time record needs from outside.
struct QuickEntrySurroundings {
    CVelmarchDoc& document;
    CTimerDesk& timers;
    const Settings& settings;
    const CClock& clock;
    QStringList selectedIds;  ///< of the record list; a copy and a successive entry need exactly one
    /// Lets the user edit the record; true when accepted. Empty: there is no dialog, the record is added at
    /// once.
    std::function<bool(CTRecord& record)> edit;
    /// The record that a successive entry follows, where it isn't the selected one.
    QString successiveId = {};
};

/// How a quick command ended.
struct QuickOutcome {
    bool succeeded = false;
    QString addedId;  ///< empty when the user cancelled or it failed
};

/// Makes a new time record by flags: base, date and start, identity, timer, then straight into the document
/// or through the dialog, as the settings say. A cancelled dialog is a success that added nothing; a timer of
/// the new record goes with it. What happened to other timers stays.
[[nodiscard]] QuickOutcome NewTimeRecord(int flags, const QuickEntrySurroundings& around);
