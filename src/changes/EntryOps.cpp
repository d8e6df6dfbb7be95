#include "changes/EntryOps.h"

#include "changes/HistoryTables.h"
#include "config/CCfgStore.h"
#include "config/EntryCommand.h"
#include "platform/sqlite/CCheckSum.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr QLatin1String kPlace("place");
constexpr QLatin1String kValues("values");

using End = RowReverter::End;

QByteArray KeyOf(const EntryName& name) {
    return QJsonDocument(QJsonArray{name.key, name.entry}).toJson(QJsonDocument::Compact);
}

/// Of the values alone: an entry that was taken away and put back is the same one, wherever it stands.
std::int64_t SumOf(const EntryContent& content) {
    CCheckSum sum;
    sum.AddBlob(QJsonDocument(ToJson(content)).toJson(QJsonDocument::Compact));
    return sum.Value();
}

QByteArray ImageOf(const StoredEntry& stored) {
    const QJsonObject json{{kPlace, qint64{stored.place}}, {kValues, ToJson(stored.content)}};
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

std::optional<StoredEntry> StoredOf(const QByteArray& image) {
    const QJsonObject json = QJsonDocument::fromJson(image).object();
    auto content = ContentOf(json.value(kValues).toArray());
    if (!content || !json.value(kPlace).isDouble()) return std::nullopt;
    return StoredEntry{std::move(*content), json.value(kPlace).toInteger()};
}

}  // namespace

std::optional<RowOp> EntryOpOf(const EntryName& name, const std::optional<StoredEntry>& before,
                               const std::optional<StoredEntry>& after) {
    const bool isSame = before && after ? before->content == after->content : !before && !after;
    if (isSame) return std::nullopt;
    return RowOp{.event = !before  ? RowEvent::Added
                          : !after ? RowEvent::Deleted
                                   : RowEvent::Modified,
                 .table = static_cast<int>(HistoryTable::Entry),
                 .key = KeyOf(name),
                 .sum = after ? SumOf(after->content) : 0,
                 .before = before ? ImageOf(*before) : QByteArray()};
}

std::optional<EntryName> EntryNameOf(const RowOp& op) {
    const QJsonArray names = QJsonDocument::fromJson(op.key).array();
    if (static_cast<HistoryTable>(op.table) != HistoryTable::Entry || names.size() != 2) return std::nullopt;
    return EntryName{names[0].toString(), names[1].toString()};
}

End CheckEntry(const RowOp& op, CCfgStore& settings) {
    const auto name = EntryNameOf(op);
    if (!name) return End::Failed;
    static_cast<void>(settings.Tree().TakeReadFailure());
    const auto stored = settings.FindEntry(name->key, name->entry);
    if (settings.Tree().TakeReadFailure()) return End::Failed;
    const bool isSame = stored && SumOf(stored->content) == op.sum;
    return (op.event == RowEvent::Deleted ? !stored : isSame) ? End::Done : End::Touched;
}

End RevertEntry(const RowOp& op, CCfgStore& settings) {
    if (const End end = CheckEntry(op, settings); end != End::Done) return end;
    const EntryName name = *EntryNameOf(op);
    if (op.event == RowEvent::Added)
        return settings.DeleteEntry(name.key, name.entry) ? End::Done : End::Failed;
    const auto former = StoredOf(op.before);
    return former && settings.PutEntryBack(name.key, name.entry, *former) ? End::Done : End::Failed;
}
