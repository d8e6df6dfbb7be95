#pragma once

#include "platform/sqlite/CRowListener.h"

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <vector>

struct sqlite3_stmt;

/// One change of a row, with what it takes to undo it. What the row became is known by its checksum alone:
/// undoing it reads the row first and writes down what that held.
struct RowOp {
    RowEvent event;
    int table;             ///< by number, as the writer counts them
    QByteArray key;        ///< of the row after the change, or of the one that is gone
    std::int64_t sum = 0;  ///< of the row after the change; 0 where it is gone
    QByteArray before;     ///< the row as it was, RowOpImage; empty where there was none

    bool operator==(const RowOp&) const = default;
};

/// The values of a row as bytes.
namespace RowOpImage {
void Append(QByteArray& image, sqlite3_value* value);
/// Binds the values to a statement from a place on, whose bytes must live as long as they are bound. How many
/// they were; nothing when these are no such bytes.
[[nodiscard]] std::optional<int> Bind(const QByteArray& image, sqlite3_stmt* statement, int first);
}  // namespace RowOpImage

/// Changes of rows in the order of their making, as blocks of bytes of about a megabyte.
class RowLog {
 public:
    static constexpr qsizetype kPart = 1 << 20;

    void Append(const RowOp& op);
    void Clear();
    [[nodiscard]] bool IsEmpty() const { return m_parts.empty(); }
    [[nodiscard]] std::int64_t Bytes() const { return m_bytes; }
    [[nodiscard]] const std::vector<QByteArray>& Parts() const { return m_parts; }

    /// The changes of a block, in their order; nothing when these are no such bytes.
    [[nodiscard]] static std::optional<std::vector<RowOp>> Read(const QByteArray& part);

 private:
    std::vector<QByteArray> m_parts;
    std::int64_t m_bytes = 0;
};
