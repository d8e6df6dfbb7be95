#include "entry/DefaultsCommand.h"

#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "lang/FormatText.h"
#include "records/KindNames.h"
#include "records/RecordFactory.h"

namespace {

constexpr QLatin1String kDefaults("defaults");
constexpr QLatin1String kAction("action");
constexpr QLatin1String kName("name");
constexpr QLatin1String kRecord("record");
constexpr QLatin1String kTo("to");

struct ActionRow {
    DefaultsAction action;
    QLatin1String name;
};
constexpr ActionRow kActions[] = {
    {DefaultsAction::Write, QLatin1String("write")},
    {DefaultsAction::Delete, QLatin1String("delete")},
    {DefaultsAction::Rename, QLatin1String("rename")},
};

InstanceReply NotUnderstood() {
    return InstanceReply::Refused(ReplyReason::NotUnderstood, LoadText(Text::RequestUnknown));
}

InstanceReply Stored(bool isDone, CCfgStore& settings) {
    if (isDone) return InstanceReply::Done();
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::DefaultNotSaved>(settings.Tree().Error()));
}

InstanceReply Write(const DefaultsRequest& request, NamedDefaults& defaults, CCfgStore& settings) {
    const std::unique_ptr<CVORec> record = NewRecord(request.kind);
    if (!record->FromBytes(request.record, false)) return NotUnderstood();
    // Said here, as a window would say it in a box of its own.
    if (request.record.size() > CCfgStore::kMostOfValue)
        return InstanceReply::Refused(
            ReplyReason::Failed, FormatText<Text::DefaultTooLarge>(static_cast<int>(request.record.size()),
                                                                   CCfgStore::kMostOfValue));
    return Stored(defaults.Write(request.name, *record), settings);
}

}  // namespace

QJsonObject DefaultsRequest::ToJson() const {
    QJsonObject json{{kDefaults, KindName(kind)}, {kName, name}};
    for (const ActionRow& row : kActions)
        if (row.action == action) json.insert(kAction, row.name);
    if (!record.isEmpty()) json.insert(kRecord, QString::fromLatin1(record.toBase64()));
    if (!to.isEmpty()) json.insert(kTo, to);
    return json;
}

bool DefaultsRequest::IsIn(const QJsonObject& json) {
    return json.contains(kDefaults);
}

std::optional<DefaultsRequest> DefaultsRequest::FromJson(const QJsonObject& json) {
    const auto kind = KindNamed(json.value(kDefaults).toString());
    const QString action = json.value(kAction).toString(), name = json.value(kName).toString();
    for (const ActionRow& row : kActions)
        if (kind && row.name == action)
            return DefaultsRequest{*kind, row.action, name,
                                   QByteArray::fromBase64(json.value(kRecord).toString().toLatin1()),
                                   json.value(kTo).toString()};
    return std::nullopt;
}

InstanceReply RunDefaultsRequest(const DefaultsRequest& request, CCfgStore& settings, const CClock& clock) {
    if (request.name.isEmpty() || NamedDefaults::LooksReserved(request.name)) return NotUnderstood();
    NamedDefaults defaults(settings, clock, ModeOf(request.kind));
    if (request.action == DefaultsAction::Write) return Write(request, defaults, settings);
    const auto stored = defaults.FindName(request.name);
    if (!stored)
        return InstanceReply::Refused(ReplyReason::NotFound,
                                      FormatText<Text::CliNoSuchDefault>(request.name));
    return Stored(settings.Profile().Change([&] {
        return request.action == DefaultsAction::Delete ? defaults.Delete(*stored)
                                                        : defaults.Rename(*stored, request.to);
    }),
                  settings);
}
