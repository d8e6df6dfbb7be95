#pragma once

#include <QStringList>

class ActiveTimerSet;
class CVelmarchDoc;

/// The records that have a timer and aren't in the store any more. Where the store can't be read none is
/// taken for gone; the user was told.
[[nodiscard]] QStringList GoneRecords(const ActiveTimerSet& timers, CVelmarchDoc& document);
