#include "cli/RecordSteps.h"

#include "app/CVelmarchDoc.h"
#include "cli/COutput.h"
#include "cli/CWindowLink.h"
#include "cli/EnteredValues.h"
#include "cli/RecordDesk.h"
#include "cli/RecordOutput.h"
#include "lang/FormatText.h"
#include "platform/CPrompt.h"

ExitCode Refuse(ExitCode exit, const QString& words, Console& console) {
    console.out.Complain(words);
    return exit;
}

const CVORec* FindRecord(RecordKind kind, const QString& typed, Console& console, RecordDesk& desk) {
    const auto id = EnteredValues::ReadIdentity(typed);
    const CVORec* record = id ? desk.document.FetchRecord(kind, *id) : nullptr;
    // A store that can't be read has said so by itself.
    if (!record && desk.document.Store().m_lastError == 0)
        console.out.Complain(kind == RecordKind::Time ? FormatText<Text::CliNoSuchRecord>(typed)
                                                      : FormatText<Text::CliNoSuchExpense>(typed));
    return record;
}

std::optional<QStringList> FindRecords(RecordKind kind, const QStringList& typed, Console& console,
                                       RecordDesk& desk) {
    QStringList ids;
    for (const QString& text : typed) {
        const CVORec* record = FindRecord(kind, text, console, desk);
        if (!record) return std::nullopt;
        ids.append(record->GetId());
    }
    ids.removeDuplicates();
    return ids;
}

ExitCode LookupFailed(const RecordDesk& desk) {
    return desk.document.Store().m_lastError == 0 ? ExitCode::NotFound : ExitCode::Failed;
}

void Announce(RecordKind kind, const QStringList& ids, Console& console, RecordDesk& desk) {
    if (!desk.window.TellChanged(kind, ids)) console.out.Note(LoadText(Text::CliWindowNotTold));
}

void PrintRecord(RecordKind kind, const QString& id, Console& console, RecordDesk& desk) {
    const CVORec* record = desk.document.FetchRecord(kind, id);
    if (record) WriteRecord(console.out, {*record, desk.timers.Shown(id)});
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
