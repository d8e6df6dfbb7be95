#pragma once

#include "app/CPulldownCatalogue.h"
#include "exchange/text/CTextFile.h"
#include "exchange/text/LineCode.h"

#include <functional>
#include <vector>

/// What stands in a text file of list items.
struct ItemPlan {
    enum class End { Complete, Failed /** the file can't be read on */, Undecodable };
    End end = End::Complete;
    int lastLine = 0;             ///< from 1
    std::vector<ListText> texts;  ///< in the order of the lines
    std::vector<RefusedLine> refused;
    int skipped = 0;  ///< lines of lists that nobody knows
};

/// Reads a file of list items, open, from beginning to end: a list's name and a text in each line. An empty
/// line ends it; a line that can't be read doesn't, and is reported to refused.
[[nodiscard]] ItemPlan LookAtItems(CTextFile& file, const Delimiters& delimiters, const QByteArray& encoding,
                                   const std::function<void(const RefusedLine& line)>& refused = {});
