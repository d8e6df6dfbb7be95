#include "entry/NumberFinding.h"

#include "entry/TypedNumber.h"
#include "lang/FormatText.h"

std::optional<DraftFinding> FindUnreadable(DraftField field, const QString& typed) {
    if (ReadTypedNumber(typed, TheRegion()).state != Typed::Unreadable) return {};
    return DraftFinding{.field = field,
                        .text = Text::NumberRefused,
                        .words = FormatText<Text::NumberRefused>(typed),
                        .mark = LoadText(Text::NumberUnreadable),
                        .isQuestion = false};
}

std::optional<DraftFinding> FindInNumber(DraftField field, const QString& typed, const QString& kept,
                                         int precision) {
    if (auto finding = FindUnreadable(field, typed)) return finding;
    const TypedNumber number = ReadTypedNumber(typed, TheRegion());
    if (!number.IsValue() || ShowsAsTyped(kept, precision, number)) return {};
    const QString& shown = kept.isEmpty() ? LoadText(Text::NumberNotKept) : kept;
    return DraftFinding{.field = field,
                        .text = Text::AskNumberKept,
                        .words = FormatText<Text::AskNumberKept>(typed, shown),
                        .mark = FormatText<Text::NumberKeptOtherwise>(typed, shown),
                        .isQuestion = true};
}
