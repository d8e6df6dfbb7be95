#include "viewmodel/report/PageEntities.h"

#include <QChar>
#include <QLatin1String>
#include <algorithm>

namespace {

/// The longest that is looked at, so that an "&" costs the same however far the next ";" is.
constexpr qsizetype kLongest = 12;

struct NameRow {
    const char* name;
    char32_t sign;
};
constexpr NameRow kNames[] = {
    {"amp", U'&'},     {"apos", U'\''},    {"Auml", 0xC4},   {"auml", 0xE4},    {"bull", 0x2022},
    {"ccedil", 0xE7},  {"cent", 0xA2},     {"copy", 0xA9},   {"deg", 0xB0},     {"eacute", 0xE9},
    {"egrave", 0xE8},  {"emsp", 0x2003},   {"ensp", 0x2002}, {"euro", 0x20AC},  {"frac12", 0xBD},
    {"gt", U'>'},      {"hellip", 0x2026}, {"laquo", 0xAB},  {"ldquo", 0x201C}, {"lsquo", 0x2018},
    {"lt", U'<'},      {"mdash", 0x2014},  {"middot", 0xB7}, {"minus", 0x2212}, {"nbsp", 0xA0},
    {"ndash", 0x2013}, {"Ouml", 0xD6},     {"ouml", 0xF6},   {"para", 0xB6},    {"plusmn", 0xB1},
    {"pound", 0xA3},   {"quot", U'"'},     {"raquo", 0xBB},  {"rdquo", 0x201D}, {"reg", 0xAE},
    {"rsquo", 0x2019}, {"sect", 0xA7},     {"shy", 0xAD},    {"szlig", 0xDF},   {"times", 0xD7},
    {"trade", 0x2122}, {"Uuml", 0xDC},     {"uuml", 0xFC},   {"yen", 0xA5},
};

char32_t Named(QStringView name) {
    const auto* row =
        std::ranges::find_if(kNames, [name](const NameRow& one) { return name == QLatin1String(one.name); });
    return row == std::end(kNames) ? 0 : row->sign;
}

/// "228" or "xE4".
char32_t Numbered(QStringView number) {
    const bool isHex = number.startsWith(u'x', Qt::CaseInsensitive);
    bool isNumber = false;
    const uint value = (isHex ? number.mid(1) : number).toUInt(&isNumber, isHex ? 16 : 10);
    if (!isNumber) return 0;
    return value == 0 || value > QChar::LastValidCodePoint || QChar::isSurrogate(value)
               ? char32_t(QChar::ReplacementCharacter)
               : value;
}

}  // namespace

PageEntity EntityAt(QStringView text) {
    const qsizetype end = text.left(kLongest).indexOf(u';');
    if (end < 2) return {};
    const QStringView name = text.mid(1, end - 1);
    const char32_t sign = name.startsWith(u'#') ? Numbered(name.mid(1)) : Named(name);
    return sign == 0 ? PageEntity() : PageEntity{sign, end + 1};
}
