#include "shell/record/OfferDrafts.h"

#include "app/CVelmarchDoc.h"
#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "config/CCfgStore.h"
#include "entry/QuickEntry.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/record/EditRecord.h"
#include "shell/record/RecordDialogParts.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerTexts.h"

#include <QWidget>
#include <memory>

namespace {

bool IsWanted(const StoredDraft& draft, CPrompt& prompt) {
    const QString time = LiveDurationText(draft.timer ? &*draft.timer : nullptr, draft.record.spans.duration);
    return prompt.Ask({.textId = static_cast<int>(Text::AskTakeUpDraft),
                       .title = LoadText(Text::AskTakeUpDraftTitle),
                       .text = FormatText<Text::AskTakeUpDraft>(time),
                       .icon = BoxIcon::Question,
                       .buttons = Buttons::YesNo,
                       .defaultAnswer = Answer::Yes,
                       .actionLabel = LoadText(Text::TakeUpDraft)}) == Answer::Yes;
}

void TakeUp(StoredDraft& draft, QWidget* parent, const RecordDialogContext& context) {
    context.timers.AwaitAgain(draft);
    COwnTimers timers(context.timers);
    CNoProgress progress;
    CRecordChanges changes({.document = context.document,
                            .timers = timers,
                            .catalogue = context.catalogue,
                            .entered = context.entered,
                            .settings = context.settings,
                            .prompt = context.prompt,
                            .progress = progress,
                            .partial = CRecordChanges::Partial::Kept});
    const std::shared_ptr<CVORec> untouched = draft.record.Clone();
    const QuickEntryContext entry{
        .document = context.document,
        .timers = context.timers,
        .settings = context.settings,
        .clock = context.clock,
        .add = [&changes](const CVORec& record) { return bool(changes.Add(record, Identity::Own)); },
        .selectedIds = {},
        .edit = [parent, &context,
                 untouched](CVORec& record) { return EditRecord(parent, record, context, untouched.get()); }};
    // Cancelled is cancelled; a record that can't be stored comes back to the dialog.
    if (TakeUpTimeRecord(draft.record, entry).lacksTimer) TellWithoutTimer(context.prompt);
}

}  // namespace

/// A key pressed in passing doesn't throw hours away: what isn't taken up is offered again at the next start.
/// Taken up and cancelled, it is gone.
void OfferDrafts(QWidget* parent, const RecordDialogContext& context) {
    const auto isLeaving = [parent] { return parent && !parent->window()->isVisible(); };
    QStringList offered;
    while (auto draft = context.timers.TakeOverDraft(offered)) {
        if (isLeaving()) return;
        offered.append(draft->record.GetId());
        if (IsWanted(*draft, context.prompt)) TakeUp(*draft, parent, context);
    }
}
