#include "cli/arguments/FieldParts.h"

using namespace Qt::Literals::StringLiterals;

namespace FieldParts {

FieldProblem CheckCleared(const CArguments& arguments, const QStringList& clearable) {
    for (const QString& name : arguments.Values("clear")) {
        if (!clearable.contains(name))
            return {ExitCode::Usage, FormatText<Text::CliCantClear>(name, clearable.join(u", "_s))};
        if (arguments.Has(name.toStdString()))
            return {ExitCode::Usage, FormatText<Text::CliSetAndCleared>(name)};
    }
    return {};
}

FieldProblem Refused(const OptionRow& option, const FieldProblem& problem) {
    if (problem.exit != ExitCode::Usage) return problem;
    return {problem.exit,
            FormatText<Text::CliOptionRefused>(QString::fromLatin1(option.name), problem.words)};
}

QString CheckLength(const QString& text, int longest) {
    return text.size() > longest ? FormatText<Text::CliTooLong>(static_cast<int>(text.size()), longest)
                                 : QString();
}

bool IsYes(const Entered& entered) {
    return EnteredValues::ReadYesNo(entered.value_or(QString())).value_or(false);
}

QStringList NotesOf(const DraftFindings& findings) {
    QStringList notes;
    for (const DraftFinding& finding : findings)
        if (finding.isQuestion) notes.append(finding.mark);
    return notes;
}

}  // namespace FieldParts
