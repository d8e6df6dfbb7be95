#include "app/OutsideChange.h"

#include "records/KindNames.h"

#include <QJsonArray>

namespace {
constexpr QLatin1String kKind("kind");
constexpr QLatin1String kIds("ids");
constexpr QLatin1String kLists("lists");
}  // namespace

InstanceMessage OutsideChange::ToMessage() const {
    QJsonObject json;
    if (kind) json.insert(kKind, KindName(*kind));
    if (!ids.isEmpty()) json.insert(kIds, QJsonArray::fromStringList(ids));
    if (hasLists) json.insert(kLists, true);
    return {InstanceCommand::SyncEnd, json};
}

OutsideChange OutsideChange::FromJson(const QJsonObject& json) {
    OutsideChange change{KindNamed(json.value(kKind).toString()), {}, json.value(kLists).toBool()};
    for (const auto& id : json.value(kIds).toArray()) change.ids.append(id.toString());
    return change;
}
