#include "cli/commands/HelpText.h"

#include "cli/commands/CommandTable.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"

#include <QString>
#include <string_view>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype kLeftWidth = 26;

void WriteEntry(COutput& out, const QString& left, const QString& right) {
    out.PutLine(left.size() < kLeftWidth ? u"  "_s + left.leftJustified(kLeftWidth) + right
                                         : u"  "_s + left + u"  "_s + right);
}

QString OptionText(const OptionRow& option) {
    QString text = u"--"_s + QString::fromLatin1(option.name);
    if (option.shape == OptionShape::YesNo) return text + u" [yes|no]"_s;
    if (option.shape != OptionShape::Flag) text += u' ' + QString::fromLatin1(option.value);
    return text;
}

QString CommandText(const CommandRow& row) {
    QString text = QString::fromLatin1(row.group);
    if (*row.name) text += u' ' + QString::fromLatin1(row.name);
    if (*row.words) text += u' ' + QString::fromLatin1(row.words);
    return text;
}

void WriteOptions(COutput& out, const QString& heading, std::span<const OptionRow> options) {
    if (options.empty()) return;
    out.Put("\n");
    out.PutLine(heading);
    for (const OptionRow& option : options) WriteEntry(out, OptionText(option), LoadText(option.description));
}

void WriteCommandHelp(COutput& out, const CommandRow& row) {
    std::vector<OptionRow> options;
    for (const auto some : row.options) options.insert(options.end(), some.begin(), some.end());
    out.PutLine(
        FormatText<Text::CliUsage>(CommandText(row) + (options.empty() ? QString() : u" [OPTIONS]"_s)));
    out.PutLine(LoadText(row.description));
    WriteOptions(out, LoadText(Text::CliOptions), options);
}

void WriteGroupHelp(COutput& out, const GroupRow& group) {
    out.PutLine(FormatText<Text::CliUsage>(QString::fromLatin1(group.name) + u" COMMAND"_s));
    out.PutLine(LoadText(group.description));
    out.Put("\n");
    out.PutLine(LoadText(Text::CliCommands));
    for (const CommandRow& row : Commands())
        if (std::string_view(row.group) == group.name)
            WriteEntry(out, CommandText(row), LoadText(row.description));
}

void WriteProgramHelp(COutput& out) {
    out.PutLine(FormatText<Text::CliUsage>(u"GROUP COMMAND"_s));
    out.PutLine(LoadText(Text::CliProgram));
    out.Put("\n");
    out.PutLine(LoadText(Text::CliCommands));
    for (const CommandRow& row : Commands()) WriteEntry(out, CommandText(row), LoadText(row.description));
}

}  // namespace

void WriteHelp(COutput& out, const GroupRow* group, const CommandRow* command) {
    if (command)
        WriteCommandHelp(out, *command);
    else if (group)
        WriteGroupHelp(out, *group);
    else
        WriteProgramHelp(out);
    WriteOptions(out, LoadText(Text::CliGlobalOptions), GlobalOptions());
}
