#include "shell/frame/ChangesOf.h"

#include "config/CCfgStore.h"
#include "shell/frame/CFrameDialogs.h"
#include "shell/frame/FrameContext.h"

CRecordChanges::Context ChangesOf(const FrameContext& context, CTimersOfRecords& timers,
                                  CRecordChanges::Partial partial) {
    return {.document = context.document,
            .timers = timers,
            .catalogue = context.catalogue,
            .entered = context.dialogs.Entered(),
            .settings = context.settings,
            .prompt = context.prompt,
            .progress = context.progress,
            .partial = partial};
}
