#include "records/RowOps.h"

#include <sqlite3.h>

#include <QtEndian>
#include <bit>

namespace {

/// Seven bits a byte, the low ones first, the eighth says that more follow.
void PutNumber(QByteArray& out, std::uint64_t number) {
    for (; number >= 0x80U; number >>= 7U) out.append(static_cast<char>((number & 0x7FU) | 0x80U));
    out.append(static_cast<char>(number));
}

void PutFixed(QByteArray& out, std::uint64_t number) {
    char bytes[sizeof number];
    qToLittleEndian(number, bytes);
    out.append(bytes, sizeof bytes);
}

void PutBytes(QByteArray& out, const void* bytes, int size) {
    PutNumber(out, static_cast<std::uint64_t>(size));
    out.append(static_cast<const char*>(bytes), size);
}

/// Small numbers of either sign take one byte: 0, -1, 1, -2 become 0, 1, 2, 3.
std::uint64_t Folded(std::int64_t number) {
    return (static_cast<std::uint64_t>(number) << 1U) ^ (number < 0 ? ~std::uint64_t{0} : 0U);
}

std::int64_t Unfolded(std::uint64_t number) {
    return static_cast<std::int64_t>((number >> 1U) ^ ((number & 1U) != 0 ? ~std::uint64_t{0} : 0U));
}

/// Reads what the functions above have written; bad once anything is missing.
class Reader {
 public:
    explicit Reader(const QByteArray& bytes) : m_next(bytes.constData()), m_end(m_next + bytes.size()) {}

    [[nodiscard]] bool IsGood() const { return m_isGood; }
    [[nodiscard]] bool IsAtEnd() const { return m_next == m_end; }
    std::uint8_t Byte() { return Has(1) ? static_cast<std::uint8_t>(*m_next++) : std::uint8_t{0}; }
    std::uint64_t Number() {
        std::uint64_t number = 0;
        for (unsigned shift = 0; shift < 64U; shift += 7U) {
            const std::uint8_t byte = Byte();
            number |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
            if ((byte & 0x80U) == 0) return number;
        }
        m_isGood = false;
        return 0;
    }
    std::uint64_t Fixed() {
        if (!Has(sizeof(std::uint64_t))) return 0;
        const auto number = qFromLittleEndian<std::uint64_t>(m_next);
        m_next += sizeof number;
        return number;
    }
    /// Of the bytes that are read; they aren't copied.
    QByteArrayView Bytes() {
        const auto size = static_cast<qsizetype>(Number());
        if (size < 0 || !Has(size)) return {};
        const QByteArrayView bytes(m_next, size);
        m_next += size;
        return bytes;
    }

 private:
    bool Has(qsizetype size) {
        m_isGood = m_isGood && m_end - m_next >= size;
        return m_isGood;
    }

    const char* m_next;
    const char* m_end;
    bool m_isGood = true;
};

RowOp ReadOp(Reader& reader) {
    RowOp op{.event = static_cast<RowEvent>(reader.Byte()), .table = reader.Byte(), .key = {}, .before = {}};
    op.key = reader.Bytes().toByteArray();
    op.sum = static_cast<std::int64_t>(reader.Fixed());
    op.before = reader.Bytes().toByteArray();
    return op;
}

bool IsEvent(RowEvent event) {
    return event == RowEvent::Added || event == RowEvent::Modified || event == RowEvent::Deleted;
}

int BindOne(Reader& reader, sqlite3_stmt* statement, int place) {
    switch (reader.Byte()) {
        case SQLITE_INTEGER:
            return sqlite3_bind_int64(statement, place, Unfolded(reader.Number()));
        case SQLITE_FLOAT:
            return sqlite3_bind_double(statement, place, std::bit_cast<double>(reader.Fixed()));
        case SQLITE_TEXT: {
            const QByteArrayView text = reader.Bytes();
            return sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()),
                                     SQLITE_STATIC);
        }
        case SQLITE_BLOB: {
            const QByteArrayView blob = reader.Bytes();
            return sqlite3_bind_blob(statement, place, blob.data(), static_cast<int>(blob.size()),
                                     SQLITE_STATIC);
        }
        case SQLITE_NULL:
            return sqlite3_bind_null(statement, place);
        default:
            return SQLITE_MISMATCH;
    }
}

}  // namespace

void RowOpImage::Append(QByteArray& image, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    image.append(static_cast<char>(type));
    switch (type) {
        case SQLITE_INTEGER:
            return PutNumber(image, Folded(sqlite3_value_int64(value)));
        case SQLITE_FLOAT:
            return PutFixed(image, std::bit_cast<std::uint64_t>(sqlite3_value_double(value)));
        case SQLITE_TEXT: {
            const void* text = sqlite3_value_text(value);
            return PutBytes(image, text, sqlite3_value_bytes(value));
        }
        case SQLITE_BLOB: {
            const void* blob = sqlite3_value_blob(value);
            return PutBytes(image, blob, sqlite3_value_bytes(value));
        }
        default:
            break;
    }
}

std::optional<int> RowOpImage::Bind(const QByteArray& image, sqlite3_stmt* statement, int first) {
    Reader reader(image);
    int place = first;
    while (reader.IsGood() && !reader.IsAtEnd())
        if (BindOne(reader, statement, place++) != SQLITE_OK) return std::nullopt;
    return reader.IsGood() ? std::optional(place - first) : std::nullopt;
}

void RowLog::Append(const RowOp& op) {
    if (m_parts.empty() || m_parts.back().size() >= kPart) m_parts.emplace_back();
    QByteArray& part = m_parts.back();
    const qsizetype former = part.size();
    part.append(static_cast<char>(op.event));
    part.append(static_cast<char>(op.table));
    PutBytes(part, op.key.constData(), static_cast<int>(op.key.size()));
    PutFixed(part, static_cast<std::uint64_t>(op.sum));
    PutBytes(part, op.before.constData(), static_cast<int>(op.before.size()));
    m_bytes += part.size() - former;
}

void RowLog::Clear() {
    m_parts.clear();
    m_bytes = 0;
}

std::optional<std::vector<RowOp>> RowLog::Read(const QByteArray& part) {
    std::vector<RowOp> ops;
    Reader reader(part);
    while (!reader.IsAtEnd()) {
        ops.push_back(ReadOp(reader));
        if (!reader.IsGood() || !IsEvent(ops.back().event)) return std::nullopt;
    }
    return ops;
}
