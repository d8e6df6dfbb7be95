#pragma once

#include "lang/LoadText.h"

#include <QString>

/// The texts of the build: records format what they show by them.
inline void LoadTexts() {
    static const bool isLoaded = LoadLanguageLibrary(QStringLiteral(LANGUAGE_FOLDER));
    if (!isLoaded) qFatal("the language library can't be loaded");
}
