#pragma once

#include "exchange/text/CLineReader.h"

/// A text that comes in pieces of so many characters, and then ends, or breaks off.
class CTextPieces final : public CTextSource {
 public:
    explicit CTextPieces(const QString& text, qsizetype piece = 1000, Next end = Next::End)
        : m_text(text), m_piece(piece), m_end(end) {}
    [[nodiscard]] Next Read(QString& text) override {
        text.append(m_text.mid(m_place, m_piece));
        m_place += m_piece;
        return m_place - m_piece < m_text.size() ? Next::Text : m_end;
    }

 private:
    QString m_text;
    qsizetype m_piece;
    Next m_end;
    qsizetype m_place = 0;
};
