#include "platform/host/PaperSize.h"

#include <QByteArray>
#include <QLocale>
#include <algorithm>
#include <iterator>

namespace {

/// Unicode CLDR 42, supplemental data: measurement, paper size US-Letter.
constexpr QLocale::Territory kLetterRegions[] = {
    QLocale::Belize,     QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
    QLocale::Guatemala,  QLocale::Mexico,     QLocale::Nicaragua,    QLocale::Panama,    QLocale::Philippines,
    QLocale::PuertoRico, QLocale::ElSalvador, QLocale::UnitedStates, QLocale::Venezuela,
};

/// The first of the variables that is set decides, whatever it says: "C" in LC_ALL hides LC_PAPER.
QString SessionLocale() {
    for (const char* variable : {"LC_ALL", "LC_PAPER", "LANG"})
        if (const QByteArray name = qgetenv(variable); !name.isEmpty()) return QString::fromUtf8(name);
    return {};
}

/// "en" alone names no region; Qt would guess one from the language.
bool NamesRegion(const QString& locale) {
    return locale.contains(u'_');
}

}  // namespace

Paper PaperOfRegion() {
    const QString locale = SessionLocale();
    if (!NamesRegion(locale)) return Paper::A4;
    const bool isLetter = std::find(std::begin(kLetterRegions), std::end(kLetterRegions),
                                    QLocale(locale).territory()) != std::end(kLetterRegions);
    return isLetter ? Paper::Letter : Paper::A4;
}
