#include "cli/output/ReportOutput.h"

#include "app/CFieldCatalogue.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/CaptionedLines.h"
#include "cli/output/ReportNames.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"
#include "reports/definition/CReportStore.h"
#include "reports/definition/ReportFields.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// --- JSON

void WriteFields(CJsonText& json, const char* name, const QList<FieldId>& fields) {
    json.Key(name);
    json.BeginArray();
    for (const FieldId field : fields) json.Integer(NumberOf(field));
    json.EndArray();
}

void WriteSort(CJsonText& json, const QList<SortKey>& keys) {
    json.Key("sort");
    json.BeginArray();
    for (const SortKey& key : keys) {
        json.BeginObject();
        json.Key("id");
        json.Integer(NumberOf(key.fieldId));
        json.Key("direction");
        json.Integer(key.direction);
        json.EndObject();
    }
    json.EndArray();
}

QList<FieldId> FieldsOf(const QList<SortKey>& keys) {
    QList<FieldId> fields;
    for (const SortKey& key : keys) fields.append(key.fieldId);
    return fields;
}

struct TextMember {
    const char* name;
    QString CReportDef::*text;
};
constexpr TextMember kTexts[] = {
    {"title", &CReportDef::title},
    {"header", &CReportDef::header},
    {"footer", &CReportDef::footer},
};

void WriteHead(CJsonText& json, const ShownReport& shown) {
    json.Key("mode");
    json.Text(KindName(KindOf(shown.mode)));
    json.Key("kind");
    json.Text(NameOf(shown.kind));
    json.Key("name");
    json.Text(shown.report.name);
    json.Key("reserved");
    json.Flag(CReportStore::IsReserved(shown.report.name));
    json.Key("type");
    json.Text(NameOf(shown.report.kind));
}

// --- Lines

QString Titles(const QList<FieldId>& fields, const CFieldCatalogue& catalogue) {
    QStringList titles;
    for (const FieldId field : fields) titles.append(catalogue.GetFieldTitle(NumberOf(field)));
    return titles.join(u", "_s);
}

QString OrderWords(const QList<SortKey>& keys, const CFieldCatalogue& catalogue) {
    QStringList words;
    for (const SortKey& key : keys) {
        const QString title = catalogue.GetFieldTitle(NumberOf(key.fieldId));
        words.append(key.direction == -1 ? FormatText<Text::CliFieldDescending>(title) : title);
    }
    return words.join(u"; "_s);
}

QString RecordWords(const CReportDef& report) {
    if (report.selection == ReportSelection::Selected) return LoadText(Text::CliRecordsSelected);
    if (report.selection == ReportSelection::Listed) return LoadText(Text::CliRecordsListed);
    if (!report.useStoredQuery) return LoadText(Text::CliRecordsQuery);
    return FormatText<Text::CliRecordsStoredQuery>(report.queryName);
}

// --- What can be done with a field

struct UseRow {
    ReportUse use;
    const char* name;
    Text word;
};
constexpr UseRow kUses[] = {
    {ReportUse::Group, "group", Text::CliUseGroup},
    {ReportUse::Sum, "sum", Text::CliUseSum},
    {ReportUse::Sort, "sort", Text::CliUseSort},
    {ReportUse::List, "column", Text::CliUseColumn},
};

void WriteFieldJson(CJsonText& json, RecordKind kind, const FieldRow& field, const QString& caption) {
    json.NewLine();
    json.BeginObject();
    json.Key("id");
    json.Integer(NumberOf(field.id));
    json.Key("name");
    json.Text(QString::fromLatin1(field.name));
    json.Key("caption");
    json.Text(caption);
    for (const UseRow& row : kUses) {
        json.Key(row.name);
        json.Flag(CanUse(kind, field.id, row.use));
    }
    json.EndObject();
}

QString FieldWords(RecordKind kind, const FieldRow& field, const QString& caption) {
    QStringList uses;
    for (const UseRow& row : kUses)
        if (CanUse(kind, field.id, row.use)) uses.append(LoadText(row.word));
    return u"%1  %2: %3"_s.arg(QLatin1String(field.name), caption, uses.join(u", "_s));
}

}  // namespace

void WriteReportJson(COutput& out, const ShownReport& shown) {
    const CReportDef& report = shown.report;
    CJsonText json(out);
    json.BeginObject();
    WriteHead(json, shown);
    json.Key("selection");
    json.Text(NameOf(report.selection));
    json.Key("useStoredQuery");
    json.Flag(report.useStoredQuery);
    json.Key("queryName");
    json.Text(report.queryName);
    WriteFields(json, "group", report.groupFields);
    WriteFields(json, "sum", report.sumFields);
    WriteSort(json, report.sortKeys);
    WriteFields(json, "columns", FieldsOf(report.listFields));
    for (const TextMember& member : kTexts) {
        json.Key(member.name);
        json.Text(report.*member.text);
    }
    json.EndObject();
    out.Put("\n");
}

void WriteReportLines(COutput& out, const ShownReport& shown, const CFieldCatalogue& fields) {
    const CReportDef& report = shown.report;
    PutLines(out, {{LoadText(Text::CliNameCaption), report.name},
                   {LoadText(Text::CliKindCaption), NameOf(report.kind)},
                   {LoadText(Text::CliRecordsCaption), RecordWords(report)},
                   {LoadText(Text::CliGroupCaption), Titles(report.groupFields, fields)},
                   {LoadText(Text::CliSumCaption), Titles(report.sumFields, fields)},
                   {LoadText(Text::CliColumnsCaption), Titles(FieldsOf(report.listFields), fields)},
                   {LoadText(Text::CliSortCaption), OrderWords(report.sortKeys, fields)},
                   {LoadText(Text::CliTitleCaption), report.title},
                   {LoadText(Text::CliHeaderCaption), report.header},
                   {LoadText(Text::CliFooterCaption), report.footer}});
}

void WriteReportFields(COutput& out, RecordKind kind, const CFieldCatalogue& fields) {
    const auto& all = ReportFields(kind, ReportUse::List);
    if (!out.isJson) {
        for (const FieldRow* field : all)
            out.PutLine(u"%1  "_s.arg(NumberOf(field->id), 4) +
                        FieldWords(kind, *field, fields.GetFieldTitle(NumberOf(field->id))));
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const FieldRow* field : all)
        WriteFieldJson(json, kind, *field, fields.GetFieldTitle(NumberOf(field->id)));
    json.EndArray();
    out.Put("\n");
}
