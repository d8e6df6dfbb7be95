#include "cli/arguments/TextFileArguments.h"

#include "cli/arguments/CArguments.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "platform/host/TextCoder.h"

#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kOptions[] = {
    {"qualifier", "C", OptionShape::Value, Text::CliOptQualifier},
    {"separator", "C", OptionShape::Value, Text::CliOptSeparator},
    {"terminator", "C", OptionShape::Value, Text::CliOptTerminator},
    {"encoding", "NAME", OptionShape::Value, Text::CliOptEncoding},
};

struct DelimiterOption {
    const char* name;
    QString Delimiters::*delimiter;
};
constexpr DelimiterOption kDelimiters[] = {
    {"qualifier", &Delimiters::qualifier},
    {"separator", &Delimiters::separator},
    {"terminator", &Delimiters::lineEnd},
};

struct WordRow {
    QStringView word;
    QStringView delimiter;
};
constexpr WordRow kWords[] = {{u"tab", u"\t"}, {u"lf", u"\n"}, {u"none", u""}};

/// The sentence that refuses; empty for a delimiter.
QString ReadDelimiter(const QString& typed, const QByteArray& encoding, QString& delimiter) {
    const auto* word = std::ranges::find(kWords, QStringView(typed), &WordRow::word);
    if (word != std::end(kWords)) {
        delimiter = word->delimiter.toString();
        return {};
    }
    if (typed.size() != 1) return FormatText<Text::DelimiterNotOne>(typed);
    if (!IsOneByte(typed.front().unicode(), encoding)) return FormatText<Text::DelimiterTooWide>(typed);
    delimiter = typed;
    return {};
}

QString ReadChoice(const CArguments& arguments, TextFileChoice& choice) {
    choice.delimiters = PresetDelimiters();
    const QString encoding = arguments.Value("encoding").value_or(u"utf-8"_s);
    const QByteArray name = encoding.toUtf8().toLower();
    if (!IsEncoding(name)) return FormatText<Text::EncodingUnknown>(encoding);
    if (arguments.Has("encoding")) choice.encoding = name;
    for (const DelimiterOption& option : kDelimiters) {
        const auto typed = arguments.Value(option.name);
        if (!typed) continue;
        QString problem = ReadDelimiter(*typed, name, choice.delimiters.*option.delimiter);
        if (!problem.isEmpty()) return problem;
    }
    const auto objection = ObjectionTo(choice.delimiters);
    return objection ? LoadText(*objection) : QString();
}

}  // namespace

std::span<const OptionRow> TextFileOptions() {
    return kOptions;
}

std::optional<TextFileChoice> ReadTextFileChoice(const CArguments& arguments, Console& console) {
    TextFileChoice choice;
    const QString problem = ReadChoice(arguments, choice);
    if (problem.isEmpty()) return choice;
    console.out.Complain(problem);
    return std::nullopt;
}
