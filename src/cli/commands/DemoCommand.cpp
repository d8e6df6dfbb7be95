#include "app/CVelmarchDoc.h"
#include "changes/DemoData.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/OtherCommands.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"

#include <unistd.h>

namespace {

constexpr OptionRow kDemoOptions[] = {{"seed", "S", OptionShape::Value, Text::CliOptSeed}};

/// A lifetime is a million; ten of them are enough to see what happens beyond.
constexpr int kMostRecords = 10'000'000;

void WriteDone(COutput& out, const DemoCounts& counts) {
    if (!out.isJson) return out.PutLine(FormatText<Text::CliDemoDone>(counts.times, counts.expenses));
    CJsonText json(out);
    json.BeginObject();
    json.Key("times");
    json.Integer(counts.times);
    json.Key("expenses");
    json.Integer(counts.expenses);
    json.EndObject();
    out.Put("\n");
}

}  // namespace

std::span<const OptionRow> DemoOptions() {
    return kDemoOptions;
}

ExitCode FillDemo(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words().first();
    const auto count = EnteredValues::ReadCount(typed);
    if (!count || *count < 1 || *count > kMostRecords)
        return Refuse(ExitCode::Usage, FormatText<Text::CliNoDemoCount>(typed, kMostRecords), console);
    const auto seed = EnteredValues::ReadCount(arguments.Value("seed").value_or(QStringLiteral("1")));
    if (!seed) return Refuse(ExitCode::Usage, FormatText<Text::CliNoSeed>(*arguments.Value("seed")), console);

    const DemoCounts counts = ShareOut(*count);
    const bool showsProgress = !console.out.isQuiet && ::isatty(STDERR_FILENO) != 0;
    const auto progress = [&](int written) {
        console.out.Progress(FormatText<Text::CliProgress>(written, *count));
    };
    const DemoOutcome outcome =
        FillWithDemoData(context.document, console.clock, counts, static_cast<std::uint32_t>(*seed),
                         showsProgress ? progress : std::function<void(int)>());
    if (showsProgress) console.out.NoteBare(QStringLiteral("\n"));
    if (outcome == DemoOutcome::NotEmpty)
        return Refuse(ExitCode::Failed, LoadText(Text::CliDemoNotEmpty), console);
    if (outcome == DemoOutcome::Failed) return ExitCode::Failed;
    if (!context.window.TellAllChanged()) console.out.Note(LoadText(Text::CliWindowNotTold));
    WriteDone(console.out, counts);
    return ExitCode::Done;
}
