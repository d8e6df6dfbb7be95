#include "exchange/text/Delimiters.h"

#include "lang/FormatText.h"

#include <algorithm>
#include <array>

namespace {

constexpr DelimiterChoice kQualifiers[] = {{Text::DelimiterQuote}, {Text::DelimiterApostrophe}};
constexpr DelimiterChoice kSeparators[] = {
    {Text::DelimiterTab, Text::DelimiterTabName}, {Text::DelimiterSemicolon}, {Text::DelimiterComma}};
constexpr DelimiterChoice kLineEnds[] = {{Text::DelimiterLineFeed, Text::DelimiterLineFeedName}};

/// The delimiters that are shown by a name.
constexpr std::array kNamed = {kSeparators[0], kLineEnds[0]};

}  // namespace

Delimiters PresetDelimiters() {
    return {LoadText(Text::DelimiterQuote), LoadText(Text::DelimiterComma),
            LoadText(Text::DelimiterLineFeed)};
}

std::optional<Text> ObjectionTo(const Delimiters& delimiters) {
    if (delimiters.qualifier.isEmpty() && delimiters.separator.isEmpty()) return Text::DelimitersBothEmpty;
    if (delimiters.lineEnd.isEmpty()) return Text::DelimiterNoLineEnd;
    return std::nullopt;
}

std::span<const DelimiterChoice> QualifierChoices() {
    return kQualifiers;
}

std::span<const DelimiterChoice> SeparatorChoices() {
    return kSeparators;
}

std::span<const DelimiterChoice> LineEndChoices() {
    return kLineEnds;
}

QString DelimiterEntered(const QString& entry) {
    const auto named = std::ranges::find_if(
        kNamed, [&entry](const DelimiterChoice& choice) { return entry == LoadText(choice.name); });
    return named == kNamed.end() ? entry.left(1) : LoadText(named->delimiter);
}

QString ShownDelimiter(const QString& delimiter) {
    const auto named = std::ranges::find_if(kNamed, [&delimiter](const DelimiterChoice& choice) {
        return delimiter == LoadText(choice.delimiter);
    });
    return named == kNamed.end() ? delimiter : LoadText(named->name);
}

/// A tab between the fields is shown as the blank that it is.
QString SampleOf(const Delimiters& delimiters) {
    const auto& [q, s, lineEnd] = delimiters;
    const QString end = lineEnd == LoadText(Text::DelimiterLineFeed) ? QString() : lineEnd;
    return FormatText<Text::DelimiterSample>(q, q, s, q, q, s, end);
}
