#pragma once

#include "config/ColumnCommand.h"
#include "config/EntryCommand.h"
#include "config/SettingCommand.h"
#include "entry/DefaultsCommand.h"

#include <variant>

/// Any change of what the settings hold: a setting, columns, stored defaults, definitions of reports,
/// queries.
using SettingsRequest = std::variant<SettingRequest, ColumnRequest, DefaultsRequest, EntryRequest>;

[[nodiscard]] InstanceMessage ToMessage(const SettingsRequest& request);
[[nodiscard]] InstanceReply RunSettingsRequest(const SettingsRequest& request, CCfgStore& settings,
                                               const CClock& clock);
/// Carries out one that has come as JSON. One that can't be read is refused as not understood.
[[nodiscard]] InstanceReply RunSettingsMessage(const QJsonObject& arguments, CCfgStore& settings,
                                               const CClock& clock);
