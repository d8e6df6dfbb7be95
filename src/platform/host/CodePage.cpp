#include "platform/host/CodePage.h"

#include <array>
#include <cerrno>
#include <cstdint>

#include <iconv.h>

#include "platform/host/Utf8Text.h"

namespace {

/// Name of the locale's encoding, as in LANG=de_DE.ISO-8859-1; UTF-8 where the locale names none. Taken from
/// the environment, so the locale need not be generated on this machine.
QByteArray EncodingName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const QByteArray name = qgetenv(variable);
        if (name.isEmpty()) continue;
        const qsizetype dot = name.indexOf('.');
        if (dot < 0) return "UTF-8";
        const qsizetype modifier = name.indexOf('@', dot);
        return name.mid(dot + 1, modifier < 0 ? -1 : modifier - dot - 1).toUpper();
    }
    return "UTF-8";
}

/// One direction of the C library's conversion.
class Converter {
 public:
    Converter(const char* to, const char* from) : m_handle(::iconv_open(to, from)) {}
    ~Converter() {
        if (IsOpen()) ::iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    [[nodiscard]] bool IsOpen() const { return reinterpret_cast<std::intptr_t>(m_handle) != -1; }

    /// Converts all bytes; whatever can't be converted becomes the replacement, and skip tells how many bytes
    /// of the source that was.
    template <typename Skip>
    QByteArray Run(QByteArrayView source, QByteArrayView replacement, Skip skip) {
        QByteArray result;
        char* in = const_cast<char*>(source.data());  // iconv's signature; it doesn't write there
        std::size_t left = static_cast<std::size_t>(source.size());
        while (left > 0) {
            std::array<char, 4096> buffer;
            char* out = buffer.data();
            std::size_t room = buffer.size();
            const bool stopped = ::iconv(m_handle, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
            result.append(buffer.data(), out - buffer.data());
            if (!stopped || errno == E2BIG) continue;
            const std::size_t bad = std::min(left, skip(in, left));
            in += bad;
            left -= bad;
            result.append(replacement);
        }
        return result;
    }

 private:
    iconv_t m_handle;
};

constexpr char kUtf16[] = "UTF-16LE";

/// A character outside the first plane is a pair of 16-bit units.
std::size_t CharacterBytes(const char* at, std::size_t left) {
    const bool isPair = left >= 4 && (static_cast<unsigned char>(at[1]) & 0xFC) == 0xD8;
    return isPair ? 4 : 2;
}

bool IsUtf8(const QByteArray& encoding) {
    return encoding == "UTF-8" || encoding == "UTF8";
}

}  // namespace

QString FromCodePage(QByteArrayView bytes) {
    const QByteArray encoding = EncodingName();
    if (!IsUtf8(encoding)) {
        Converter converter(kUtf16, encoding.constData());
        if (converter.IsOpen()) {
            const QByteArray units = converter.Run(bytes, QByteArrayView("\xFD\xFF", 2),
                                                   [](const char*, std::size_t) { return std::size_t{1}; });
            return QString(reinterpret_cast<const QChar*>(units.constData()), units.size() / 2);
        }
    }
    return TextOfUtf8(bytes);
}

QByteArray ToCodePage(const QString& text) {
    const QByteArray encoding = EncodingName();
    if (!IsUtf8(encoding)) {
        Converter converter(encoding.constData(), kUtf16);
        if (converter.IsOpen()) {
            const QByteArrayView units(reinterpret_cast<const char*>(text.constData()), text.size() * 2);
            return converter.Run(units, QByteArrayView("?", 1), CharacterBytes);
        }
    }
    return text.toUtf8();
}
