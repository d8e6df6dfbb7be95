#include "changes/OfferReplace.h"

#include "app/ListTable.h"
#include "changes/CRecordChanges.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"

namespace {

bool Agreed(CPrompt& prompt) {
    return prompt.Ask({.textId = static_cast<int>(Text::AskReplaceInRecords),
                       .title = LoadText(Text::AskReplaceTitle),
                       .text = LoadText(Text::AskReplaceInRecords),
                       .icon = BoxIcon::Question,
                       .buttons = Buttons::YesNo,
                       .defaultAnswer = Answer::No,
                       .actionLabel = LoadText(Text::ActionReplaceInRecords),
                       .otherLabel = LoadText(Text::NoWord)}) == Answer::Yes;
}

void Tell(Text id, const QString& text, BoxIcon icon, CPrompt& prompt) {
    prompt.Tell({.textId = static_cast<int>(id),
                 .title = LoadText(Text::ReplacedTitle),
                 .text = text,
                 .icon = icon,
                 .actionLabel = {}});
}

}  // namespace

bool OfferReplaceInRecords(int list, const QString& oldText, const QString& newText, CRecordChanges& changes,
                           CPrompt& prompt) {
    if (!IsRecordList(list) || !Agreed(prompt)) return false;
    const Outcome replaced = changes.ReplaceInRecords(list, oldText, newText);
    if (replaced)
        Tell(Text::RecordsReplaced, FormatText<Text::RecordsReplaced>(static_cast<int>(replaced.ids.size())),
             BoxIcon::Information, prompt);
    else
        Tell(Text::RecordsNotReplaced, LoadText(Text::RecordsNotReplaced), BoxIcon::Warning, prompt);
    return bool(replaced);
}
