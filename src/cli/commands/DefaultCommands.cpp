#include "cli/commands/DefaultCommands.h"

#include "app/CVelmarchDoc.h"
#include "cli/arguments/CArguments.h"
#include "cli/arguments/RecordFields.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/home/RecordContext.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "cli/output/RecordOutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/RecordFactory.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kModeOption[] = {{"mode", "time|expense", OptionShape::Value, Text::CliOptMode}};
constexpr OptionRow kSaveOptions[] = {
    {"mode", "time|expense", OptionShape::Value, Text::CliOptMode},
    {"from", "ID", OptionShape::Value, Text::CliOptFromRecord},
};

ExitCode RefuseReserved(const QString& name, Console& console) {
    return Refuse(ExitCode::Failed, FormatText<Text::CliReservedName>(name), console);
}

ExitCode NoSuchDefault(const QString& name, Console& console) {
    return Refuse(ExitCode::NotFound, FormatText<Text::CliNoSuchDefault>(name), console);
}

// --- Save

bool IsOf(std::span<const OptionRow> options, const char* name) {
    return std::ranges::any_of(
        options, [name](const OptionRow& option) { return std::string_view(option.name) == name; });
}

/// The fields of both kinds, each once.
std::vector<OptionRow> AllFields() {
    const auto times = FieldOptions(RecordKind::Time), expenses = FieldOptions(RecordKind::Expense);
    std::vector<OptionRow> all(times.begin(), times.end());
    for (const OptionRow& option : expenses)
        if (!IsOf(times, option.name)) all.push_back(option);
    return all;
}

/// The sentence that refuses fields beside another record, or those of the other kind.
QString CheckFields(const CArguments& arguments, RecordKind kind) {
    for (const OptionRow& option : SaveDefaultFields()) {
        if (!arguments.Has(option.name)) continue;
        if (arguments.Has("from")) return LoadText(Text::CliFieldsOrFrom);
        if (!IsOf(FieldOptions(kind), option.name))
            return FormatText<Text::CliUnexpected>(u"--"_s + QString::fromLatin1(option.name));
    }
    return {};
}

/// What is to be stored: a copy of a record, or a new one of today with these fields. Null after telling why
/// there is none.
std::unique_ptr<CVORec> MakeDefault(RecordKind kind, const CArguments& arguments, Console& console,
                                    RecordContext& context, ExitCode& exit) {
    if (const auto id = arguments.Value("from")) {
        const CVORec* record = FindRecord(kind, *id, console, context);
        exit = record ? ExitCode::Done : LookupFailed(context);
        return record ? record->Clone() : nullptr;
    }
    std::unique_ptr<CVORec> record = RecordOfToday(kind, console.clock);
    Settings noted = context.settings;
    const EnteredFields fields =
        EnterFields(*record, arguments, {noted, context.settings.Region(), console.clock, nullptr});
    exit = fields.problem.exit;
    for (const QString& note : fields.notes) console.out.Note(note);
    if (exit == ExitCode::Done) return record;
    console.out.Complain(fields.problem.words);
    return nullptr;
}

/// A default that is replaced keeps its name: "standard" replaces "Standard".
std::optional<QString> AgreedName(const QString& name, RecordMode mode, Console& console,
                                  const RecordContext& context) {
    const auto former = context.owner.Defaults(mode).FindName(name);
    if (!former) return name;
    const bool isAgreed = Confirm(Text::CliDefaultExists, FormatText<Text::CliDefaultExists>(*former),
                                  Text::NewDefaultTitle, Text::VerbReplace, console);
    return isAgreed ? former : std::nullopt;
}

}  // namespace

std::span<const OptionRow> ModeOption() {
    return kModeOption;
}

std::span<const OptionRow> SaveDefaultOptions() {
    return kSaveOptions;
}

std::span<const OptionRow> SaveDefaultFields() {
    static const std::vector<OptionRow> kFields = AllFields();
    return kFields;
}

