#include "cli/output/RunOutput.h"

#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/ReportNames.h"
#include "records/KindNames.h"
#include "reports/aggregate/ReportResult.h"

namespace {

/// Where a field has no decimal places of its own.
constexpr int kDefaultPlaces = 6;

void WriteColumn(CJsonText& json, FieldId field, const QString& caption) {
    json.Key("id");
    json.Integer(NumberOf(field));
    json.Key("caption");
    json.Text(caption);
}

void WriteTexts(CJsonText& json, const QStringList& texts) {
    json.BeginArray();
    for (const QString& text : texts) json.Text(text);
    json.EndArray();
}

bool WriteListing(CJsonText& json, COutput& out, const CListing& listing, CListingRows& rows) {
    json.BeginObject();
    json.Key("columns");
    json.BeginArray();
    for (const ListingColumn& column : listing.Columns()) {
        json.BeginObject();
        WriteColumn(json, column.field, column.caption);
        json.EndObject();
    }
    json.EndArray();
    json.Key("rows");
    json.BeginArray();
    const bool isWhole = rows.ForEachRow([&](const QStringList& cells) {
        json.NewLine();
        WriteTexts(json, cells);
        return !out.IsBroken();
    });
    json.EndArray();
    json.EndObject();
    return isWhole;
}

void WriteGroupedColumn(CJsonText& json, const GroupedColumn& column, bool isSum) {
    json.BeginObject();
    WriteColumn(json, column.field, column.caption);
    json.Key("sum");
    json.Flag(isSum);
    json.EndObject();
}

/// The numbers, and what the page shows of them.
void WriteSums(CJsonText& json, const GroupedTable& table, const std::vector<double>& sums) {
    json.Key("sums");
    json.BeginArray();
    for (std::size_t i = 0; i < sums.size(); ++i) {
        const int places = table.sums[i].places;
        json.Number(sums[i], places < 0 ? kDefaultPlaces : places);
    }
    json.EndArray();
    json.Key("texts");
    json.BeginArray();
    for (std::size_t i = 0; i < sums.size(); ++i) json.Text(table.SumText(i, sums[i]));
    json.EndArray();
}

void WriteGroups(CJsonText& json, const GroupedTable& table) {
    json.BeginObject();
    json.Key("columns");
    json.BeginArray();
    for (const GroupedColumn& column : table.keys) WriteGroupedColumn(json, column, false);
    for (const GroupedColumn& column : table.sums) WriteGroupedColumn(json, column, true);
    json.EndArray();
    json.Key("rows");
    json.BeginArray();
    for (const ReportRow& row : table.rows) {
        json.NewLine();
        json.BeginObject();
        json.Key("keys");
        WriteTexts(json, row.keys);
        WriteSums(json, table, row.sums);
        json.EndObject();
    }
    json.EndArray();
    json.Key("total");
    json.BeginObject();
    WriteSums(json, table, table.Total());
    json.EndObject();
    json.EndObject();
}

void WriteSummaryRow(CJsonText& json, const ReportColumn& column) {
    json.BeginObject();
    json.Key("caption");
    json.Text(PlainCaption(column));
    json.Key("value");
    if (column.Places() < 0)
        json.Integer(static_cast<qint64>(column.Value()));
    else
        json.Number(column.Value(), column.Places());
    json.Key("text");
    json.Text(column.Text());
    json.EndObject();
}

void WriteSections(CJsonText& json, const ReportSectionList& summary) {
    json.BeginArray();
    for (const auto& section : summary.sections) {
        json.NewLine();
        json.BeginObject();
        json.Key("caption");
        json.Text(section->caption);
        json.Key("rows");
        json.BeginArray();
        for (const auto& column : section->columns) WriteSummaryRow(json, *column);
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void WriteHead(CJsonText& json, const ShownRun& run) {
    const CReportDef& report = run.result.definition;
    json.Key("mode");
    json.Text(KindName(KindOf(run.mode)));
    json.Key("kind");
    json.Text(NameOf(report.kind));
    json.Key("name");
    if (run.name)
        json.Text(*run.name);
    else
        json.Null();
    json.Key("title");
    json.Text(report.title);
    json.Key("header");
    json.Text(report.header);
    json.Key("footer");
    json.Text(report.footer);
    json.Key("date");
    json.Text(run.date);
}

void WriteRecords(CJsonText& json, const ShownRun& run, const ForEachIdentity& forEachId) {
    json.Key("count");
    json.Integer(static_cast<qint64>(run.count));
    json.Key("records");
    json.BeginArray();
    forEachId([&json](const QString& id) { json.Text(id); });
    json.EndArray();
}

}  // namespace

bool WriteRunJson(COutput& out, const ShownRun& run, const ForEachIdentity& forEachId, CListingRows& rows) {
    CJsonText json(out);
    json.BeginObject();
    WriteHead(json, run);
    WriteRecords(json, run, forEachId);
    const ReportResult& result = run.result;
    json.Key("listing");
    if (!result.listing)
        json.Null();
    else if (!WriteListing(json, out, *result.listing, rows))
        return false;
    json.Key("grouped");
    if (result.grouped && !result.grouped->rows.empty())
        WriteGroups(json, *result.grouped);
    else
        json.Null();
    json.Key("summary");
    if (result.summary)
        WriteSections(json, *result.summary);
    else
        json.Null();
    json.EndObject();
    out.Put("\n");
    return true;
}
