#include "shell/record/LeaveQuestion.h"

#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"

Leave AskLeave(Text question, CPrompt& prompt) {
    const bool isNew = question == Text::AskLeaveNew || question == Text::AskLeaveTimer;
    const Answer answer = prompt.Ask({.textId = static_cast<int>(question),
                                      .title = LoadText(Text::AskLeaveTitle),
                                      .text = LoadText(question),
                                      .icon = BoxIcon::Question,
                                      .buttons = Buttons::YesNoCancel,
                                      .defaultAnswer = Answer::Cancel,
                                      .actionLabel = LoadText(isNew ? Text::LeaveKeep : Text::LeaveSave),
                                      .otherLabel = LoadText(Text::LeaveDiscard),
                                      .cancelLabel = LoadText(Text::LeaveGoOn)});
    if (answer == Answer::Yes) return Leave::Save;
    return answer == Answer::No ? Leave::Discard : Leave::Stay;
}
