#include "viewmodel/report/PageText.h"

#include "viewmodel/report/ReportPage.h"

#include <algorithm>

namespace {

bool IsEdge(QChar sign) {
    return sign == u'\t' || sign == u'\n';
}

bool IsOfWord(QChar sign) {
    return sign.isLetterOrNumber() || sign.isMark() || sign.isSurrogate() || sign == u'_';
}

}  // namespace

QString CopiedText(const ReportPage& page, std::uint32_t begin, std::uint32_t end) {
    const QStringView part = page.Part(begin, end);
    QString copied;
    copied.reserve(part.size());
    for (qsizetype i = 0; i < part.size(); ++i) {
        if (part[i] != QChar::Nbsp) {
            copied += part[i];
            continue;
        }
        const bool isAlone = (i == 0 || IsEdge(part[i - 1])) && (i + 1 == part.size() || IsEdge(part[i + 1]));
        if (!isAlone) copied += u' ';
    }
    return copied;
}

TextRange WordAt(const QString& text, std::uint32_t position) {
    const auto size = static_cast<std::uint32_t>(text.size());
    position = std::min(position, size);
    TextRange word{position, position};
    while (word.begin > 0 && IsOfWord(text[word.begin - 1])) --word.begin;
    while (word.end < size && IsOfWord(text[word.end])) ++word.end;
    if (word.begin == word.end && position < size && !IsEdge(text[position])) ++word.end;
    return word;
}
