#include "cli/commands/OtherCommands.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "lang/LoadText.h"

/// Numbers and texts as JSON, asked for or not: there is no other reader of them than a program.
ExitCode ListTexts(const CArguments&, Console& console) {
    CJsonText json(console.out);
    json.BeginObject();
    for (const auto& [id, text] : AllTexts()) {
        json.NewLine();
        json.Key(QByteArray::number(id).constData());
        json.Text(text);
    }
    json.EndObject();
    console.out.Put("\n");
    return ExitCode::Done;
}
