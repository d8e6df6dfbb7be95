#pragma once

#include <QHash>
#include <QString>
#include <optional>

class CRecordStore;
struct FieldRow;

/// How many records hold each item of a pick list, deleted items and texts that never were one included.
/// Times and expenses that hold the same item count together.
class CItemUse {
 public:
    /// From the store as it is now: one walk over each table with a field that the list serves. Nothing, and
    /// the user told, when it can't be read.
    [[nodiscard]] static std::optional<CItemUse> Count(CRecordStore& store, int list);

    /// How many records hold what an item of the list shows.
    [[nodiscard]] int Of(const QString& item) const;

 private:
    [[nodiscard]] bool AddField(CRecordStore& store, const FieldRow& field);
    [[nodiscard]] QString KeyOf(const QString& text) const;

    bool m_holdsNumbers = false;
    QHash<QString, int> m_counts;
};
