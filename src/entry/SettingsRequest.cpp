#include "entry/SettingsRequest.h"

#include "lang/LoadText.h"

namespace {

/// Carries out each kind of change.
struct Runner {
    CCfgStore& settings;
    const CClock& clock;

    InstanceReply operator()(const SettingRequest& request) const {
        return RunSettingRequest(request, settings);
    }
    InstanceReply operator()(const ColumnRequest& request) const {
        return RunColumnRequest(request, settings);
    }
    InstanceReply operator()(const DefaultsRequest& request) const {
        return RunDefaultsRequest(request, settings, clock);
    }
    InstanceReply operator()(const EntryRequest& request) const { return RunEntryRequest(request, settings); }
};

std::optional<SettingsRequest> FromJson(const QJsonObject& json) {
    if (DefaultsRequest::IsIn(json)) return DefaultsRequest::FromJson(json);
    if (ColumnRequest::IsIn(json)) return ColumnRequest::FromJson(json);
    if (EntryRequest::IsIn(json)) return EntryRequest::FromJson(json);
    return SettingRequest::FromJson(json);
}

}  // namespace

InstanceMessage ToMessage(const SettingsRequest& request) {
    return {InstanceCommand::Setting, std::visit([](const auto& one) { return one.ToJson(); }, request)};
}

InstanceReply RunSettingsRequest(const SettingsRequest& request, CCfgStore& settings, const CClock& clock) {
    return std::visit(Runner{settings, clock}, request);
}

InstanceReply RunSettingsMessage(const QJsonObject& arguments, CCfgStore& settings, const CClock& clock) {
    const auto request = FromJson(arguments);
    if (request) return RunSettingsRequest(*request, settings, clock);
    return InstanceReply::Refused(ReplyReason::NotUnderstood, LoadText(Text::RequestUnknown));
}
