#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>

/// Tagged items one after another, little-endian: 4 bytes tag, 4 bytes payload length, payload. See
/// docs/byte-stream.md. Readers follow the order of the writer; scalar getters skip the tag unread. Reading
/// past the end or a length that doesn't fit gives 0 or an empty text, moves to the end and sets IsBroken:
/// damaged bytes never reach outside the buffer.
class ByteStream {
 public:
    ByteStream() = default;

    /// Makes room for so many bytes in all.
    void Reserve(qsizetype bytes) { m_buffer.reserve(bytes); }
    void PutByte(std::uint8_t value);
    void PutInt(std::int32_t value);
    void PutFloat(float value);
    void PutString(const QString& text);
    void PutBuffer(QByteArrayView bytes);

    [[nodiscard]] std::uint8_t GetByte();
    [[nodiscard]] std::int32_t GetInt();
    [[nodiscard]] float GetFloat();
    /// ansi: the payload is 8-bit text of the system's code page, at most 4086 characters; otherwise UTF-16.
    [[nodiscard]] QString GetString(bool ansi = false);
    /// The same, cut to a number of characters.
    [[nodiscard]] QString GetStringInto(int characters, bool ansi = false);
    /// False when the item isn't a buffer, has a size below 1 or doesn't fit.
    [[nodiscard]] bool GetBuffer(QByteArray& out);

    /// Whether so many items can be read from the beginning of some bytes, whatever is in them.
    [[nodiscard]] static bool HoldsItems(QByteArrayView bytes, int count);

    [[nodiscard]] bool AtEnd() const { return m_position >= m_buffer.size(); }
    [[nodiscard]] bool IsBroken() const { return m_broken; }
    void Rewind() {
        m_position = 0;
        m_broken = false;
    }

    void Attach(const QByteArray& buffer);
    /// Hands the buffer to the caller and leaves the stream empty.
    [[nodiscard]] QByteArray Release();
    [[nodiscard]] const QByteArray& Buffer() const { return m_buffer; }
    [[nodiscard]] int Length() const { return static_cast<int>(m_buffer.size()); }

 private:
    [[nodiscard]] QByteArrayView NextPayload();
    [[nodiscard]] char* MakeItem(std::int32_t tag, qsizetype bytes);
    void PutItem(std::int32_t tag, const void* payload, qsizetype bytes);

    QByteArray m_buffer;
    qsizetype m_position = 0;
    bool m_broken = false;
};
