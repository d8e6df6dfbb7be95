#include "cli/commands/SettingCommands.h"

#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "cli/commands/RecordSteps.h"
#include "cli/home/CSettingsOwner.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QJsonObject>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString TypeName(SettingType type) {
    switch (type) {
        case SettingType::Flag:
            return u"flag"_s;
        case SettingType::Int:
            return u"int"_s;
        case SettingType::Colour:
            return u"colour"_s;
    }
    return {};
}

void WriteJson(CJsonText& json, const SettingRow& row, const CCfgStore& settings) {
    json.BeginObject();
    json.Key("index");
    json.Integer(row.index);
    json.Key("name");
    json.Text(QString::fromLatin1(row.name));
    json.Key("type");
    json.Text(TypeName(row.type));
    json.Key("value");
    json.Integer(SettingValue(settings, row));
    json.Key("default");
    json.Integer(row.preset);
    json.EndObject();
}

QString Shown(const SettingRow& row, std::int64_t value) {
    return row.type == SettingType::Colour
               ? QString::asprintf("0x%06llX", static_cast<unsigned long long>(value))
               : QString::number(value);
}

void WriteLine(COutput& out, const SettingRow& row, const CCfgStore& settings) {
    const std::int64_t value = SettingValue(settings, row);
    QString line = QString::fromLatin1(row.name).leftJustified(26) + Shown(row, value);
    if (value != row.preset) line += FormatText<Text::CliSettingDefault>(Shown(row, row.preset));
    out.PutLine(line);
}

void WriteOne(COutput& out, const SettingRow& row, const CCfgStore& settings) {
    if (!out.isJson) return WriteLine(out, row, settings);
    CJsonText json(out);
    WriteJson(json, row, settings);
    out.Put("\n");
}

void WriteAll(COutput& out, std::span<const SettingRow> rows, const CCfgStore& settings) {
    if (!out.isJson) {
        for (const SettingRow& row : rows) WriteLine(out, row, settings);
        return;
    }
    CJsonText json(out);
    json.BeginArray();
    for (const SettingRow& row : rows) {
        json.NewLine();
        WriteJson(json, row, settings);
    }
    json.EndArray();
    out.Put("\n");
}

/// A whole number, in hexadecimal with 0x in front (colours), or yes and no for a flag.
std::optional<qint64> ReadValue(const QString& typed, const SettingRow& row) {
    if (row.type == SettingType::Flag)
        if (const auto flag = EnteredValues::ReadYesNo(typed)) return *flag ? 1 : 0;
    bool isNumber = false;
    const bool isHex = typed.startsWith(u"0x", Qt::CaseInsensitive);
    const qint64 value = isHex ? typed.mid(2).toLongLong(&isNumber, 16) : typed.toLongLong(&isNumber, 10);
    return isNumber ? std::optional(value) : std::nullopt;
}

ExitCode NoSuchSetting(const QString& name, Console& console) {
    return Refuse(ExitCode::NotFound, FormatText<Text::SettingUnknown>(name), console);
}

}  // namespace

ExitCode ListSettings(const CArguments&, Console& console, const CCfgStore& settings) {
    WriteAll(console.out, SettingsTable(), settings);
    return ExitCode::Done;
}

ExitCode ListOwnSettings(const CArguments&, Console& console, const CCfgStore& settings) {
    WriteAll(console.out, OwnSettingsTable(), settings);
    return ExitCode::Done;
}

ExitCode GetSetting(const CArguments& arguments, Console& console, const CCfgStore& settings) {
    const QString name = arguments.Words().first();
    const SettingRow* row = FindSetting(name);
    if (!row) return NoSuchSetting(name, console);
    WriteOne(console.out, *row, settings);
    return ExitCode::Done;
}

ExitCode SetSetting(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const QString name = arguments.Words()[0], typed = arguments.Words()[1];
    const SettingRow* row = FindSetting(name);
    if (!row) return NoSuchSetting(name, console);
    const auto value = ReadValue(typed, *row);
    if (!value)
        return Refuse(ExitCode::Usage, FormatText<Text::SettingOutOfRange>(name, typed, AllowedValues(*row)),
                      console);
    const ExitCode exit = ChangeSettings(SettingRequest{.name = name, .value = *value}, console, owner);
    if (exit == ExitCode::Done) WriteOne(console.out, *row, owner.Stored());
    return exit;
}

ExitCode ResetSettings(const CArguments& arguments, Console& console, CSettingsOwner& owner) {
    const QString name = arguments.Words().value(0);
    const SettingRow* row = name.isEmpty() ? nullptr : FindSetting(name);
    if (!row && !arguments.Words().isEmpty()) return NoSuchSetting(name, console);
    SettingRequest request{.isReset = true};
    if (row) request.name = name;
    const ExitCode exit = ChangeSettings(request, console, owner);
    if (exit != ExitCode::Done) return exit;
    row ? WriteOne(console.out, *row, owner.Stored())
        : WriteAll(console.out, SettingsTable(), owner.Stored());
    return exit;
}
