#include "cli/commands/BackupCommands.h"

#include "app/CVelmarchDoc.h"
#include "app/HomeFiles.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CRecordHome.h"
#include "cli/output/CConsoleProgress.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "exchange/backup/BackupTexts.h"
#include "exchange/backup/CRestore.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/LastBackup.h"
#include "exchange/backup/MakeBackup.h"
#include "lang/FormatText.h"
#include "platform/host/CWaitBudget.h"

#include <QDir>
#include <QFileInfo>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Absolute, without dots; a slash at the end stays, as such a path names no file.
QString FullPath(const QString& typed) {
    const QString full = QDir::current().absoluteFilePath(typed);
    return full.endsWith(u'/') ? full : QDir::cleanPath(full);
}

/// A home that is there already; nothing, after telling so, when it isn't: a backup makes none.
std::optional<QString> ExistingHome(Console& console, const QString& homeOption, ExitCode& exit) {
    const QString named = homeOption.isEmpty() ? qEnvironmentVariable("VELMARCH_HOME") : homeOption;
    exit = ExitCode::NotFound;
    if (!named.isEmpty() && !QFileInfo(named).isDir()) {
        console.out.Complain(FormatText<Text::BackupNoStore>(named));
        return std::nullopt;
    }
    exit = ExitCode::Failed;
    COpenHome home(console);
    return home.App().ResolveHome(homeOption) ? std::optional(home.App().Home()) : std::nullopt;
}

QString TimeText(const SYSTEMTIME& time) {
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
                             time.wMinute, time.wSecond);
}

/// What a backup holds, in a JSON object that stays open.
void BeginJson(CJsonText& json, const QString& path, const BackupContent& content) {
    json.BeginObject();
    json.Key("file");
    json.Text(path);
    json.Key("records");
    json.Integer(content.Total());
    json.Key("counts");
    json.BeginObject();
    constexpr const char* kNames[] = {"time", "expense", "items", "dependencies"};
    for (std::size_t table = 0; table < content.counts.size(); ++table) {
        json.Key(kNames[table]);
        json.Integer(content.counts[table]);
    }
    json.EndObject();
    json.Key("time");
    json.Text(TimeText(content.time));
}

template <Text Line>
void WriteContent(COutput& out, const QString& path, const BackupContent& content) {
    if (!out.isJson)
        return out.PutLine(FormatText<Line>(path, BackupDateText(content.time), BackupCountsText(content)));
    CJsonText json(out);
    BeginJson(json, path, content);
    json.EndObject();
    out.Put("\n");
}

void WriteRestored(COutput& out, const QString& path, const BackupContent& content,
                   const RestoreOutcome& outcome) {
    if (!out.isJson) {
        out.PutLine(
            FormatText<Text::CliRestored>(path, BackupDateText(content.time), BackupCountsText(content)));
        if (!outcome.safetyCopy.isEmpty()) out.PutLine(FormatText<Text::CliSafetyCopy>(outcome.safetyCopy));
        return;
    }
    CJsonText json(out);
    BeginJson(json, path, content);
    json.Key("safetyCopy");
    json.TextOrNull(outcome.safetyCopy);
    json.EndObject();
    out.Put("\n");
}

/// The records are replaced; whatever depends on those that are gone follows.
void TellOthers(const RestoreOutcome& outcome, Console& console, RecordContext& context) {
    if (outcome.isUnconfirmed) console.out.Note(LoadText(Text::BackupUnconfirmed));
    const auto dropped = context.timers.DropGone();
    if (dropped && *dropped > 0) console.out.Note(FormatText<Text::RestoreTimersDropped>(*dropped));
    if (!dropped) console.out.Note(context.timers.WhyNotStored());
    if (!context.window.TellReplaced()) console.out.Note(LoadText(Text::CliWindowNotTold));
}

}  // namespace

ExitCode BackUp(const CArguments& arguments, Console& console, const QString& homeOption) {
    ExitCode exit = ExitCode::Failed;
    const auto home = ExistingHome(console, homeOption, exit);
    if (!home) return exit;
    const QString path = FullPath(arguments.Words().first());
    if (IsFileOfHome(*home, path))
        return Refuse(ExitCode::Usage, FormatText<Text::BackupOwnFile>(path), console);
    if (QFileInfo(StorePath(*home)).size() == 0)
        return Refuse(ExitCode::NotFound, FormatText<Text::BackupNoStore>(*home), console);
    CSecondSource source(*home, console.prompt);
    if (!source.Open())
        return Refuse(ExitCode::Failed, FormatText<Text::BackupSettingUp>(source.Manager().m_error), console);
    CConsoleProgress progress(console.out);
    const BackupOutcome outcome = MakeBackup({source, console.prompt, console.clock, progress}, path);
    if (!outcome) return Refuse(ExitCode::Failed, outcome.error, console);
    NoteLastBackup(*home, {outcome.content.time, path});
    WriteContent<Text::CliBackupWritten>(console.out, path, outcome.content);
    return ExitCode::Done;
}

ExitCode VerifyBackup(const CArguments& arguments, Console& console) {
    const QString path = FullPath(arguments.Words().first());
    if (!QFileInfo::exists(path))
        return Refuse(ExitCode::NotFound, FormatText<Text::BackupNoFile>(path), console);
    CConsoleProgress progress(console.out);
    CRestore reader({.prompt = console.prompt, .clock = console.clock, .progress = progress});
    const BackupOutcome outcome = reader.Verify(path);
    if (!outcome) return Refuse(ExitCode::Failed, outcome.error, console);
    WriteContent<Text::CliBackupSound>(console.out, path, outcome.content);
    return ExitCode::Done;
}

/// No home is made or opened before the file is known to be good and the user has agreed.
ExitCode RestoreBackup(const CArguments& arguments, Console& console, const QString& homeOption) {
    const QString path = FullPath(arguments.Words().first());
    if (!QFileInfo::exists(path))
        return Refuse(ExitCode::NotFound, FormatText<Text::BackupNoFile>(path), console);
    CConsoleProgress progress(console.out);
    CRestore restore({.prompt = console.prompt, .clock = console.clock, .progress = progress});
    const BackupOutcome verified = restore.Verify(path);
    if (!verified) return Refuse(ExitCode::Failed, RestoreRefusal(path, verified.error), console);
    if (!restore.IsConfirmed()) return ExitCode::Failed;

    CWaitBudget budget;
    CRecordHome home(console, theWaitBudget ? *theWaitBudget : budget);
    if (!home.Open(homeOption)) return ExitCode::Failed;
    RecordContext& context = home.Context();
    if (const InstanceReply reply = context.window.AskForRefresh(); !reply)
        return Refuse(ExitCode::Refused, reply.words, console);
    const RestoreOutcome outcome =
        restore.Run(home.Path(), context.document.Store().Manager().Journal(), context.timers.AllImages());
    if (!outcome) return Refuse(ExitCode::Failed, RestoreFailure(path, outcome.error), console);
    TellOthers(outcome, console, context);
    WriteRestored(console.out, path, verified.content, outcome);
    return ExitCode::Done;
}
