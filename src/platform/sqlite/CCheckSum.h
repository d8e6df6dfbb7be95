#pragma once

#include <QByteArrayView>
#include <cstdint>

struct sqlite3;
struct sqlite3_value;

/// A checksum of the values of a row, one after another: it differs for any two rows that differ in the bytes
/// of one value (FNV-1a, 64 bits). It finds damage; it is no protection against people.
class CCheckSum {
 public:
    void AddNull() { AddKind('n'); }
    void AddInteger(std::int64_t value);
    /// The file keeps no sign of a zero.
    void AddReal(double value);
    void AddText(QByteArrayView utf8);
    void AddBlob(QByteArrayView bytes);
    /// A value of any type.
    void Add(sqlite3_value* value);
    [[nodiscard]] std::int64_t Value() const { return static_cast<std::int64_t>(m_sum); }

    /// The name of the function of statements that gives the checksum of its arguments.
    static constexpr char kFunction[] = "velmarch_checksum";
    /// Makes the function known to a connection: SQLite's result code.
    [[nodiscard]] static int Register(sqlite3* db);

 private:
    void AddKind(char kind) { AddBytes({&kind, 1}); }
    void AddBytes(QByteArrayView bytes);
    void AddNumber(std::uint64_t value);

    std::uint64_t m_sum = 0xCBF29CE484222325U;
};
