#include "exchange/text/CTextFile.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::size_t kPiece = 65536;
constexpr char kUtf8[] = "utf-8";
constexpr char kWindows1252[] = "windows-1252";

struct Mark {
    QByteArrayView bytes;
    const char* encoding;
};
constexpr Mark kMarks[] = {
    {QByteArrayView("\xEF\xBB\xBF", 3), kUtf8},
    {QByteArrayView("\xFF\xFE", 2), "utf-16le"},
    {QByteArrayView("\xFE\xFF", 2), "utf-16be"},
};

}  // namespace

void CTextFile::Begin(const QByteArray& chosen) {
    m_encoding = chosen.isEmpty() ? QByteArray(kUtf8) : chosen.toLower();
    m_fellBack = false;
    m_markLength = 0;
    FindMark();
    if (chosen.isEmpty() && m_markLength == 0 && !IsUtf8()) {
        m_encoding = kWindows1252;
        m_fellBack = true;
    }
    Rewind();
}

void CTextFile::FindMark() {
    m_file.Rewind();
    const QByteArray beginning = m_file.Read(4).value_or(QByteArray());
    const auto* mark = std::ranges::find_if(
        kMarks, [&beginning](const Mark& one) { return beginning.startsWith(one.bytes); });
    if (mark == std::end(kMarks)) return;
    m_encoding = mark->encoding;
    m_markLength = mark->bytes.size();
}

/// A file that nobody writes to meanwhile is read whole for it once, however often it is begun.
bool CTextFile::IsUtf8() {
    if (!m_isUtf8 || m_file.HasChanged()) m_isUtf8 = IsValid();
    return *m_isUtf8;
}

/// As far as the file can be read.
bool CTextFile::IsValid() {
    Rewind();
    QString text;
    Next next = Next::Text;
    while (next == Next::Text) {
        text.clear();
        next = Read(text);
    }
    return next != Next::Undecodable;
}

/// Some bytes mean nothing in Windows-1252 either. They become what browsers make of them: a file that nobody
/// has said anything about can be read in any case.
void CTextFile::Rewind() {
    m_file.Rewind();
    m_toSkip = m_markLength;
    m_decoder.emplace(m_encoding,
                      m_fellBack ? CTextDecoder::Meaningless::Controls : CTextDecoder::Meaningless::Refused);
}

CTextSource::Next CTextFile::Read(QString& text) {
    if (!m_decoder || !m_decoder->IsOpen()) return Next::Undecodable;
    const std::optional<QByteArray> bytes = m_file.Read(kPiece);
    if (!bytes) return Next::Failed;
    if (bytes->isEmpty()) return m_decoder->Finish(text) ? Next::End : Next::Undecodable;
    const qsizetype skipped = std::min(std::exchange(m_toSkip, 0), bytes->size());
    return m_decoder->Decode(QByteArrayView(*bytes).sliced(skipped), text) ? Next::Text : Next::Undecodable;
}
