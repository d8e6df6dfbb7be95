#pragma once

#include "exchange/text/LineCode.h"

#include <QSet>

class CPrompt;

/// Asks what to do at lines that can't be imported. A kind of line that the user has once ignored passes in
/// silence from then on; one that can't be stored is asked about each time.
class CLineQuestion {
 public:
    explicit CLineQuestion(CPrompt& prompt) : m_prompt(prompt) {}
    /// False ends the import before the line.
    [[nodiscard]] bool GoesOn(const RefusedLine& line);

 private:
    CPrompt& m_prompt;
    QSet<int> m_ignored{21};  ///< a code that no line has
};
