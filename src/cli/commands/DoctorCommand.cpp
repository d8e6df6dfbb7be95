#include "app/CVelmarchApp.h"
#include "app/HomeSalvage.h"
#include "cli/arguments/CArguments.h"
#include "cli/commands/OtherCommands.h"
#include "cli/doctor/CDoctor.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/SalvageOutput.h"
#include "lang/FormatText.h"
#include "platform/host/CMessagePump.h"

#include <algorithm>

namespace {

void WriteJson(COutput& out, const std::vector<Finding>& findings, bool isSound, bool isStoreDamaged) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("ok");
    json.Flag(isSound);
    json.Key("storeDamaged");
    json.Flag(isStoreDamaged);
    json.Key("checks");
    json.BeginArray();
    for (const Finding& finding : findings) {
        json.NewLine();
        json.BeginObject();
        json.Key("name");
        json.Text(QString::fromLatin1(finding.name));
        json.Key("ok");
        finding.verdict == Finding::Verdict::Unchecked ? json.Null()
                                                       : json.Flag(finding.verdict == Finding::Verdict::Good);
        json.Key("detail");
        json.Text(finding.detail);
        json.Key("advice");
        json.TextOrNull(finding.advice);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    out.Put("\n");
}

QString LineOf(const Finding& finding) {
    const QString name = QString::fromLatin1(finding.name);
    switch (finding.verdict) {
        case Finding::Verdict::Good:
            return FormatText<Text::CliFindingGood>(name, finding.detail);
        case Finding::Verdict::Bad:
            return FormatText<Text::CliFindingBad>(name, finding.detail);
        case Finding::Verdict::Unchecked:
            return FormatText<Text::CliFindingUnchecked>(name, finding.detail);
    }
    return {};
}

void WriteLines(COutput& out, const std::vector<Finding>& findings, bool isSound) {
    for (const Finding& finding : findings) {
        out.PutLine(LineOf(finding));
        if (!finding.advice.isEmpty()) out.PutLine(FormatText<Text::CliFindingAdvice>(finding.advice));
    }
    out.PutLine(LoadText(isSound ? Text::CliAllSound : Text::CliNotAllSound));
}

constexpr OptionRow kDoctorOptions[] = {{"salvage", "DIR", OptionShape::Value, Text::CliOptSalvage}};

ExitCode Salvage(const QString& folder, Console& console, const QString& homeOption) {
    CNoPump pump;
    CNoViews views;
    CVelmarchApp app({console.clock, console.prompt, pump, views});
    if (!app.ResolveHome(homeOption)) return ExitCode::Failed;
    const SalvagedHome saved = SalvageHome(app.Home(), folder);
    if (!saved.error.isEmpty()) {
        console.out.Complain(saved.error);
        return ExitCode::Failed;
    }
    if (console.out.isJson)
        WriteSalvageJson(console.out, saved);
    else
        for (const QString& line : SalvageLines(saved)) console.out.PutLine(line);
    return ExitCode::Done;
}

}  // namespace

std::span<const OptionRow> DoctorOptions() {
    return kDoctorOptions;
}

ExitCode RunDoctor(const CArguments& arguments, Console& console, const QString& homeOption) {
    if (const auto folder = arguments.Value("salvage")) return Salvage(*folder, console, homeOption);
    CDoctor doctor(console.clock);
    const std::vector<Finding>& findings = doctor.Examine(homeOption);
    // What wasn't checked has its reason among the others.
    const bool isSound = std::ranges::all_of(
        findings, [](const Finding& finding) { return finding.verdict == Finding::Verdict::Good; });
    console.out.isJson ? WriteJson(console.out, findings, isSound, doctor.IsStoreDamaged())
                       : WriteLines(console.out, findings, isSound);
    return isSound ? ExitCode::Done : ExitCode::Failed;
}
