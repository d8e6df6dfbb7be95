#include "cli/commands/ImportSteps.h"

#include "app/CPulldownCatalogue.h"
#include "changes/CRecordChanges.h"
#include "cli/commands/ListSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/RecordOutput.h"
#include "config/CCfgStore.h"
#include "exchange/import/ImportPreview.h"
#include "fields/FieldRow.h"
#include "lang/FormatText.h"
#include "platform/settings/CSettingsTree.h"

namespace {

void WriteInteger(CJsonText& json, const char* key, int number) {
    json.Key(key);
    json.Integer(number);
}

void WriteRefused(CJsonText& json, const std::vector<RefusedLine>& refused) {
    json.Key("refused");
    json.BeginArray();
    for (const RefusedLine& line : refused) {
        json.NewLine();
        json.BeginObject();
        WriteInteger(json, "number", line.number);
        json.Key("line");
        json.Text(line.line);
        WriteInteger(json, "code", static_cast<int>(line.code));
        json.Key("text");
        json.Text(TextOf(line.code));
        json.EndObject();
    }
    json.EndArray();
}

/// Only where there is something to say.
void WriteMisread(CJsonText& json, const ImportPlan& plan) {
    if (plan.misreadCount == 0) return;
    WriteInteger(json, "misreadCount", plan.misreadCount);
    json.Key("misread");
    json.BeginArray();
    for (const MisreadLine& line : plan.misread) {
        json.NewLine();
        json.BeginObject();
        WriteInteger(json, "number", line.number);
        json.Key("field");
        json.Text(QString::fromLatin1(line.value.field->name));
        json.Key("text");
        json.Text(line.value.text);
        json.Key("read");
        json.TextOrNull(line.value.read);
        json.EndObject();
    }
    json.EndArray();
}

/// The new identities, or the first of the records that would be stored.
void WriteRecords(CJsonText& json, const ImportAccount& account) {
    json.Key(account.isDryRun ? "records" : "ids");
    json.BeginArray();
    for (const auto& record : account.plan.samples) {
        if (!account.isDryRun) break;
        json.NewLine();
        WriteRecordJson(json, {.record = *record, .isStored = false});
    }
    for (qsizetype place = 0; !account.isDryRun && place < account.ids.Count(); ++place)
        json.Text(account.ids.At(place));
    json.EndArray();
}

void WriteJson(COutput& out, const ImportAccount& account) {
    CJsonText json(out);
    json.BeginObject();
    WriteInteger(json, "added", account.added);
    WriteRefused(json, account.plan.refused);
    WriteMisread(json, account.plan);
    WriteInteger(json, "listItems", account.listItems);
    WriteInteger(json, "duplicates", account.plan.duplicates);
    json.Key("encoding");
    json.Text(QString::fromLatin1(account.encoding));
    WriteRecords(json, account);
    json.EndObject();
    out.Put("\n");
}

void PutRefused(COutput& out, const std::vector<RefusedLine>& refused) {
    for (const RefusedLine& line : refused)
        out.PutLine(FormatText<Text::CliRefusedLine>(line.number, line.line, TextOf(line.code)));
    if (!refused.empty()) out.PutLine(FormatText<Text::CliRefusedLines>(static_cast<int>(refused.size())));
}

void PutMisread(COutput& out, const ImportPlan& plan) {
    for (const MisreadLine& line : plan.misread)
        out.PutLine(MisreadWords(line, QString::fromLatin1(line.value.field->name)));
    if (plan.misreadCount > 0) out.PutLine(FormatText<Text::CliImportNotes>(plan.misreadCount));
}

}  // namespace

void PrintAccount(COutput& out, const ImportAccount& account) {
    if (out.isJson) return WriteJson(out, account);
    PutRefused(out, account.plan.refused);
    PutMisread(out, account.plan);
    if (account.plan.duplicates > 0) out.PutLine(FormatText<Text::CliDuplicates>(account.plan.duplicates));
    out.PutLine(account.isDryRun ? FormatText<Text::CliWouldImport>(account.added, account.listItems)
                                 : FormatText<Text::CliImported>(account.added, account.listItems));
}

void PrintItemAccount(COutput& out, const ItemPlan& plan, int added, bool isDryRun) {
    if (!out.isJson) {
        PutRefused(out, plan.refused);
        if (plan.skipped > 0) out.PutLine(FormatText<Text::CliSkippedLines>(plan.skipped));
        return out.PutLine(isDryRun ? FormatText<Text::CliWouldImportItems>(added)
                                    : FormatText<Text::CliImportedItems>(added));
    }
    CJsonText json(out);
    json.BeginObject();
    WriteInteger(json, "added", added);
    WriteRefused(json, plan.refused);
    WriteInteger(json, "skipped", plan.skipped);
    json.EndObject();
    out.Put("\n");
}

ExitCode StoreItems(const ItemPlan& plan, int& added, Console& console, RecordContext& context) {
    if (!context.changes.AddItems(plan.texts, added)) return ExitCode::Failed;
    if (added == 0) return ExitCode::Done;
    context.catalogue.FillLabels();
    if (!context.window.IsThere() && !context.owner.NameColumns(context.catalogue.Labels()))
        console.out.Note(FormatText<Text::CliLabelsNotInColumns>(context.owner.Stored().Tree().Error()));
    AnnounceLists(console, context);
    return ExitCode::Done;
}

ExitCode RefuseUndecodable(int line, const CTextFile& file, Console& console) {
    return Refuse(ExitCode::Failed,
                  FormatText<Text::LineUndecodable>(line, QString::fromLatin1(file.Encoding())), console);
}
