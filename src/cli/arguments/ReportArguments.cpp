#include "cli/arguments/ReportArguments.h"

#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/arguments/QueryArguments.h"
#include "cli/output/ReportNames.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "reports/definition/ReportFields.h"
#include "reports/definition/ReportPages.h"
#include "reports/query/CQueryStore.h"

#include <algorithm>
#include <optional>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kKindOption[] = {
    {"kind", "grouped|listing|compound", OptionShape::Value, Text::CliOptKind}};
constexpr OptionRow kOptions[] = {
    {"group", "ID,ID", OptionShape::Value, Text::CliOptGroup},
    {"sum", "ID,ID", OptionShape::Value, Text::CliOptSum},
    {"columns", "ID,ID", OptionShape::Value, Text::CliOptColumns},
    {"sort", "ID[:asc|:desc],...", OptionShape::Value, Text::CliOptReportSort},
    {"title", "TEXT", OptionShape::Value, Text::CliOptTitle},
    {"header", "TEXT", OptionShape::Value, Text::CliOptHeader},
    {"footer", "TEXT", OptionShape::Value, Text::CliOptFooter},
    {"query", "NAME", OptionShape::Value, Text::CliOptReportQuery},
    {"select", "selected|listed|query", OptionShape::Value, Text::CliOptSelect},
};

struct TextRow {
    const char* option;
    QString CReportDef::*text;
};
constexpr TextRow kTexts[] = {
    {"title", &CReportDef::title},
    {"header", &CReportDef::header},
    {"footer", &CReportDef::footer},
};

FilterProblem Usage(const QString& words) {
    return {ExitCode::Usage, words};
}

// --- Which options a kind has a place for

/// The page of the definition on which the content of an option stands.
SheetPage PageOf(std::string_view option) {
    if (option == "group" || option == "sum") return SheetPage::Groups;
    if (option == "columns") return SheetPage::Columns;
    if (option == "sort") return SheetPage::Order;
    return option == "query" || option == "select" ? SheetPage::Selection : SheetPage::Texts;
}

/// A summary has fixed sections: only the texts around them can be said.
bool HasPlace(ReportKind kind, const OptionRow& option) {
    const SheetPage page = PageOf(option.name);
    return kind == ReportKind::Summary ? page == SheetPage::Texts : HasPage(kind, page);
}

QString PlaceProblem(const CArguments& arguments, ReportKind kind) {
    QStringList allowed;
    for (const OptionRow& option : kOptions)
        if (HasPlace(kind, option)) allowed.append(u"--"_s + QString::fromLatin1(option.name));
    for (const OptionRow& option : kOptions)
        if (arguments.Has(option.name) && !HasPlace(kind, option))
            return FormatText<Text::CliNoPageForOption>(QString::fromLatin1(option.name), NameOf(kind),
                                                        allowed.join(u", "_s));
    return {};
}

// --- Fields

QString NamesOf(RecordKind kind, ReportUse use) {
    QStringList names;
    for (const FieldRow* field : ReportFields(kind, use))
        names.append(u"%1 %2"_s.arg(NumberOf(field->id)).arg(QLatin1String(field->name)));
    return names.join(u", "_s);
}

/// By its number or name; none when it can't be used so.
FieldId FindField(RecordKind kind, ReportUse use, const QString& typed) {
    const auto number = EnteredValues::ReadCount(typed);
    for (const FieldRow* field : ReportFields(kind, use))
        if (number ? NumberOf(field->id) == *number : typed == QLatin1String(field->name)) return field->id;
    return FieldId::None;
}

/// One option with fields.
struct FieldOption {
    const char* option;
    ReportUse use;
    bool hasDirection = false;
};

/// ":asc", ":desc", or nothing behind the field, which is ascending.
std::optional<int> DirectionOf(const FieldOption& option, const QString& typed) {
    if (!option.hasDirection) return typed.contains(u':') ? std::nullopt : std::optional(0);
    const QString direction = typed.section(u':', 1);
    if (!typed.contains(u':') || direction == u"asc") return 1;
    return direction == u"desc" ? std::optional(-1) : std::nullopt;
}

