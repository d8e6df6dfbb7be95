#include "viewmodel/report/PageTag.h"

#include <QLatin1String>
#include <algorithm>

namespace {

struct TagRow {
    const char* name;
    PageTagKind kind;
};
constexpr TagRow kTags[] = {
    {"td", PageTagKind::Cell},       {"font", PageTagKind::Font},     {"strong", PageTagKind::Strong},
    {"tr", PageTagKind::Row},        {"b", PageTagKind::Strong},      {"br", PageTagKind::Break},
    {"table", PageTagKind::Table},   {"em", PageTagKind::Emphasis},   {"i", PageTagKind::Emphasis},
    {"th", PageTagKind::HeadCell},   {"hr", PageTagKind::Rule},       {"body", PageTagKind::Body},
    {"script", PageTagKind::Hidden}, {"style", PageTagKind::Hidden},  {"title", PageTagKind::Hidden},
    {"iframe", PageTagKind::Hidden}, {"p", PageTagKind::Block},       {"div", PageTagKind::Block},
    {"ul", PageTagKind::Block},      {"ol", PageTagKind::Block},      {"li", PageTagKind::Block},
    {"dl", PageTagKind::Block},      {"dt", PageTagKind::Block},      {"dd", PageTagKind::Block},
    {"h1", PageTagKind::Block},      {"h2", PageTagKind::Block},      {"h3", PageTagKind::Block},
    {"h4", PageTagKind::Block},      {"h5", PageTagKind::Block},      {"h6", PageTagKind::Block},
    {"pre", PageTagKind::Block},     {"center", PageTagKind::Block},  {"blockquote", PageTagKind::Block},
    {"section", PageTagKind::Block}, {"article", PageTagKind::Block},
};

PageTagKind KindOf(QStringView name) {
    const auto isNamed = [name](const TagRow& row) {
        return name.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0;
    };
    const auto* row = std::ranges::find_if(kTags, isNamed);
    return row == std::end(kTags) ? PageTagKind::Unknown : row->kind;
}

bool IsLetter(QChar sign) {
    return (sign >= u'a' && sign <= u'z') || (sign >= u'A' && sign <= u'Z') || (sign >= u'0' && sign <= u'9');
}

/// Takes name and value of the next attribute off the front.
struct Attribute {
    QStringView name;
    QStringView value;
};
Attribute TakeAttribute(QStringView& rest) {
    const auto isNameEnd = [](QChar sign) { return sign.isSpace() || sign == u'='; };
    Attribute attribute;
    const auto* nameEnd = std::find_if(rest.begin(), rest.end(), isNameEnd);
    attribute.name = rest.left(nameEnd - rest.begin());
    rest = rest.mid(attribute.name.size()).trimmed();
    if (!rest.startsWith(u'=')) return attribute;
    rest = rest.mid(1).trimmed();
    if (rest.startsWith(u'"') || rest.startsWith(u'\'')) {
        const qsizetype end = rest.indexOf(rest.front(), 1);
        attribute.value = end < 0 ? rest.mid(1) : rest.mid(1, end - 1);
        rest = end < 0 ? QStringView() : rest.mid(end + 1).trimmed();
        return attribute;
    }
    const auto* end = std::find_if(rest.begin(), rest.end(), [](QChar sign) { return sign.isSpace(); });
    attribute.value = rest.left(end - rest.begin());
    rest = rest.mid(attribute.value.size()).trimmed();
    return attribute;
}

int HexDigit(QChar sign) {
    bool isDigit = false;
    const int value = QStringView(&sign, 1).toInt(&isDigit, 16);
    return isDigit ? value : 0;
}

PageColour ColourOf(int red, int green, int blue) {
    return kBlack | static_cast<PageColour>(red) << 16 | static_cast<PageColour>(green) << 8 |
           static_cast<PageColour>(blue);
}

struct NamedColour {
    const char* name;
    PageColour colour;
};
constexpr NamedColour kColours[] = {
    {"black", 0xFF000000},   {"white", 0xFFFFFFFF},  {"red", 0xFFFF0000},  {"green", 0xFF008000},
    {"blue", 0xFF0000FF},    {"yellow", 0xFFFFFF00}, {"gray", 0xFF808080}, {"grey", 0xFF808080},
    {"silver", 0xFFC0C0C0},  {"maroon", 0xFF800000}, {"navy", 0xFF000080}, {"olive", 0xFF808000},
    {"teal", 0xFF008080},    {"purple", 0xFF800080}, {"lime", 0xFF00FF00}, {"aqua", 0xFF00FFFF},
    {"fuchsia", 0xFFFF00FF}, {"orange", 0xFFFFA500},
};

PageColour ColourOfDigits(QStringView digits) {
    if (digits.size() == 3)
        return ColourOf(HexDigit(digits[0]) * 17, HexDigit(digits[1]) * 17, HexDigit(digits[2]) * 17);
    const qsizetype third = (digits.size() + 2) / 3;
    const auto digitAt = [digits](qsizetype at) { return at < digits.size() ? HexDigit(digits[at]) : 0; };
    const auto part = [&](qsizetype begin) {
        return third < 2 ? digitAt(begin) : digitAt(begin) * 16 + digitAt(begin + 1);
    };
    return ColourOf(part(0), part(third), part(2 * third));
}

}  // namespace

CPageTag::CPageTag(QStringView content) : m_isClosing(content.startsWith(u'/')) {
    if (m_isClosing) content = content.mid(1);
    const auto* end = std::find_if_not(content.begin(), content.end(), &IsLetter);
    m_name = content.left(end - content.begin());
    m_attributes = content.mid(m_name.size());
    m_kind = KindOf(m_name);
}

QStringView CPageTag::Attribute(QStringView name) const {
    QStringView rest = m_attributes.trimmed();
    while (!rest.isEmpty()) {
        const qsizetype before = rest.size();
        const ::Attribute attribute = TakeAttribute(rest);
        if (attribute.name.compare(name, Qt::CaseInsensitive) == 0)
            return attribute.value.isNull() ? QStringView(u"") : attribute.value;
        if (rest.size() == before) break;
    }
    return {};
}

std::optional<int> CPageTag::Number(QStringView name, int least, int most) const {
    return NumberAtFront(Attribute(name), least, most);
}

std::optional<int> NumberAtFront(QStringView text, int least, int most) {
    text = text.trimmed();
    const auto* end = std::find_if_not(text.begin(), text.end(), [](QChar sign) { return sign.isDigit(); });
    bool isNumber = false;
    const int number = text.left(end - text.begin()).toInt(&isNumber);
    if (!isNumber) return std::nullopt;
    return std::clamp(number, least, most);
}

PageColour CPageTag::Colour(QStringView name) const {
    return ColourOfText(Attribute(name));
}

PageColour ColourOfText(QStringView text) {
    constexpr qsizetype kMostDigits = 6;
    text = text.trimmed();
    if (text.startsWith(u'#')) {
        const QStringView digits = text.mid(1);
        return digits.isEmpty() || digits.size() > kMostDigits ? kNoColour : ColourOfDigits(digits);
    }
    const auto isNamed = [text](const NamedColour& row) {
        return text.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0;
    };
    const auto* row = std::ranges::find_if(kColours, isNamed);
    return row == std::end(kColours) ? kNoColour : row->colour;
}
