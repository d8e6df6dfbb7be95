#include "cli/commands/CCommandLine.h"

#include "cli/arguments/EnteredValues.h"
#include "cli/commands/CommandTable.h"
#include "lang/FormatText.h"
#include "platform/host/Utf8Text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

// The one file that knows the library for command lines, and where its exceptions end. It sees the groups and
// commands of the table; options are made for the named command only, as they cost more than all the rest of
// a start.

namespace {

constexpr int kUnlimited = 1 << 20;

struct Parsed {
    CLI::App app;
    std::vector<std::pair<const OptionRow*, CLI::Option*>> options;
    std::vector<std::string> words;
};

bool Names(const std::vector<std::string>& arguments, const char* name) {
    return *name == '\0' || std::find(arguments.begin(), arguments.end(), name) != arguments.end();
}

bool TakesValue(const OptionRow& option) {
    return option.shape == OptionShape::Value || option.shape == OptionShape::Values;
}

void AddOption(Parsed& parsed, CLI::App& app, const OptionRow& row) {
    std::string name = std::string("--") + row.name;
    if (name == "--help") name += ",-h";
    CLI::Option* option = app.add_option(name);
    const int most = row.shape == OptionShape::Flag ? 0 : 1;
    option->expected(TakesValue(row) ? 1 : 0, most)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    parsed.options.emplace_back(&row, option);
}

void AddCommand(Parsed& parsed, CLI::App& app, const CommandRow& row) {
    if (*row.words) app.add_option("words", parsed.words)->expected(0, kUnlimited);
    for (const auto options : row.options)
        for (const OptionRow& option : options) AddOption(parsed, app, option);
}

/// A group word is followed by its commands' words only, so a word that is also a command elsewhere ("list"
/// as a name) is taken for what it is.
void AddGroup(Parsed& parsed, const GroupRow& group, const std::vector<std::string>& arguments) {
    CLI::App* groupApp = parsed.app.add_subcommand(group.name);
    groupApp->fallthrough()->require_subcommand(0, 1);
    for (const CommandRow& row : Commands()) {
        if (std::string_view(row.group) != group.name) continue;
        CLI::App* app = *row.name ? groupApp->add_subcommand(row.name)->fallthrough() : groupApp;
        if (Names(arguments, row.group) && Names(arguments, row.name)) AddCommand(parsed, *app, row);
    }
}

/// The library takes a word in square brackets apart as a list, and "++" for the end of a command. Such a
/// word goes through it with this character in front, which no word of a command begins with.
constexpr char kWholeWord = '\x01';

std::string Guarded(const std::string& argument) {
    const bool isList = argument.starts_with('[') && argument.ends_with(']');
    const bool isEnd = argument == "++";
    return isList || isEnd || argument.starts_with(kWholeWord) ? kWholeWord + argument : argument;
}

QString Unguarded(const std::string& argument) {
    return TextOfUtf8(argument.starts_with(kWholeWord) ? argument.substr(1) : argument);
}

/// What the library gets of a line.
struct Prepared {
    std::vector<std::string> arguments;
    std::vector<std::string> words;  ///< what stands behind "--": words, whatever they look like
    std::string emptyYesNo;          ///< a yes-or-no option with an empty text for its value
};

/// The option that an argument names; null when it names none.
const OptionRow* FindOption(const Parsed& parsed, std::string_view argument) {
    if (!argument.starts_with("--")) return nullptr;
    for (const auto& [row, option] : parsed.options)
        if (argument.substr(2) == row->name) return row;
    return nullptr;
}

/// "--item1=" gives an empty text. The library would take the next argument for the value, so the two are
/// parted beforehand. It would take an empty text behind a yes-or-no option for nothing at all: an unset
/// variable of a script isn't a yes.
Prepared Prepare(const std::vector<std::string>& arguments, const Parsed& parsed) {
    Prepared prepared;
    const OptionRow* opened = nullptr;  // the option whose value may come next
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const bool isValue = opened && TakesValue(*opened);
        const bool isEmptyYesNo = opened && opened->shape == OptionShape::YesNo && argument->empty();
        if (isEmptyYesNo) prepared.emptyYesNo = argument[-1];
        opened = nullptr;
        if (!isValue && *argument == "--") {
            prepared.words.assign(argument + 1, arguments.end());
            break;
        }
        const bool isCut = !isValue && argument->ends_with('=');
        const std::string name = isCut ? argument->substr(0, argument->size() - 1) : *argument;
        const OptionRow* row = isValue ? nullptr : FindOption(parsed, name);
        if (isCut && row && row->shape == OptionShape::YesNo) prepared.emptyYesNo = name;
        if (isCut && row && TakesValue(*row)) {
            prepared.arguments.push_back(name);
            prepared.arguments.emplace_back();
            continue;
        }
        prepared.arguments.push_back(*argument);
        if (!isCut) opened = row;
    }
    return prepared;
}

/// What the library took for the value of a yes-or-no option may have been the next word: "--billable ID".
void TakeYesNo(CommandRequest& request, const OptionRow& row, QStringList values) {
    if (values.isEmpty() || values.last().isEmpty())
        values = {LoadText(Text::CliYes)};
    else if (!EnteredValues::ReadYesNo(values.last())) {
        request.arguments.AddWord(values.last());
        values = {LoadText(Text::CliYes)};
    }
    request.arguments.AddOption(row.name, values);
}

