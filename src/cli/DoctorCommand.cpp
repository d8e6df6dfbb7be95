#include "cli/CArguments.h"
#include "cli/CDoctor.h"
#include "cli/CJsonText.h"
#include "cli/COutput.h"
#include "cli/OtherCommands.h"
#include "lang/FormatText.h"

#include <algorithm>

namespace {

void WriteJson(COutput& out, const std::vector<Finding>& findings, bool isSound) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("ok");
    json.Flag(isSound);
    json.Key("checks");
    json.BeginArray();
    for (const Finding& finding : findings) {
        json.NewLine();
        json.BeginObject();
        json.Key("name");
        json.Text(QString::fromLatin1(finding.name));
        json.Key("ok");
        json.Flag(finding.isOk);
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

void WriteLines(COutput& out, const std::vector<Finding>& findings, bool isSound) {
    for (const Finding& finding : findings) {
        const QString name = QString::fromLatin1(finding.name);
        out.PutLine(finding.isOk ? FormatText<Text::CliFindingGood>(name, finding.detail)
                                 : FormatText<Text::CliFindingBad>(name, finding.detail));
        if (!finding.advice.isEmpty()) out.PutLine(FormatText<Text::CliFindingAdvice>(finding.advice));
    }
    out.PutLine(LoadText(isSound ? Text::CliAllSound : Text::CliNotAllSound));
}

}  // namespace

ExitCode RunDoctor(const CArguments&, Console& console, const QString& homeOption) {
    CDoctor doctor(console.clock);
    const std::vector<Finding>& findings = doctor.Examine(homeOption);
    const bool isSound =
        std::all_of(findings.begin(), findings.end(), [](const Finding& finding) { return finding.isOk; });
    console.out.isJson ? WriteJson(console.out, findings, isSound)
                       : WriteLines(console.out, findings, isSound);
    return isSound ? ExitCode::Done : ExitCode::Failed;
}
