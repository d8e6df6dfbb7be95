#pragma once

#include <QString>

/// What one examination of the doctor found.
struct Finding {
    enum class Verdict { Good, Bad, Unchecked };

    const char* name;
    Verdict verdict = Verdict::Good;
    QString detail;
    QString advice = {};  ///< what can be done; empty when all is well
};
