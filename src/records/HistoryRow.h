#pragma once

#include "records/CStoreJournal.h"
#include "records/RowOps.h"

#include <QString>
#include <QStringList>
#include <cstdint>

/// What can become of a change. Stored as these numbers.
enum class ChangeState : int {
    Done = 0,      ///< it can be undone
    Undone = 1,    ///< it can be done again
    TooLarge = 2,  ///< it is done, and more than is kept
    Gone = 3       ///< it was undone, and doing it again is more than is kept
};

/// What the history keeps of a change beside its rows. While it isn't sure that a row of the history came
/// true, another one of the same change may stand beside it.
struct HistoryRow {
    std::int64_t row = 0;     ///< in the order of writing
    std::int64_t number = 0;  ///< of the change, that of the first row which was written of it
    QString time;             ///< 2026-11-22T16:05:00
    ChangeKind kind = ChangeKind::Other;
    int count = 0;      ///< of what the kind is about: records, items, timers
    QStringList names;  ///< of what was changed, as the kind has them; may be none
    ChangeState state = ChangeState::Done;
    RowOp last{.event = RowEvent::Added, .table = 0, .key = {}, .before = {}};  ///< by which it is recognised
    bool isSure = false;  ///< it is known that the change was made

    [[nodiscard]] bool IsNew() const { return number == row; }
    [[nodiscard]] bool IsDone() const { return state == ChangeState::Done || state == ChangeState::TooLarge; }
};
