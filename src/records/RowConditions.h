#pragma once

#include "lang/Text.h"

#include <QString>
#include <optional>
#include <vector>

struct RowDay {
    int year, month, day;
    bool operator==(const RowDay&) const = default;
};

/// A text that a column must equal, or hold somewhere.
struct TextCondition {
    Text column;
    QString wanted;
    bool isWhole;  ///< equal, not only held
    bool isExact;  ///< capitals and small letters count
};

/// Which rows a statement reads: at least all that fulfil the conditions. What it reads is still to be tested
/// by the rule itself, as the store folds the letters of English only: rows with others always come.
struct RowConditions {
    struct Days {
        RowDay first, last;
    };
    std::optional<Days> days;
    std::vector<TextCondition> texts;

    [[nodiscard]] bool IsEmpty() const { return !days && texts.empty(); }
    /// What follows the name of the table in a statement; nothing without conditions.
    [[nodiscard]] QString Where() const;
};
