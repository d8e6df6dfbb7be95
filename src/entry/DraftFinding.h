#pragma once

#include "lang/Text.h"

#include <QString>
#include <vector>

/// Where in a draft something was found.
enum class DraftField { Date, Distance, Rate, Amount, OdometerStart, OdometerEnd };

/// Why a draft can't be accepted as it is.
struct DraftFinding {
    DraftField field;
    Text text;        ///< which sentence it is
    QString words;    ///< the sentence
    QString mark;     ///< in short, for a mark at the field
    bool isQuestion;  ///< the user may accept it all the same: a number that is kept as another one
};

/// In the order of the fields; empty when the draft can be accepted.
using DraftFindings = std::vector<DraftFinding>;
