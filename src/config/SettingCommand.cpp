#include "config/SettingCommand.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QJsonValue>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kNotFound = 4;

QJsonObject Refusal(int exitCode, const QString& words) {
    return {
        {QStringLiteral("ok"), false}, {QStringLiteral("exit"), exitCode}, {QStringLiteral("error"), words}};
}

QJsonObject Done() {
    return {{QStringLiteral("ok"), true}};
}

/// A JSON number without a fraction, within what a setting can hold.
std::optional<std::int64_t> WholeNumber(const QJsonValue& value) {
    constexpr double kMost = 4294967295.0;
    if (!value.isDouble()) return std::nullopt;
    const double number = value.toDouble();
    if (std::trunc(number) != number || std::abs(number) > kMost) return std::nullopt;
    return static_cast<std::int64_t>(number);
}

/// Saves these settings as one change. On failure memory takes back what it held before.
QJsonObject Save(std::span<const SettingRow> rows, CCfgStore& settings, const Settings& before) {
    const bool saved = settings.Profile().Change([&] {
        return std::ranges::all_of(rows,
                                   [&](const SettingRow& row) { return settings.SaveValue(row.index); });
    });
    if (saved) return Done();
    static_cast<Settings&>(settings) = before;
    return Refusal(kFailed, FormatText<Text::SettingNotSaved>(settings.Tree().Error()));
}

QJsonObject Set(const SettingRow& row, const QJsonValue& value, CCfgStore& settings) {
    const QString name = QLatin1String(row.name);
    const auto number = WholeNumber(value);
    if (!number) return Refusal(kUsage, FormatText<Text::SettingNoNumber>(name, AllowedValues(row)));
    if (!IsAllowed(row, *number))
        return Refusal(
            kUsage, FormatText<Text::SettingOutOfRange>(name, QString::number(*number), AllowedValues(row)));
    const Settings before = settings;
    PutSetting(settings, row, *number);
    return Save({&row, 1}, settings, before);
}

QJsonObject Reset(std::span<const SettingRow> rows, CCfgStore& settings) {
    const Settings before = settings;
    for (const SettingRow& row : rows) PutSetting(settings, row, row.preset);
    return Save(rows, settings, before);
}

}  // namespace

QJsonObject RunSettingCommand(const QJsonObject& command, CCfgStore& settings) {
    const QJsonValue name = command.value(QStringLiteral("name"));
    const bool isReset = command.value(QStringLiteral("reset")).toBool();
    if (isReset && name.isUndefined()) return Reset(SettingsTable(), settings);
    if (!name.isString()) return Refusal(kUsage, LoadText(Text::SettingNoName));
    const SettingRow* row = FindSetting(name.toString());
    if (!row) return Refusal(kNotFound, FormatText<Text::SettingUnknown>(name.toString()));
    if (isReset) return Reset({row, 1}, settings);
    return Set(*row, command.value(QStringLiteral("value")), settings);
}
