#include "cli/commands/LabelCommands.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/ListSteps.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "lists/LabelChanges.h"
#include "lists/LabelSets.h"
#include "records/StoreTransaction.h"

#include <algorithm>
#include <functional>

namespace {

struct PresetRow {
    const char* name;
    int preset;
    Text question;
};
constexpr PresetRow kPresets[] = {
    {"1", 1, Text::AskLabelsPreset1},
    {"2", 2, Text::AskLabelsPreset2},
};

void WriteJson(CJsonText& json, int field, const FieldLabels& labels) {
    json.BeginObject();
    json.Key("id");
    json.Integer(field);
    json.Key("label");
    json.Text(labels.Own(field));
    json.Key("default");
    json.Text(DefaultLabel(field));
    json.EndObject();
}

void WriteLine(COutput& out, int field, const FieldLabels& labels) {
    const QString own = labels.Own(field);
    out.PutLine(own.isEmpty() ? FormatText<Text::CliLabelDefaultLine>(field, DefaultLabel(field))
                              : FormatText<Text::CliLabelLine>(field, DefaultLabel(field), own));
}

void WriteOne(COutput& out, int field, const FieldLabels& labels) {
    if (!out.isJson) return WriteLine(out, field, labels);
    CJsonText json(out);
    WriteJson(json, field, labels);
    out.Put("\n");
}

void WriteAll(COutput& out, const FieldLabels& labels) {
    if (!out.isJson) {
        for (int field = kFirstLabel; field <= kLastLabel; ++field) WriteLine(out, field, labels);
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (int field = kFirstLabel; field <= kLastLabel; ++field) {
        json.NewLine();
        WriteJson(json, field, labels);
    }
    json.EndArray();
    out.Put("\n");
}

/// Changes names, and lets the captions of columns follow: a running window does that for its own columns
/// when it is told, so one that can't be told is no time for it.
ExitCode Change(const std::function<bool(CLabelEditor&)>& work, Console& console, RecordContext& context) {
    if (context.window.IsThere() && !context.window.Reach())
        return Refuse(ExitCode::Refused, LoadText(Text::CliWindowOwnsSettings), console);
    StoreTransaction hold(context.document.Store());
    if (!hold.IsOpen() || !context.catalogue.Load()) return ExitCode::Failed;
    CLabelEditor editor(context.catalogue);
    if (!work(editor) || hold.Commit() != CommitEnd::Durable) return ExitCode::Failed;
    if (!context.window.IsThere() && !context.owner.NameColumns(context.catalogue.Labels()))
        console.out.Note(FormatText<Text::CliLabelsNotInColumns>(context.owner.Stored().Tree().Error()));
    AnnounceLists(console, context);
    return ExitCode::Done;
}

ExitCode ChangeAll(const std::function<bool(CLabelEditor&)>& work, Console& console, RecordContext& context) {
    const ExitCode exit = Change(work, console, context);
    if (exit == ExitCode::Done) WriteAll(console.out, context.catalogue.Labels());
    return exit;
}

}  // namespace

ExitCode ListLabels(const CArguments&, Console& console, RecordContext& context) {
    if (!context.catalogue.Load()) return ExitCode::Failed;
    WriteAll(console.out, context.catalogue.Labels());
    return ExitCode::Done;
}

ExitCode SetLabel(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words()[0], text = arguments.Words()[1];
    const auto field = EnteredValues::ReadCount(typed);
    if (!field || *field < kFirstLabel || *field > kLastLabel)
        return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchLabel>(typed), console);
    if (text.size() > kLongestItem)
        return Refuse(ExitCode::Usage,
                      FormatText<Text::CliTooLong>(static_cast<int>(text.size()), kLongestItem), console);
    const ExitCode exit =
        Change([&](CLabelEditor& editor) { return editor.SetLabel(*field, text); }, console, context);
    if (exit == ExitCode::Done) WriteOne(console.out, *field, context.catalogue.Labels());
    return exit;
}

ExitCode ResetLabels(const CArguments&, Console& console, RecordContext& context) {
    if (!Confirm(Text::AskResetLabels, Text::AskResetLabelsTitle, Text::AskResetLabelsTitle, console))
        return ExitCode::Failed;
    return ChangeAll([](CLabelEditor& editor) { return editor.Reset(); }, console, context);
}

ExitCode UseLabelPreset(const CArguments& arguments, Console& console, RecordContext& context) {
    const QString typed = arguments.Words().first();
    const auto row = std::ranges::find_if(
        kPresets, [&](const PresetRow& one) { return typed == QLatin1String(one.name); });
    if (row == std::end(kPresets))
        return Refuse(ExitCode::Usage, FormatText<Text::CliNoSuchPreset>(typed), console);
    if (!Confirm(row->question, Text::AskLabelsPresetTitle, Text::AskLabelsPresetTitle, console))
        return ExitCode::Failed;
    return ChangeAll([&](CLabelEditor& editor) { return editor.ApplyPreset(row->preset); }, console, context);
}
