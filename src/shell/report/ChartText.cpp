#include "shell/report/ChartText.h"

namespace {

constexpr qsizetype kMostLetters = 300;

/// Codes that XML, and so an SVG file, has no way to write, or that break a line.
bool CanStand(QChar letter) {
    switch (letter.category()) {
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return false;
        default:
            return letter.unicode() < 0xFFFE;
    }
}

/// Half a pair stands for no letter.
bool IsHalf(const QString& text, qsizetype place) {
    const QChar letter = text[place];
    if (letter.isHighSurrogate()) return place + 1 >= text.size() || !text[place + 1].isLowSurrogate();
    return letter.isLowSurrogate() && (place == 0 || !text[place - 1].isHighSurrogate());
}

}  // namespace

QString LineOfText(const QString& text) {
    QString line = text.left(kMostLetters);
    for (qsizetype place = 0; place < line.size(); ++place)
        if (!CanStand(line[place]) || IsHalf(line, place)) line[place] = u' ';
    return line;
}
