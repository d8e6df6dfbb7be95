#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Whether there is an encoding of this name, in whatever case of letters; one that asks for more than an
/// encoding ("ascii//IGNORE" drops characters) is none.
[[nodiscard]] bool IsEncoding(const QByteArray& name);
/// Whether a character is one byte in the encoding. The characters of ASCII count as one in all of them.
[[nodiscard]] bool IsOneByte(char16_t character, const QByteArray& encoding);

/// One direction of the C library's conversion; closed where there is no such encoding.
class CConverter {
 public:
    CConverter(const QByteArray& to, const QByteArray& from);
    ~CConverter();
    CConverter(const CConverter&) = delete;
    CConverter& operator=(const CConverter&) = delete;
    [[nodiscard]] bool IsOpen() const;

    enum class End { Done, Cut /** in the middle of a character */, Meaningless };
    /// Appends what can be converted and takes it off the source.
    [[nodiscard]] End Run(QByteArrayView& source, QByteArray& result);

 private:
    void* m_handle;
};

/// Bytes of an encoding as text, piece by piece.
class CTextDecoder {
 public:
    /// What becomes of bytes that mean nothing.
    enum class Meaningless {
        Refused,
        Replaced,  ///< by U+FFFD
        Controls   ///< the control characters of the same numbers, as browsers read Windows-1252
    };
    CTextDecoder(const QByteArray& encoding, Meaningless meaningless);

    [[nodiscard]] bool IsOpen() const { return m_converter.IsOpen(); }
    /// Appends the text. False at bytes that mean nothing and are refused: what came before them is appended,
    /// and nothing more can be decoded.
    [[nodiscard]] bool Decode(QByteArrayView bytes, QString& text);
    /// No more bytes come. False, or what stands for the rest is appended, where a character is cut off.
    [[nodiscard]] bool Finish(QString& text);

 private:
    [[nodiscard]] bool Pass(QByteArrayView& bytes, QString& text) const;
    // Both append what can be converted and take it off the bytes.
    [[nodiscard]] CConverter::End Convert(QByteArrayView& bytes, QString& text);
    [[nodiscard]] CConverter::End Mixed(QByteArrayView& bytes, QString& text);

    CConverter m_converter;
    Meaningless m_meaningless;
    bool m_beginsAscii;  ///< bytes below 128 are the characters of ASCII, wherever they stand
    QByteArray m_rest;   ///< the beginning of a character
};

/// Text as bytes of an encoding, piece by piece, without a byte order mark. A character that the encoding
/// lacks becomes a question mark.
class CTextEncoder {
 public:
    explicit CTextEncoder(const QByteArray& encoding);

    [[nodiscard]] bool IsOpen() const { return m_converter.IsOpen(); }
    /// A piece ends at the end of a character.
    [[nodiscard]] QByteArray Encode(const QString& text);
    /// How many characters became question marks.
    [[nodiscard]] qint64 ReplacedCount() const { return m_replaced; }

 private:
    CConverter m_converter;
    bool m_isUtf8;
    QByteArray m_questionMark;
    qint64 m_replaced = 0;
};
