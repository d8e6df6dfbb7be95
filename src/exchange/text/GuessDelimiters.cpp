#include "exchange/text/GuessDelimiters.h"

#include "exchange/text/CTextFile.h"
#include "exchange/text/SplitFields.h"
#include "lang/LoadText.h"

namespace {

constexpr int kMostLines = 20;

/// How many of the first lines have so many fields.
int FittingLines(CTextFile& file, const Delimiters& delimiters, int leastFields) {
    file.Rewind();
    CLineReader reader(file, delimiters);
    QString line;
    int fitting = 0;
    while (reader.Number() < kMostLines && reader.ReadLine(line) == CLineReader::Next::Line) {
        QStringList fields;
        const LineCode code = SplitFields(line, 0, delimiters, fields);
        if (code == LineCode::Parsed && fields.size() >= leastFields) ++fitting;
    }
    return fitting;
}

}  // namespace

Delimiters GuessDelimiters(CTextFile& file, int leastFields) {
    Delimiters best = PresetDelimiters();
    int mostLines = FittingLines(file, best, leastFields);
    for (const DelimiterChoice& separator : SeparatorChoices()) {
        for (const DelimiterChoice& qualifier : QualifierChoices()) {
            const Delimiters tried{LoadText(qualifier.delimiter), LoadText(separator.delimiter),
                                   best.lineEnd};
            const int lines = FittingLines(file, tried, leastFields);
            if (lines <= mostLines) continue;
            best = tried;
            mostLines = lines;
        }
    }
    return best;
}
