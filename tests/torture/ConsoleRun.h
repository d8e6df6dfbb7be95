#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class CClock;

/// How a command of the console ended and what it said.
struct ConsoleRun {
    int exit = -1;
    QByteArray out;
    QByteArray err;
};

/// Runs a command of the console in this process, with --yes and --json, so that its calls to the system can
/// be made to fail. The language library is loaded.
[[nodiscard]] ConsoleRun RunConsole(const QString& home, const QStringList& arguments, const CClock& clock);
