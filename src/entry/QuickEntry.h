#pragma once

#include "records/CVORec.h"

#include <QString>
#include <QStringList>
#include <functional>

class CVelmarchDoc;
class CTRecord;
class CTimerService;
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
inline constexpr int kGiven = 128;  ///< a bit of our own
}  // namespace QuickFlag

/// What a new record needs from outside.
struct QuickEntryContext {
    /// Fills or changes a record of the kind that is made; false when that was called off or isn't possible.
    using Step = std::function<bool(CVORec& record)>;

    CVelmarchDoc& document;
    CTimerService& timers;
    const Settings& settings;
    const CClock& clock;
    /// Stores the record with the identity that it has; false when it could not be, which the user was told.
    std::function<bool(const CVORec& record)> add;
    QStringList selectedIds;  ///< of the record list; a copy and a successive entry need exactly one
    /// Lets the user edit the record; true when accepted. Empty: there is no dialog, the record is added at
    /// once.
    Step edit;
    /// The record that a successive entry follows, where it isn't the selected one.
    QString successiveId = {};
    /// Lets the user choose stored defaults; false: cancelled. Empty: commands that start from them fail.
    Step fillFromDefaults = {};
    /// Each level of the selection in the data tree fills its field; false: no usable selection. Empty: as
    /// above.
    Step fillFromTree = {};
    /// Says what is given of the record (QuickFlag::kGiven).
    Step fillGiven = {};
};

/// How a quick command ended.
struct QuickOutcome {
    bool succeeded = false;   ///< the record is stored, or the user has cancelled
    QString addedId;          ///< empty when the user cancelled or the record could not be stored
    bool lacksTimer = false;  ///< the record is stored, its timer could not be started or saved
};

/// Makes a new time record by flags: base, date and start, identity, timer, then straight into the document
/// or through the dialog, as the settings say. A cancelled dialog is a success that added nothing; a timer of
/// the new record goes with it. What happened to other timers stays.
///
/// Without the dialog the record comes before the timers: when it can't be stored, nothing happens to them.
/// In a program that has a dialog it opens then, so that what can't be stored isn't lost.
[[nodiscard]] QuickOutcome NewTimeRecord(int flags, const QuickEntryContext& context);
/// Goes on with a new time record whose entry was cut off, with the identity and the timer that it had then,
/// from the dialog on.
[[nodiscard]] QuickOutcome TakeUpTimeRecord(CTRecord& record, const QuickEntryContext& context);
/// As NewTimeRecord for an expense, which has a date and neither start nor timer: a successive one is dated
/// as a blank one, and the timer's flag does nothing.
[[nodiscard]] QuickOutcome NewExpenseRecord(int flags, const QuickEntryContext& context);
[[nodiscard]] inline QuickOutcome NewRecordOf(RecordKind kind, int flags, const QuickEntryContext& context) {
    return kind == RecordKind::Time ? NewTimeRecord(flags, context) : NewExpenseRecord(flags, context);
}