ExitCode ListDefaults(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    PrintTexts(console.out, owner.Defaults(*mode).Names());
    return ExitCode::Done;
}

ExitCode ShowDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString name = arguments.Words().first();
    const NamedDefaults defaults = owner.Defaults(*mode);
    const auto stored = NamedDefaults::IsReserved(name) ? name : defaults.FindName(name);
    if (!stored) return NoSuchDefault(name, console);
    const std::unique_ptr<CVORec> record = NewRecord(KindOf(*mode));
    if (!defaults.Read(*stored, *record))
        return Refuse(ExitCode::Failed, FormatText<Text::DefaultDamaged>(*stored), console);
    WriteRecord(console.out, {*record});
    return ExitCode::Done;
}

ExitCode SaveDefault(const CArguments& arguments, Console& console, RecordContext& context) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString name = arguments.Words().first();
    QString problem = CheckName(name);
    if (problem.isEmpty()) problem = CheckFields(arguments, KindOf(*mode));
    if (!problem.isEmpty()) return Refuse(ExitCode::Usage, problem, console);
    if (NamedDefaults::LooksReserved(name)) return RefuseReserved(name, console);

    ExitCode exit = ExitCode::Done;
    const std::unique_ptr<CVORec> record = MakeDefault(KindOf(*mode), arguments, console, context, exit);
    if (!record) return exit;
    const auto agreed = AgreedName(name, *mode, console, context);
    if (!agreed) return ExitCode::Failed;
    const DefaultsRequest request{
        .kind = KindOf(*mode), .action = DefaultsAction::Write, .name = *agreed, .record = record->ToBytes()};
    exit = ChangeSettings(request, console, context.owner);
    record->SetId({});
    if (exit == ExitCode::Done) WriteRecord(console.out, {*record});
    return exit;
}

ExitCode RenameDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString name = arguments.Words()[0], to = arguments.Words()[1];
    if (const QString problem = CheckName(to); !problem.isEmpty())
        return Refuse(ExitCode::Usage, problem, console);
    for (const QString& reserved : {name, to})
        if (NamedDefaults::LooksReserved(reserved)) return RefuseReserved(reserved, console);
    const auto stored = owner.Defaults(*mode).FindName(name);
    if (!stored) return NoSuchDefault(name, console);
    if (owner.Defaults(*mode).IsTaken(to, *stored))
        return Refuse(ExitCode::Failed, FormatText<Text::CliNameTaken>(to), console);
    const DefaultsRequest request{
        .kind = KindOf(*mode), .action = DefaultsAction::Rename, .name = *stored, .to = to};
    const ExitCode exit = ChangeSettings(request, console, owner);
    if (exit == ExitCode::Done) PrintTexts(console.out, owner.Defaults(*mode).Names());
    return exit;
}

ExitCode DeleteDefault(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const auto mode = ReadModeOption(arguments, console);
    if (!mode) return ExitCode::Usage;
    const QString name = arguments.Words().first();
    if (NamedDefaults::IsReserved(name)) return RefuseReserved(name, console);
    const auto stored = owner.Defaults(*mode).FindName(name);
    if (!stored) return NoSuchDefault(name, console);
    const QString question = LoadText(Text::AskDeleteDefault) + *stored + LoadText(Text::AskDeleteDefaultEnd);
    const bool isAgreed =
        !owner.Stored().confirmDelete ||
        Confirm(Text::AskDeleteDefault, question, Text::DeleteDefaultTitle, Text::AskDeleteTitle, console);
    const DefaultsRequest request{.kind = KindOf(*mode), .action = DefaultsAction::Delete, .name = *stored};
    const ExitCode exit = isAgreed ? ChangeSettings(request, console, owner) : ExitCode::Failed;
    PrintCount(console.out, "deleted", Text::CliDeleted, exit == ExitCode::Done ? 1 : 0);
    return exit;
}
