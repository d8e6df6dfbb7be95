#include "cli/RecordSteps.h"

#include "app/CVelmarchDoc.h"
#include "cli/COutput.h"
#include "cli/CWindowLink.h"
#include "cli/EnteredValues.h"
#include "cli/RecordDesk.h"
#include "cli/TimeOutput.h"
#include "lang/FormatText.h"
#include "platform/CPrompt.h"

ExitCode Refuse(ExitCode exit, const QString& words, Console& console) {
    console.out.Complain(words);
    return exit;
}

CTRecord* FindTimeRecord(const QString& typed, Console& console, RecordDesk& desk) {
    const auto id = EnteredValues::ReadIdentity(typed);
    CVORec* record = id ? desk.document.FetchRecord(RecordKind::Time, *id) : nullptr;
    // A store that can't be read has said so by itself.
    if (!record && desk.document.Store().m_lastError == 0)
        console.out.Complain(FormatText<Text::CliNoSuchRecord>(typed));
    return static_cast<CTRecord*>(record);
}

std::optional<QStringList> FindTimeRecords(const QStringList& typed, Console& console, RecordDesk& desk) {
    QStringList ids;
    for (const QString& text : typed) {
        const CTRecord* record = FindTimeRecord(text, console, desk);
        if (!record) return std::nullopt;
        ids.append(record->GetId());
    }
    ids.removeDuplicates();
    return ids;
}

ExitCode LookupFailed(const RecordDesk& desk) {
    return desk.document.Store().m_lastError == 0 ? ExitCode::NotFound : ExitCode::Failed;
}

void Announce(const QStringList& ids, Console& console, RecordDesk& desk) {
    if (!desk.window.TellChanged(ids)) console.out.Note(LoadText(Text::CliWindowNotTold));
}

void PrintTimeRecord(const QString& id, Console& console, RecordDesk& desk) {
    const auto* record = static_cast<CTRecord*>(desk.document.FetchRecord(RecordKind::Time, id));
    if (record) WriteTime(console.out, {*record, desk.timers.Shown(id)});
}

bool Confirm(Text question, Text title, Text verb, Console& console) {
    MessageBox box;
    box.textId = static_cast<int>(question);
    box.title = LoadText(title);
    box.text = LoadText(question);
    box.icon = BoxIcon::Warning;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(verb);
    return console.prompt.Ask(box) == Answer::Yes;
}