/// The sentence that refuses; empty when all fields can be read.
QString ReadFields(const FieldOption& option, const QString& typed, RecordKind kind, QList<SortKey>& fields) {
    const QString name = QString::fromLatin1(option.option);
    QList<SortKey> read;
    for (const QString& part : typed.split(u',', typed.isEmpty() ? Qt::SkipEmptyParts : Qt::KeepEmptyParts)) {
        const QString one = part.trimmed();
        const FieldId field = FindField(kind, option.use, one.section(u':', 0, 0));
        const auto direction = DirectionOf(option, one);
        if (field == FieldId::None || !direction)
            return FormatText<Text::CliNoReportField>(name, one, NamesOf(kind, option.use));
        if (std::ranges::find(read, field, &SortKey::fieldId) != read.end())
            return FormatText<Text::CliReportFieldTwice>(name, one);
        read.append({field, *direction});
    }
    fields = read;
    return {};
}

QList<FieldId> WithoutDirection(const QList<SortKey>& keys) {
    QList<FieldId> fields;
    for (const SortKey& key : keys) fields.append(key.fieldId);
    return fields;
}

QString ReadKeys(const FieldOption& option, const CArguments& arguments, RecordKind kind,
                 QList<SortKey>& keys) {
    const auto typed = arguments.Value(option.option);
    return typed ? ReadFields(option, *typed, kind, keys) : QString();
}

QString ReadIds(const FieldOption& option, const CArguments& arguments, RecordKind kind,
                QList<FieldId>& fields) {
    QList<SortKey> keys;
    QString problem = ReadKeys(option, arguments, kind, keys);
    if (problem.isEmpty() && arguments.Has(option.option)) fields = WithoutDirection(keys);
    return problem;
}

QString ReadAllFields(const CArguments& arguments, RecordKind kind, CReportDef& report) {
    QString problem = ReadIds({"group", ReportUse::Group}, arguments, kind, report.groupFields);
    if (problem.isEmpty()) problem = ReadIds({"sum", ReportUse::Sum}, arguments, kind, report.sumFields);
    if (problem.isEmpty())
        problem = ReadKeys({"columns", ReportUse::List}, arguments, kind, report.listFields);
    if (problem.isEmpty())
        problem = ReadKeys({"sort", ReportUse::Sort, true}, arguments, kind, report.sortKeys);
    return problem;
}

// --- Texts and records

QString ReadTexts(const CArguments& arguments, CReportDef& report) {
    for (const TextRow& row : kTexts) {
        const auto text = arguments.Value(row.option);
        if (!text) continue;
        if (text->size() > CCfgStore::kMostOfValue)
            return FormatText<Text::CliStoredTextTooLong>(
                QString::fromLatin1(row.option), static_cast<int>(text->size()), CCfgStore::kMostOfValue);
        report.*row.text = *text;
    }
    return {};
}

/// The reserved query isn't offered: it changes with every use of the filter.
FilterProblem ReadQueryName(const QString& typed, const CQueryStore& queries, CReportDef& report) {
    if (typed.isEmpty()) {
        report.useStoredQuery = false;
        report.queryName.clear();
        return {};
    }
    if (CQueryStore::IsReserved(typed)) return Usage(FormatText<Text::CliQueryReservedThere>(typed));
    const auto stored = queries.Find(typed);
    if (!stored) return NoSuchQuery(typed);
    SelectionPage{ReportSelection::Query, true, *stored}.Leave(report);
    return {};
}

FilterProblem ReadSelection(const QString& typed, CReportDef& report) {
    const auto selection = SelectionNamed(typed);
    if (!selection) return Usage(FormatText<Text::CliNoSelection>(typed));
    SelectionPage{*selection, false, {}}.Leave(report);
    return {};
}

}  // namespace

std::span<const OptionRow> KindOption() {
    return kKindOption;
}

std::span<const OptionRow> DefinitionOptions() {
    return kOptions;
}

FilterProblem ReadDefinition(const CArguments& arguments, RecordKind kind, const CQueryStore& queries,
                             CReportDef& report) {
    QString problem = PlaceProblem(arguments, report.kind);
    if (problem.isEmpty()) problem = ReadAllFields(arguments, kind, report);
    if (problem.isEmpty()) problem = ReadTexts(arguments, report);
    const auto query = arguments.Value("query"), selection = arguments.Value("select");
    if (problem.isEmpty() && query && selection) problem = LoadText(Text::CliQueryOrSelect);
    if (!problem.isEmpty()) return Usage(problem);
    if (query) return ReadQueryName(*query, queries, report);
    return selection ? ReadSelection(*selection, report) : FilterProblem{};
}
