#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "reports/query/CStoredTexts.h"

struct FrameContext;

/// The commands that edit the pick lists.
class CFrameLists {
 public:
    explicit CFrameLists(const FrameContext& context);

    /// The items of the eleven lists; the views are built anew afterwards. False, and the user told, when the
    /// lists can't be read.
    bool EditLists();

 private:
    const FrameContext& m_context;
    COwnTimers m_timers;
    CStoredTexts m_stored;
    CRecordChanges m_changes;
};
