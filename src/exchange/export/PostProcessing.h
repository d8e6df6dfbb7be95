#pragma once

#include "changes/Outcome.h"

#include <QStringList>

class CRecordChanges;
enum class RecordKind : int;

/// What becomes of records once they are exported; the numbers are those of the setting.
enum class AfterExport : int { Ask = 0, Nothing = 1, Delete = 2, Mark = 3 };

/// Without a question. The outcome has the records that were deleted, or newly marked as exported: one that
/// bears the mark already stays as it is, and no view hears of it.
[[nodiscard]] Outcome PostProcess(AfterExport what, RecordKind kind, const QStringList& ids,
                                  CRecordChanges& changes);
