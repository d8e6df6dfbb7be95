#include "platform/host/CLauncher.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <QObject>
#include <QProcess>
#include <QStandardPaths>

namespace {

constexpr int kLowestPriority = 19;
// The C library has no header for disk priorities: whose it is, and the class "when nobody else wants it".
constexpr int kOfProcess = 1;
constexpr int kIdleDisk = 3 << 13;

/// Runs in the child before its program starts.
void StepBack() {
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kLowestPriority));
    static_cast<void>(::syscall(SYS_ioprio_set, kOfProcess, 0, kIdleDisk));
}

}  // namespace

CProcessLauncher::CProcessLauncher() = default;

CProcessLauncher::~CProcessLauncher() {
    for (const auto& process : m_processes) {
        process->disconnect();
        process->kill();
        process->waitForFinished();
    }
}

void CProcessLauncher::RunInBackground(const QString& program, const QStringList& arguments,
                                       const Heard& heard) {
    QProcess& process = *m_processes.emplace_back(std::make_unique<QProcess>());
    process.setChildProcessModifier(StepBack);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&process, &QProcess::finished, &process,
                     [&process, heard](int, QProcess::ExitStatus status) {
                         if (status == QProcess::NormalExit) heard(process.readAllStandardOutput());
                     });
    process.start(program, arguments);
}

bool CProcessLauncher::IsThere(const QString& program) const {
    return !QStandardPaths::findExecutable(program).isEmpty();
}

bool CProcessLauncher::Start(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}
