#include "platform/sqlite/CCheckSum.h"

#include <sqlite3.h>

#include <array>
#include <bit>
#include <span>

namespace {

constexpr std::uint64_t kPrime = 0x100000001B3U;
/// What a byte of zero does is to multiply: a number's leading zeros are one multiplication. Most numbers of
/// a row are small, and a row has two dozen of them.
constexpr std::array kPowers = [] {
    std::array<std::uint64_t, sizeof(std::uint64_t) + 1> powers{1};
    for (std::size_t zeros = 1; zeros < powers.size(); ++zeros) powers[zeros] = powers[zeros - 1] * kPrime;
    return powers;
}();

QByteArrayView BytesOf(sqlite3_value* value, const void* bytes) {
    return {static_cast<const char*>(bytes), sqlite3_value_bytes(value)};
}

void SumOfArguments(sqlite3_context* context, int count, sqlite3_value** values) {
    CCheckSum sum;
    for (sqlite3_value* value : std::span(values, static_cast<std::size_t>(count))) sum.Add(value);
    sqlite3_result_int64(context, sum.Value());
}

}  // namespace

void CCheckSum::AddBytes(QByteArrayView bytes) {
    for (const char byte : bytes) m_sum = (m_sum ^ static_cast<unsigned char>(byte)) * kPrime;
}

/// The low byte first.
void CCheckSum::AddNumber(std::uint64_t value) {
    std::size_t zeros = sizeof value;
    for (; value != 0; value >>= 8U, --zeros) m_sum = (m_sum ^ (value & 0xFFU)) * kPrime;
    m_sum *= kPowers[zeros];
}

void CCheckSum::AddInteger(std::int64_t value) {
    AddKind('i');
    AddNumber(static_cast<std::uint64_t>(value));
}

void CCheckSum::AddReal(double value) {
    AddKind('r');
    AddNumber(value == 0 ? 0 : std::bit_cast<std::uint64_t>(value));
}

void CCheckSum::AddText(QByteArrayView utf8) {
    AddKind('t');
    AddNumber(static_cast<std::uint64_t>(utf8.size()));
    AddBytes(utf8);
}

void CCheckSum::AddBlob(QByteArrayView bytes) {
    AddKind('b');
    AddNumber(static_cast<std::uint64_t>(bytes.size()));
    AddBytes(bytes);
}

void CCheckSum::Add(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return AddInteger(sqlite3_value_int64(value));
        case SQLITE_FLOAT:
            return AddReal(sqlite3_value_double(value));
        case SQLITE_TEXT:
            return AddText(BytesOf(value, sqlite3_value_text(value)));
        case SQLITE_BLOB:
            return AddBlob(BytesOf(value, sqlite3_value_blob(value)));
        default:
            return AddNull();
    }
}

int CCheckSum::Register(sqlite3* db) {
    return sqlite3_create_function_v2(db, kFunction, -1,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                                      SumOfArguments, nullptr, nullptr, nullptr);
}
