#include "cli/commands/ColumnCommands.h"

#include "app/RecordMode.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/ColumnArguments.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kSetOption[] = {{"tree", "", OptionShape::Flag, Text::CliOptTree}};
constexpr OptionRow kOptions[] = {
    {"width", "COLUMN=PIXELS", OptionShape::Values, Text::CliOptWidth},
    {"breaks", "N,N|none", OptionShape::Value, Text::CliOptBreaks},
};

/// One half of one set of columns, as named on the command line.
struct Place {
    RecordMode mode;
    bool isTree;

    [[nodiscard]] ColumnHalf Half() const { return HalfOf(KindOf(mode)); }
    [[nodiscard]] const CColSet& In(const CCfgStore& settings) const {
        return isTree ? settings.TreeColumns() : settings.ListColumns();
    }
    /// What a change of it starts with.
    [[nodiscard]] ColumnRequest Request() const { return {.isTree = isTree, .kind = KindOf(mode)}; }
};

std::optional<Place> ReadPlace(const CArguments& arguments, Console& console) {
    const auto mode = ReadMode(arguments.Words().first(), console);
    return mode ? std::optional(Place{*mode, arguments.Has("tree")}) : std::nullopt;
}

void WriteJson(COutput& out, const CColSet& columns, ColumnHalf half) {
    CJsonText json(out);
    json.BeginArray();
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column) {
        if (columns.IsExcluded(column)) continue;
        const ColumnEntry entry = columns.EntryAt(column);
        json.NewLine();
        json.BeginObject();
        json.Key("column");
        json.Integer(column);
        json.Key("caption");
        json.Text(entry.caption);
        json.Key("visible");
        json.Flag(entry.visible != 0);
        json.Key("position");
        json.Integer(entry.position);
        json.Key("width");
        json.Integer(entry.width);
        json.EndObject();
    }
    json.EndArray();
    out.Put("\n");
}

/// The shown ones in their order, then the others.
void WriteLines(COutput& out, const CColSet& columns, ColumnHalf half) {
    for (const int column : columns.Order(half)) {
        const ColumnEntry entry = columns.EntryAt(column);
        out.PutLine(FormatText<Text::CliColumnShown>(entry.position, entry.caption, QString::number(column),
                                                     entry.width));
    }
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (!columns.IsVisible(column) && !columns.IsExcluded(column))
            out.PutLine(
                FormatText<Text::CliColumnHidden>(columns.EntryAt(column).caption, QString::number(column)));
}

void Write(COutput& out, const Place& place, const CCfgStore& settings) {
    out.isJson ? WriteJson(out, place.In(settings), place.Half())
               : WriteLines(out, place.In(settings), place.Half());
}

ExitCode Change(const ColumnRequest& request, const Place& place, Console& console, CSettingsOwner& owner) {
    const ExitCode exit = ChangeSettings(request, console, owner);
    if (exit == ExitCode::Done) Write(console.out, place, owner.Stored());
    return exit;
}

}  // namespace

std::span<const OptionRow> ColumnSetOption() {
    return kSetOption;
}

std::span<const OptionRow> ColumnOptions() {
    return kOptions;
}

ExitCode ListColumns(const CArguments& arguments, Console& console, const CCfgStore& settings) {
    const auto place = ReadPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    Write(console.out, *place, settings);
    return ExitCode::Done;
}

ExitCode SetColumns(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto place = ReadPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    if (place->isTree && arguments.Has("breaks"))
        return Refuse(ExitCode::Usage, LoadText(Text::CliBreaksOfTree), console);
    ColumnRequest request = place->Request();
    const QString problem = ReadColumnChange(arguments, place->In(owner.Stored()), place->Half(), request);
    if (!problem.isEmpty()) return Refuse(ExitCode::Usage, problem, console);
    return Change(request, *place, console, owner);
}

ExitCode ResetColumns(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto place = ReadPlace(arguments, console);
    if (!place) return ExitCode::Usage;
    ColumnRequest request = place->Request();
    request.isReset = true;
    return Change(request, *place, console, owner);
}
