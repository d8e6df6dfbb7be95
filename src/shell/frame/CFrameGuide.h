#pragma once

#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"

struct FrameContext;

/// The command of the first steps.
class CFrameGuide {
 public:
    explicit CFrameGuide(const FrameContext& context);

    /// True when settings may have changed, which the views have to take up.
    [[nodiscard]] bool Run();
    /// Brings the record with the first timer into sight, where one was started.
    void ShowStarted();

 private:
    const FrameContext& m_context;
    COwnTimers m_timers;
    CRecordChanges m_changes;
    QString m_startedId;
};
