#include "cli/commands/RecordSteps.h"
#include "cli/home/CTimerAccess.h"

#include "app/CVelmarchDoc.h"
#include "app/RecordMode.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/arguments/FilterArguments.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/RecordOutput.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/KindNames.h"

ExitCode Refuse(ExitCode exit, const QString& words, Console& console) {
    console.out.Complain(words);
    return exit;
}

ExitCode RefuseStored(const FilterProblem& problem, Console& console, const CSettingsOwner& owner) {
    if (problem.exit == ExitCode::NotFound && !owner.AreRead())
        return Refuse(ExitCode::Failed, LoadText(Text::CliSettingsNotOpened), console);
    return Refuse(problem.exit, problem.words, console);
}

const CVORec* FindRecord(RecordKind kind, const QString& typed, Console& console, RecordContext& context) {
    const auto id = EnteredValues::ReadIdentity(typed);
    const CVORec* record = id ? context.document.FetchRecord(kind, *id) : nullptr;
    // A store that can't be read has said so by itself.
    if (!record && context.document.Store().m_lastError == 0)
        console.out.Complain(kind == RecordKind::Time ? FormatText<Text::CliNoSuchRecord>(typed)
                                                      : FormatText<Text::CliNoSuchExpense>(typed));
    return record;
}

std::optional<QStringList> FindRecords(RecordKind kind, const QStringList& typed, Console& console,
                                       RecordContext& context) {
    QStringList ids;
    for (const QString& text : typed) {
        const CVORec* record = FindRecord(kind, text, console, context);
        if (!record) return std::nullopt;
        ids.append(record->GetId());
    }
    ids.removeDuplicates();
    return ids;
}

ExitCode LookupFailed(const RecordContext& context) {
    return context.document.Store().m_lastError == 0 ? ExitCode::NotFound : ExitCode::Failed;
}

void Announce(RecordKind kind, const QStringList& ids, Console& console, RecordContext& context,
              bool listsToo) {
    if (!context.window.TellChanged(kind, ids, listsToo)) console.out.Note(LoadText(Text::CliWindowNotTold));
}

ExitCode CheckTimers(RecordKind kind, const QStringList& ids, Console& console, RecordContext& context) {
    if (kind != RecordKind::Time || context.timers.Timed(ids).isEmpty()) return ExitCode::Done;
    if (context.window.IsThere())
        return context.window.Reach()
                   ? ExitCode::Done
                   : Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsTimers), console);
    return context.timers.AreKnown() ? ExitCode::Done
                                     : Refuse(ExitCode::Failed, LoadText(Text::CliTimersUnread), console);
}

void PrintRecord(RecordKind kind, const QString& id, Console& console, RecordContext& context, ChangedBy by) {
    const CVORec* held = by == ChangedBy::ThisProgram ? context.document.FindRecord(id) : nullptr;
    const std::unique_ptr<CVORec> known = held ? held->Clone() : nullptr;
    const CVORec* record = context.document.FetchRecord(kind, id);
    if (!record) record = known.get();
    if (record) WriteRecord(console.out, {*record, context.timers.Shown(id)});
}

bool Confirm(Text question, Text title, Text verb, Console& console) {
    return Confirm(question, LoadText(question), title, verb, console);
}

bool Confirm(Text question, const QString& text, Text title, Text verb, Console& console) {
    MessageBox box;
    box.textId = static_cast<int>(question);
    box.title = LoadText(title);
    box.text = text;
    box.icon = BoxIcon::Warning;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(verb);
    return console.prompt.Ask(box) == Answer::Yes;
}

ExitCode ExitOf(const InstanceReply& reply, Console& console) {
    return reply ? ExitCode::Done : Refuse(ExitFor(reply.reason), reply.words, console);
}

ExitCode ChangeSettings(const SettingsRequest& request, Console& console, CSettingsOwner& owner) {
    return ExitOf(owner.Change(request), console);
}

std::optional<RecordMode> ReadMode(const QString& typed, Console& console) {
    if (const auto kind = KindNamed(typed)) return ModeOf(*kind);
    console.out.Complain(FormatText<Text::CliNoMode>(typed));
    return std::nullopt;
}

std::optional<RecordMode> ReadModeOption(const CArguments& arguments, Console& console) {
    const auto typed = arguments.Value("mode");
    return typed ? ReadMode(*typed, console) : RecordMode::Time;
}

QString CheckName(const QString& name) {
    constexpr int kLongestName = 255;
    if (name.isEmpty()) return LoadText(Text::CliEmptyName);
    if (name.size() > kLongestName) return FormatText<Text::CliNameTooLong>(kLongestName);
    return {};
}

void PrintDone(COutput& out, const char* key, qsizetype count) {
    if (!out.isJson) return;
    CJsonText json(out);
    json.BeginObject();
    json.Key(key);
    json.Integer(count);
    json.EndObject();
    out.Put("\n");
}

void PrintCount(COutput& out, const char* key, Text sentence, qsizetype count) {
    if (out.isJson) return PrintDone(out, key, count);
    out.PutLine(QString::asprintf(LoadText(sentence).toUtf8().constData(), int(count)));
}

void PrintTexts(COutput& out, const QStringList& texts) {
    if (!out.isJson) {
        for (const QString& text : texts) out.PutLine(text);
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const QString& text : texts) json.Text(text);
    json.EndArray();
    out.Put("\n");
}
