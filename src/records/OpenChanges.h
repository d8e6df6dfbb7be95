#pragma once

#include "platform/sqlite/VARIANT.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

class CSqliteFile;
class CStoreTable;

/// The changes that aren't durable yet, in their order: after a commit that failed and took the transaction
/// with it they are made once more. Up to 4096 are kept; a larger batch is all or nothing.
class OpenChanges {
 public:
    static constexpr std::size_t kMost = 4096;

    using Table = std::shared_ptr<const CStoreTable>;
    void NoteInsert(const Table& table, const QString& key, const std::vector<VARIANT>& values);
    void NoteModify(const Table& table, const QString& key, const std::vector<VARIANT>& values);
    void NoteStatement(const QByteArray& sql);
    void Clear();

    [[nodiscard]] bool IsEmpty() const { return m_changes.empty() && !m_isTooLong; }
    /// Whether all changes are known, so that they can be made again.
    [[nodiscard]] bool CanRepeat() const { return !m_isTooLong; }
    /// Makes those that the store lacks, in the open transaction: a row that is there isn't added twice.
    [[nodiscard]] bool Repeat(CSqliteFile& file) const;

 private:
    enum class Kind { Insert, Modify, Statement };
    struct Change {
        Kind kind;
        Table table;
        QString key;
        std::vector<VARIANT> values;
        QByteArray sql;
    };
    void Note(Change change);
    [[nodiscard]] static bool Repeat(CSqliteFile& file, const Change& change);

    std::vector<Change> m_changes;
    bool m_isTooLong = false;
};
