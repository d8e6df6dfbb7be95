#include "config/SettingCommand.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QJsonValue>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr QLatin1String kName("name");
constexpr QLatin1String kValue("value");
constexpr QLatin1String kReset("reset");

/// A JSON number without a fraction, within what a setting can hold.
std::optional<std::int64_t> WholeNumber(const QJsonValue& value) {
    constexpr double kMost = 4294967295.0;
    if (!value.isDouble()) return std::nullopt;
    const double number = value.toDouble();
    if (std::trunc(number) != number || std::abs(number) > kMost) return std::nullopt;
    return static_cast<std::int64_t>(number);
}

/// Saves these settings as one change. On failure memory takes back what it held before.
InstanceReply Save(std::span<const SettingRow> rows, CCfgStore& settings, const Settings& before) {
    const bool saved = settings.Profile().Change([&] {
        return std::ranges::all_of(rows,
                                   [&](const SettingRow& row) { return settings.SaveValue(row.index); });
    });
    if (saved) return InstanceReply::Done();
    static_cast<Settings&>(settings) = before;
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::SettingNotSaved>(settings.Tree().Error()));
}

InstanceReply Set(const SettingRow& row, std::optional<std::int64_t> number, CCfgStore& settings) {
    const QString name = QLatin1String(row.name);
    if (!number)
        return InstanceReply::Refused(ReplyReason::NotUnderstood,
                                      FormatText<Text::SettingNoNumber>(name, AllowedValues(row)));
    if (!IsAllowed(row, *number))
        return InstanceReply::Refused(
            ReplyReason::NotUnderstood,
            FormatText<Text::SettingOutOfRange>(name, QString::number(*number), AllowedValues(row)));
    const Settings before = settings;
    PutSetting(settings, row, *number);
    return Save({&row, 1}, settings, before);
}

InstanceReply Reset(std::span<const SettingRow> rows, CCfgStore& settings) {
    const Settings before = settings;
    for (const SettingRow& row : rows) PutSetting(settings, row, row.preset);
    return Save(rows, settings, before);
}

}  // namespace

QJsonObject SettingRequest::ToJson() const {
    QJsonObject json;
    if (name) json.insert(kName, *name);
    if (value) json.insert(kValue, static_cast<qint64>(*value));
    if (isReset) json.insert(kReset, true);
    return json;
}

std::optional<SettingRequest> SettingRequest::FromJson(const QJsonObject& json) {
    const QJsonValue name = json.value(kName);
    if (!name.isUndefined() && !name.isString()) return std::nullopt;
    return SettingRequest{name.isString() ? std::optional(name.toString()) : std::nullopt,
                          WholeNumber(json.value(kValue)), json.value(kReset).toBool()};
}

InstanceReply RunSettingRequest(const SettingRequest& request, CCfgStore& settings) {
    if (!request.name && request.isReset) return Reset(SettingsTable(), settings);
    if (!request.name)
        return InstanceReply::Refused(ReplyReason::NotUnderstood, LoadText(Text::SettingNoName));
    const SettingRow* row = FindSetting(*request.name);
    if (!row)
        return InstanceReply::Refused(ReplyReason::NotFound, FormatText<Text::SettingUnknown>(*request.name));
    return request.isReset ? Reset({row, 1}, settings) : Set(*row, request.value, settings);
}
