#pragma once

#include "changes/CRecordChanges.h"

struct FrameContext;

/// What a class of the frame hands to the changes of records. timers: its own; it must outlive them.
[[nodiscard]] CRecordChanges::Context ChangesOf(const FrameContext& context, CTimersOfRecords& timers,
                                                CRecordChanges::Partial partial);
