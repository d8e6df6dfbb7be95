#include "cli/commands/CCommandLine.h"
#include "cli/commands/CommandTable.h"
#include "cli/commands/Dispatch.h"
#include "cli/commands/HelpText.h"
#include "cli/output/CConsolePrompt.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"
#include "platform/host/CClock.h"
#include "platform/host/CInstallLocation.h"

#include <fcntl.h>
#include <QStringDecoder>
#include <csignal>
#include <new>
#include <string>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char* kVersion = "velmarch-cli 8.03.0105\n";

/// A caller may have closed the standard descriptors; then the store would be opened as one of them and be
/// written to as output. What can't be written to stands in their place.
void HoldStandardDescriptors() {
    for (int descriptor = 0; descriptor <= 2; ++descriptor)
        if (::fcntl(descriptor, F_GETFD) == -1 && ::open("/dev/null", O_RDONLY) == -1) return;
}

/// What isn't UTF-8 would be stored as something else than was typed.
bool IsReadable(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = decoder(QByteArrayView(argument.data(), qsizetype(argument.size())));
        if (decoder.hasError()) return false;
    }
    return true;
}

/// "time add ": where the help that is needed stands.
QString PlaceOf(const CommandRequest& request) {
    QString place;
    if (request.group) place += QString::fromLatin1(request.group->name) + u' ';
    if (request.command && *request.command->name) place += QString::fromLatin1(request.command->name) + u' ';
    return place;
}

ExitCode AnswerTo(const CommandRequest& request, Console& console, CConsolePrompt& prompt) {
    console.out.isJson = request.isJson;
    console.out.isQuiet = request.isQuiet;
    if (request.isYes) prompt.SayYesToAll();
    if (!request.problem.isEmpty()) {
        console.out.Complain(request.problem + u'\n' + FormatText<Text::CliSeeHelp>(PlaceOf(request)));
        return ExitCode::Usage;
    }
    if (request.wantsVersion)
        console.out.Put(kVersion);
    else if (request.wantsHelp)
        WriteHelp(console.out, request.group, request.command);
    else
        return RunCommandOf(request, console);
    return ExitCode::Done;
}

/// The one place where memory that can't be had is met: what was begun has been undone on the way here.
ExitCode AnswerWithMemory(const std::vector<std::string>& arguments, Console& console,
                          CConsolePrompt& prompt) {
    try {
        return AnswerTo(ReadCommandLine(arguments), console, prompt);
    } catch (const std::bad_alloc&) {
        console.out.Complain(LoadText(Text::CliOutOfMemory));
        return ExitCode::Failed;
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    HoldStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is a failed write, which is told
    // Without it no text exists to report with.
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) return static_cast<int>(ExitCode::Failed);

    COutput out;
    CConsolePrompt prompt(out);
    const CSystemClock clock;
    Console console{out, prompt, clock};
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    ExitCode exit = ExitCode::Usage;
    if (IsReadable(arguments))
        exit = AnswerWithMemory(arguments, console, prompt);
    else
        out.Complain(LoadText(Text::CliNotUtf8));
    if (!out.Finish() && exit == ExitCode::Done) exit = ExitCode::Failed;
    return static_cast<int>(exit);
}
