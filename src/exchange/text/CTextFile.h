#pragma once

#include "exchange/text/CLineReader.h"
#include "platform/host/CFileReader.h"
#include "platform/host/TextCoder.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <optional>

/// A text file in whatever encoding. A byte order mark says the encoding, and is no part of the text. Without
/// one it is the encoding that was chosen, or UTF-8; a file that isn't valid UTF-8, be it in its last line,
/// is Windows-1252 as a whole.
class CTextFile final : public CTextSource {
 public:
    /// 0, or the system's error code.
    [[nodiscard]] int Open(const QString& path) { return m_file.Open(path); }
    /// From the beginning. chosen: the name of an encoding, empty for none.
    void Begin(const QByteArray& chosen);
    /// Once more from the beginning, in the same encoding.
    void Rewind();
    [[nodiscard]] Next Read(QString& text) override;

    /// In small letters: "utf-8".
    [[nodiscard]] QByteArray Encoding() const { return m_encoding; }
    /// Whether the file is read as Windows-1252 because it isn't valid UTF-8.
    [[nodiscard]] bool FellBack() const { return m_fellBack; }
    /// The system's error code after Failed.
    [[nodiscard]] int Error() const { return m_file.Error(); }
    [[nodiscard]] bool HasChanged() const { return m_file.HasChanged(); }
    /// In bytes, and how many of them were read since the beginning.
    [[nodiscard]] std::int64_t Size() const { return m_file.Size(); }
    [[nodiscard]] std::int64_t Place() const { return m_file.Place(); }

 private:
    void FindMark();
    [[nodiscard]] bool IsUtf8();
    [[nodiscard]] bool IsValid();

    CFileReader m_file;
    QByteArray m_encoding;
    qsizetype m_markLength = 0;
    bool m_fellBack = false;
    std::optional<bool> m_isUtf8;  ///< once the file was read whole for it
    std::optional<CTextDecoder> m_decoder;
    qsizetype m_toSkip = 0;  ///< bytes of the mark
};
