#include "cli/output/UnseenCharacters.h"

#include <QList>
#include <algorithm>

namespace {

constexpr char32_t kFirstPrinting = 0x20;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kPictures = 0x2400;  ///< the pictures of C0 controls, in their order
constexpr char32_t kPictureOfDelete = 0x2421;
constexpr char32_t kNonJoiner = 0x200C;
constexpr char32_t kJoiner = 0x200D;

/// Format characters without which the letters beside them aren't what they are.
bool IsPartOfItsWord(char32_t character) {
    return character == kNonJoiner || character == kJoiner;
}

QString MarkOf(char32_t character) {
    if (character < kFirstPrinting) return QString(QChar(static_cast<char16_t>(kPictures + character)));
    if (character == kDelete) return QString(QChar(static_cast<char16_t>(kPictureOfDelete)));
    return QString::asprintf("<U+%04X>", static_cast<unsigned>(character));
}

}  // namespace

bool IsUnseen(char32_t character) {
    if (character >= kFirstPrinting && character < kDelete) return false;
    switch (QChar::category(character)) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            return false;
    }
}

QString WithMarks(const QString& text, bool keepLineFeeds) {
    const auto isPlain = [](QChar c) { return c >= QChar(u' ') && c < QChar(u'\u007F'); };
    if (std::all_of(text.begin(), text.end(), isPlain)) return text;
    QString marked;
    for (const char32_t character : text.toUcs4()) {
        const bool stays =
            !IsUnseen(character) || IsPartOfItsWord(character) || (keepLineFeeds && character == U'\n');
        marked += stays ? QString::fromUcs4(&character, 1) : MarkOf(character);
    }
    return marked;
}
