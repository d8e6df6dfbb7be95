#include "torture/ConsoleRun.h"

#include "cli/commands/CCommandLine.h"
#include "cli/commands/Dispatch.h"
#include "cli/output/CConsolePrompt.h"
#include "cli/output/COutput.h"
#include "cli/output/Console.h"

#include <sys/mman.h>
#include <unistd.h>
#include <string>
#include <vector>

namespace {

/// A file in memory that a descriptor writes to.
class Captured {
 public:
    Captured() : m_handle(::memfd_create("output", MFD_CLOEXEC)) {}
    ~Captured() { ::close(m_handle); }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    [[nodiscard]] int Handle() const { return m_handle; }
    [[nodiscard]] QByteArray Text() const {
        QByteArray text(::lseek(m_handle, 0, SEEK_END), '\0');
        const ssize_t count = ::pread(m_handle, text.data(), static_cast<std::size_t>(text.size()), 0);
        return count == text.size() ? text : QByteArray();
    }

 private:
    int m_handle;
};

}  // namespace

ConsoleRun RunConsole(const QString& home, const QStringList& arguments, const CClock& clock) {
    const Captured results, notes;
    COutput out(results.Handle(), notes.Handle());
    out.isJson = true;
    CConsolePrompt prompt(out);
    prompt.SayYesToAll();
    Console console{out, prompt, clock};
    std::vector<std::string> words{"--home", home.toStdString()};
    for (const QString& argument : arguments) words.push_back(argument.toStdString());
    const CommandRequest request = ReadCommandLine(words);
    if (!request.problem.isEmpty() || !request.command) return {2, {}, request.problem.toUtf8()};
    ExitCode exit = RunCommandOf(request, console);
    if (!out.Finish() && exit == ExitCode::Done) exit = ExitCode::Failed;
    return {static_cast<int>(exit), results.Text(), notes.Text()};
}
