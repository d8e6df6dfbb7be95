#include "platform/host/TextCoder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <initializer_list>

#include <iconv.h>

namespace {

constexpr char kUnits[] = "UTF-16LE";

QByteArrayView UnitsOf(const QString& text) {
    return {reinterpret_cast<const char*>(text.constData()), text.size() * 2};
}

void AppendUnits(const QByteArray& units, QString& text) {
    text.append(reinterpret_cast<const QChar*>(units.constData()), units.size() / 2);
}

bool IsNamed(const QByteArray& encoding, std::initializer_list<const char*> names) {
    return std::ranges::any_of(
        names, [&](const char* name) { return encoding.compare(name, Qt::CaseInsensitive) == 0; });
}

bool IsAscii(char byte) {
    return static_cast<signed char>(byte) >= 0;
}

/// Appends the bytes up to the first that is no ASCII: nearly all of most files, and the C library's
/// conversion takes many times as long.
void TakeAscii(QByteArrayView& bytes, QString& text) {
    const auto count = std::ranges::find_if_not(bytes, IsAscii) - bytes.begin();
    text.append(QLatin1String(bytes.data(), count));
    bytes = bytes.sliced(count);
}

/// A character outside the first plane is a pair of 16-bit units.
qsizetype CharacterBytes(QByteArrayView units) {
    const bool isPair = units.size() >= 4 && (static_cast<unsigned char>(units[1]) & 0xFC) == 0xD8 &&
                        (static_cast<unsigned char>(units[3]) & 0xFC) == 0xDC;
    return isPair ? 4 : std::min<qsizetype>(2, units.size());
}

}  // namespace

bool IsEncoding(const QByteArray& name) {
    const bool isPlain =
        !name.isEmpty() && std::ranges::all_of(name, [](char sign) { return sign > ' ' && sign != '/'; });
    return isPlain && CConverter(kUnits, name).IsOpen() && CConverter(name, kUnits).IsOpen();
}

bool IsOneByte(char16_t character, const QByteArray& encoding) {
    if (character < 0x80) return true;
    CTextEncoder encoder(encoding);
    return encoder.IsOpen() && encoder.Encode(QString(QChar(character))).size() == 1 &&
           encoder.ReplacedCount() == 0;
}

// --- The conversion

CConverter::CConverter(const QByteArray& to, const QByteArray& from)
    : m_handle(::iconv_open(to.constData(), from.constData())) {}

CConverter::~CConverter() {
    if (IsOpen()) ::iconv_close(m_handle);
}

bool CConverter::IsOpen() const {
    return reinterpret_cast<std::intptr_t>(m_handle) != -1;
}

CConverter::End CConverter::Run(QByteArrayView& source, QByteArray& result) {
    std::array<char, 16384> buffer;
    while (!source.isEmpty()) {
        char* in = const_cast<char*>(source.data());  // iconv's signature; it doesn't write there
        auto left = static_cast<std::size_t>(source.size());
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const bool stopped = ::iconv(m_handle, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
        const int reason = errno;
        result.append(buffer.data(), out - buffer.data());
        source = source.last(static_cast<qsizetype>(left));
        if (!stopped || reason == E2BIG) continue;
        return reason == EINVAL ? End::Cut : End::Meaningless;
    }
    return End::Done;
}

// --- Bytes to text

CTextDecoder::CTextDecoder(const QByteArray& encoding, Meaningless meaningless)
    : m_converter(kUnits, encoding),
      m_meaningless(meaningless),
      m_beginsAscii(IsNamed(encoding, {"utf-8", "utf8", "windows-1252"})) {}

bool CTextDecoder::Decode(QByteArrayView bytes, QString& text) {
    const QByteArray joined = m_rest.isEmpty() ? QByteArray() : m_rest + bytes.toByteArray();
    QByteArrayView left = m_rest.isEmpty() ? bytes : QByteArrayView(joined);
    while (true) {
        const CConverter::End end = m_beginsAscii ? Mixed(left, text) : Convert(left, text);
        if (end == CConverter::End::Meaningless && Pass(left, text)) continue;
        m_rest = left.toByteArray();
        return end != CConverter::End::Meaningless;
    }
}

CConverter::End CTextDecoder::Convert(QByteArrayView& bytes, QString& text) {
    QByteArray units;
    const CConverter::End end = m_converter.Run(bytes, units);
    AppendUnits(units, text);
    return end;
}

/// ASCII in turns with what the C library converts. No character goes on behind a byte of ASCII: one that is
/// cut off there means nothing.
CConverter::End CTextDecoder::Mixed(QByteArrayView& bytes, QString& text) {
    while (true) {
        TakeAscii(bytes, text);
        const auto count = std::ranges::find_if(bytes, IsAscii) - bytes.begin();
        QByteArrayView other = bytes.first(count);
        const CConverter::End end = Convert(other, text);
        const bool isFollowed = count < bytes.size();
        bytes = bytes.sliced(count - other.size());
        if (end == CConverter::End::Cut && isFollowed) return CConverter::End::Meaningless;
        if (end != CConverter::End::Done || !isFollowed) return end;
    }
}

/// Puts what stands for it in the place of a byte that means nothing. False where it is refused.
bool CTextDecoder::Pass(QByteArrayView& bytes, QString& text) const {
    if (m_meaningless == Meaningless::Refused) return false;
    text.append(m_meaningless == Meaningless::Replaced
                    ? QChar(0xFFFD)
                    : QChar(static_cast<char16_t>(static_cast<unsigned char>(bytes.front()))));
    bytes = bytes.sliced(1);
    return true;
}

bool CTextDecoder::Finish(QString& text) {
    QByteArrayView left = m_rest;
    while (!left.isEmpty())
        if (!Pass(left, text)) return false;
    m_rest.clear();
    return true;
}

// --- Text to bytes

/// Where an encoding writes a byte order mark it stands before the first character alone.
CTextEncoder::CTextEncoder(const QByteArray& encoding)
    : m_converter(encoding, kUnits), m_isUtf8(IsNamed(encoding, {"utf-8", "utf8"})) {
    if (!IsOpen()) return;
    for (int time = 0; time < 2; ++time) {
        m_questionMark.clear();
        QByteArrayView units("?\0", 2);
        static_cast<void>(m_converter.Run(units, m_questionMark));
    }
}

/// Half a pair counts as a character that UTF-8 lacks.
QByteArray CTextEncoder::Encode(const QString& text) {
    if (m_isUtf8 && text.isValidUtf16()) return text.toUtf8();
    QByteArray bytes;
    QByteArrayView units = UnitsOf(text);
    while (m_converter.Run(units, bytes) != CConverter::End::Done) {
        units = units.sliced(CharacterBytes(units));
        bytes.append(m_questionMark);
        ++m_replaced;
    }
    return bytes;
}
