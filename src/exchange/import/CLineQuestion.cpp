#include "exchange/import/CLineQuestion.h"

#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"

/// A retry doesn't try the line again: it goes on with the next one, and asks again.
bool CLineQuestion::GoesOn(const RefusedLine& line) {
    const int code = static_cast<int>(line.code);
    if (line.code != LineCode::Parsed && m_ignored.contains(code)) return true;
    const Answer answer =
        m_prompt.Ask({.textId = static_cast<int>(Text::LineRefused),
                      .title = LoadText(Text::LineRefusedTitle),
                      .text = LoadText(Text::LineRefused) + line.line + LoadText(Text::LineCutMark) +
                              LoadText(Text::LineReason) + TextOf(line.code) + LoadText(Text::LineRefusedEnd),
                      .icon = BoxIcon::Warning,
                      .buttons = Buttons::AbortRetryIgnore,
                      .defaultAnswer = Answer::Abort,
                      .actionLabel = {}});
    if (answer == Answer::Ignore) m_ignored.insert(code);
    return answer == Answer::Retry || answer == Answer::Ignore;
}