void TakeOption(CommandRequest& request, const OptionRow& row, const CLI::Option& option) {
    if (option.count() == 0) return;
    QStringList values;
    for (const std::string& result : option.results()) values.append(Unguarded(result));
    if (row.shape != OptionShape::Values && values.size() > 1 && row.shape != OptionShape::Flag)
        request.problem = FormatText<Text::CliGivenTwice>(QString::fromLatin1(row.name));
    else if (row.shape == OptionShape::Flag && !values.join(QString()).isEmpty())
        request.problem = FormatText<Text::CliTakesNoValue>(QString::fromLatin1(row.name));
    else if (row.shape == OptionShape::YesNo)
        TakeYesNo(request, row, values);
    else
        request.arguments.AddOption(row.name, values);
}

void TakeGlobals(CommandRequest& request) {
    request.home = request.arguments.Value("home").value_or(QString());
    request.isJson = request.arguments.Has("json");
    request.isYes = request.arguments.Has("yes");
    request.isQuiet = request.arguments.Has("quiet");
    request.wantsHelp = request.arguments.Has("help");
    request.wantsVersion = request.arguments.Has("version");
    if (request.arguments.Has("home") && request.home.isEmpty())
        request.problem = LoadText(Text::CliHomeEmpty);
}

void TakeCommand(CommandRequest& request, const Parsed& parsed) {
    const auto groups = parsed.app.get_subcommands();
    if (groups.empty()) return;
    const auto commands = groups.front()->get_subcommands();
    const std::string name = commands.empty() ? std::string() : commands.front()->get_name();
    for (const GroupRow& group : CommandGroups())
        if (groups.front()->get_name() == group.name) request.group = &group;
    for (const CommandRow& row : Commands())
        if (groups.front()->get_name() == row.group && name == row.name) request.command = &row;
}

/// The commands of a group, or all groups, for a line that names none.
QString Choices(const GroupRow* group) {
    QStringList names;
    if (!group)
        for (const GroupRow& row : CommandGroups()) names.append(QString::fromLatin1(row.name));
    else
        for (const CommandRow& row : Commands())
            if (std::string_view(row.group) == group->name) names.append(QString::fromLatin1(row.name));
    return names.join(u", "_s);
}

QString WordsProblem(const CommandRequest& request) {
    const CommandRow& row = *request.command;
    const QStringList& words = request.arguments.Words();
    const auto [least, most] = CountWords(row.words);
    if (words.size() < least) return FormatText<Text::CliWordsMissing>(QString::fromLatin1(row.words));
    if (words.size() > most) return FormatText<Text::CliUnexpected>(words[most]);
    return {};
}

QString Unexpected(const CommandRequest& request, const Parsed& parsed) {
    const auto remaining = parsed.app.remaining(true);
    const QString first = remaining.empty() ? QString() : Unguarded(remaining.front());
    if (!request.command && !first.startsWith(u'-'))
        return FormatText<Text::CliUnknownCommand>(first, Choices(request.group));
    return FormatText<Text::CliUnexpected>(first);
}

/// Runs the library; its word on what it doesn't like becomes ours.
void Parse(CommandRequest& request, Parsed& parsed, const std::vector<std::string>& arguments) {
    Prepared prepared = Prepare(arguments, parsed);
    if (!prepared.emptyYesNo.empty())
        request.problem = FormatText<Text::CliValueMissing>(TextOfUtf8(prepared.emptyYesNo));
    std::ranges::transform(prepared.arguments, prepared.arguments.begin(), Guarded);
    try {
        std::reverse(prepared.arguments.begin(), prepared.arguments.end());
        parsed.app.parse(std::move(prepared.arguments));
        for (const std::string& word : parsed.words) request.arguments.AddWord(Unguarded(word));
        for (const std::string& word : prepared.words) request.arguments.AddWord(TextOfUtf8(word));
    } catch (const CLI::ExtrasError&) {
        TakeCommand(request, parsed);
        request.problem = Unexpected(request, parsed);
        return;
    } catch (const CLI::ArgumentMismatch&) {
        // Every option takes one value, so only the last argument can lack its own.
        request.problem = FormatText<Text::CliValueMissing>(TextOfUtf8(arguments.back()));
    } catch (const CLI::Error& error) {
        request.problem = FormatText<Text::CliUnreadable>(QString::fromUtf8(error.what()));
    }
    TakeCommand(request, parsed);
}

}  // namespace

CommandRequest ReadCommandLine(const std::vector<std::string>& arguments) {
    CommandRequest request;
    Parsed parsed;
    parsed.app.set_help_flag();
    parsed.app.require_subcommand(0, 1);
    for (const OptionRow& option : GlobalOptions()) AddOption(parsed, parsed.app, option);
    for (const GroupRow& group : CommandGroups()) AddGroup(parsed, group, arguments);
    Parse(request, parsed, arguments);
    if (!request.problem.isEmpty()) return request;

    for (const auto& [row, option] : parsed.options) TakeOption(request, *row, *option);
    TakeGlobals(request);
    if (!request.problem.isEmpty() || request.wantsHelp || request.wantsVersion) return request;
    if (!request.command)
        request.problem = FormatText<Text::CliNoCommand>(Choices(request.group));
    else
        request.problem = WordsProblem(request);
    return request;
}
