#include "cli/home/ConsoleHome.h"

#include <sqlite3.h>

#include <QEventLoop>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPatienceMs = 60000;
const QString kProgram = QStringLiteral(TEST_BIN_DIR "/velmarch-cli");

Reply RunProgram(const QString& program, const QStringList& arguments, const QStringList& environment) {
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : environment)
        variables.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    process.setProcessEnvironment(variables);
    process.setStandardInputFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatienceMs, &loop, &QEventLoop::quit);
    process.start(program, arguments);
    loop.exec();
    const bool isDone = process.state() == QProcess::NotRunning &&
                        process.exitStatus() == QProcess::NormalExit &&
                        process.error() == QProcess::UnknownError;
    return {isDone ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

}  // namespace

Reply ConsoleHome::Run(const QStringList& arguments) const {
    return RunBare(QStringList{u"--home"_s, Path()} + arguments);
}

Reply ConsoleHome::RunBare(const QStringList& arguments, const QStringList& environment) {
    return RunProgram(kProgram, arguments, environment);
}

Reply ConsoleHome::RunShell(const QString& line) const {
    const QString cli = u"cli='%1 --home %2'; "_s.arg(kProgram, Path());
    return RunProgram(u"/bin/bash"_s, {u"-c"_s, cli + line}, {});
}

bool ConsoleHome::Execute(const QString& file, const QByteArray& sql) const {
    sqlite3* db = nullptr;
    const bool isDone = sqlite3_open(File(file).toUtf8().constData(), &db) == SQLITE_OK &&
                        sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return isDone;
}

QString ConsoleHome::Add(const QStringList& fields, const QString& group) const {
    return RunJson(QStringList{group, u"add"_s} + fields).Object()[u"id"].toString();
}

QJsonObject ConsoleHome::Show(const QString& id, const QString& group) const {
    return RunJson({group, u"show"_s, id}).Object();
}

QJsonObject Only(const QJsonObject& object, const QStringList& names) {
    QJsonObject some;
    for (const QString& name : names) some.insert(name, object[name]);
    return some;
}

QJsonObject FromText(const QString& text) {
    return QJsonDocument::fromJson(QString(text).replace(u'\'', u'"').toUtf8()).object();
}

QStringList Words(const QString& line) {
    return line.split(u' ', Qt::SkipEmptyParts);
}
