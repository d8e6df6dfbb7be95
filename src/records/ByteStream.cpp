#include "records/ByteStream.h"

#include "platform/host/CodePage.h"

#include <QtEndian>
#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

namespace {

enum Tag : std::int32_t { ByteTag = 0, IntTag = 1, StringTag = 2, FloatTag = 5, BufferTag = 6 };

constexpr qsizetype kLengthOffset = 4;
constexpr qsizetype kPayloadOffset = 8;
/// The greatest number of characters of a text in 8-bit form.
constexpr int kMaxAnsi = 4086;

/// Of the item at the beginning; -1 where there is none, or not all of it.
std::int32_t PayloadLength(QByteArrayView rest) {
    if (rest.size() < kPayloadOffset) return -1;
    const auto length = qFromLittleEndian<std::int32_t>(rest.data() + kLengthOffset);
    return length > rest.size() - kPayloadOffset ? -1 : length;
}

/// A number from the start of a payload; what the payload lacks counts as 0.
template <class Number>
Number NumberFrom(QByteArrayView payload) {
    std::make_unsigned_t<Number> raw = 0;
    const qsizetype bytes = std::min<qsizetype>(payload.size(), sizeof raw);
    if (bytes > 0) std::memcpy(&raw, payload.data(), static_cast<std::size_t>(bytes));
    return static_cast<Number>(qFromLittleEndian(raw));
}

QString Utf16From(QByteArrayView payload) {
    if (payload.size() < 2) return {};
    QString text(payload.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(payload.data(), text.size(), text.data());
    return text;
}

}  // namespace

/// Room for an item; where its payload goes.
char* ByteStream::MakeItem(std::int32_t tag, qsizetype bytes) {
    const qsizetype start = m_buffer.size();
    m_buffer.resize(start + kPayloadOffset + bytes);
    char* item = m_buffer.data() + start;
    qToLittleEndian(tag, item);
    qToLittleEndian(static_cast<std::int32_t>(bytes), item + kLengthOffset);
    return item + kPayloadOffset;
}

void ByteStream::PutItem(std::int32_t tag, const void* payload, qsizetype bytes) {
    char* to = MakeItem(tag, bytes);
    if (bytes > 0) std::memcpy(to, payload, static_cast<std::size_t>(bytes));
}

void ByteStream::PutByte(std::uint8_t value) {
    PutItem(ByteTag, &value, sizeof value);
}

void ByteStream::PutInt(std::int32_t value) {
    const std::int32_t raw = qToLittleEndian(value);
    PutItem(IntTag, &raw, sizeof raw);
}

void ByteStream::PutFloat(float value) {
    const std::uint32_t raw = qToLittleEndian(std::bit_cast<std::uint32_t>(value));
    PutItem(FloatTag, &raw, sizeof raw);
}

void ByteStream::PutString(const QString& text) {
    qToLittleEndian<char16_t>(text.utf16(), text.size(), MakeItem(StringTag, text.size() * 2));
}

bool ByteStream::HoldsItems(QByteArrayView bytes, int count) {
    for (; count > 0; --count) {
        const std::int32_t length = PayloadLength(bytes);
        if (length < 0) return false;
        bytes = bytes.sliced(kPayloadOffset + length);
    }
    return true;
}

void ByteStream::PutBuffer(QByteArrayView bytes) {
    PutItem(BufferTag, bytes.data(), bytes.size());
}

QByteArrayView ByteStream::NextPayload() {
    const QByteArrayView rest = QByteArrayView(m_buffer).sliced(m_position);
    const std::int32_t length = PayloadLength(rest);
    if (length < 0) {
        m_position = m_buffer.size();
        m_broken = true;
        return {};
    }
    m_position += kPayloadOffset + length;
    return rest.sliced(kPayloadOffset, length);
}

std::uint8_t ByteStream::GetByte() {
    return NumberFrom<std::uint8_t>(NextPayload());
}

std::int32_t ByteStream::GetInt() {
    return NumberFrom<std::int32_t>(NextPayload());
}

float ByteStream::GetFloat() {
    return std::bit_cast<float>(NumberFrom<std::uint32_t>(NextPayload()));
}

QString ByteStream::GetString(bool ansi) {
    const QByteArrayView payload = NextPayload();
    if (!ansi) return Utf16From(payload);
    return FromCodePage(payload).left(kMaxAnsi);
}

QString ByteStream::GetStringInto(int characters, bool ansi) {
    return GetString(ansi).left(characters);
}

bool ByteStream::GetBuffer(QByteArray& out) {
    out.clear();
    const QByteArrayView rest = QByteArrayView(m_buffer).sliced(m_position);
    if (rest.size() < kLengthOffset || qFromLittleEndian<std::int32_t>(rest.data()) != BufferTag)
        return false;
    const QByteArrayView payload = NextPayload();
    if (payload.isEmpty()) return false;
    out = payload.toByteArray();
    return true;
}

void ByteStream::Attach(const QByteArray& buffer) {
    m_buffer = buffer;
    Rewind();
}

QByteArray ByteStream::Release() {
    QByteArray out;
    out.swap(m_buffer);
    Rewind();
    return out;
}
