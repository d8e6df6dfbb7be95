#include "config/EntryCommand.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"

namespace {

constexpr QLatin1String kKey("key");
constexpr QLatin1String kEntry("entry");
constexpr QLatin1String kFormer("former");
constexpr QLatin1String kValues("values");
constexpr QLatin1String kName("name");
constexpr QLatin1String kText("text");
constexpr QLatin1String kBytes("bytes");
constexpr QLatin1String kNumber("number");

qsizetype SizeOf(const SettingsValue& value) {
    if (const auto* text = std::get_if<QString>(&value)) return text->size();
    const auto* bytes = std::get_if<QByteArray>(&value);
    return bytes ? bytes->size() : 0;
}

/// The first value that can't be written, in words; empty when all can.
QString ValueProblem(const EntryContent& content, const CCfgStore& settings) {
    for (const auto& [name, value] : content.Values())
        if (QString problem = settings.SizeProblem(name, SizeOf(value)); !problem.isEmpty()) return problem;
    return {};
}

QJsonObject ToJson(const EntryContent::Value& value) {
    QJsonObject json{{kName, value.first}};
    if (const auto* number = std::get_if<std::int32_t>(&value.second)) json.insert(kNumber, *number);
    if (const auto* text = std::get_if<QString>(&value.second)) json.insert(kText, *text);
    if (const auto* bytes = std::get_if<QByteArray>(&value.second))
        json.insert(kBytes, QString::fromLatin1(bytes->toBase64()));
    return json;
}

std::optional<SettingsValue> ValueOf(const QJsonObject& json) {
    if (json.value(kText).isString()) return json.value(kText).toString();
    if (json.value(kNumber).isDouble()) return json.value(kNumber).toInt();
    if (!json.value(kBytes).isString()) return std::nullopt;
    return QByteArray::fromBase64(json.value(kBytes).toString().toLatin1());
}

bool Change(const EntryRequest& request, CCfgStore& settings) {
    if (!request.former.isEmpty() && !settings.DeleteEntry(request.key, request.former)) return false;
    return request.entry.isEmpty() || settings.WriteEntryContent(request.key, request.entry, request.values);
}

}  // namespace

QJsonArray ToJson(const EntryContent& content) {
    QJsonArray array;
    for (const EntryContent::Value& value : content.Values()) array.append(ToJson(value));
    return array;
}

std::optional<EntryContent> ContentOf(const QJsonArray& values) {
    EntryContent content;
    for (const QJsonValue one : values) {
        const QString name = one.toObject().value(kName).toString();
        const auto value = ValueOf(one.toObject());
        if (name.isEmpty() || !value) return std::nullopt;
        content.Add(name, *value);
    }
    return content;
}

QJsonObject EntryRequest::ToJson() const {
    return {{kKey, key}, {kEntry, entry}, {kFormer, former}, {kValues, ::ToJson(values)}};
}

bool EntryRequest::IsIn(const QJsonObject& json) {
    return json.contains(kEntry);
}

std::optional<EntryRequest> EntryRequest::FromJson(const QJsonObject& json) {
    EntryRequest request{.key = json.value(kKey).toString(),
                         .entry = json.value(kEntry).toString(),
                         .former = json.value(kFormer).toString()};
    const QJsonArray values = json.value(kValues).toArray();
    auto content = ContentOf(values);
    if (request.key.isEmpty() || (request.entry.isEmpty() && !values.isEmpty()) || !content)
        return std::nullopt;
    request.values = std::move(*content);
    return request;
}

InstanceReply RunEntryRequest(const EntryRequest& request, CCfgStore& settings) {
    if (const QString problem = ValueProblem(request.values, settings); !problem.isEmpty())
        return InstanceReply::Refused(ReplyReason::Failed, problem);
    if (!request.former.isEmpty() && !settings.HasEntry(request.key, request.former))
        return InstanceReply::Refused(ReplyReason::NotFound, FormatText<Text::EntryGone>(request.former));
    if (settings.Tree().Change([&] { return Change(request, settings); })) return InstanceReply::Done();
    return InstanceReply::Refused(ReplyReason::Failed,
                                  FormatText<Text::EntryNotSaved>(settings.Tree().Error()));
}

bool ChangeEntry(const EntryRequest& request, CCfgStore& settings) {
    for (const auto& [name, value] : request.values.Values())
        if (!settings.HasFittingSize(name, SizeOf(value))) return false;
    return bool(RunEntryRequest(request, settings));
}
