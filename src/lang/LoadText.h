#pragma once

#include "lang/Text.h"

#include <QString>

/// Loads the language library (DvAfxRes_Eng with the platform's ending) from a folder, freeing an earlier
/// one. False when it can't be loaded: then no text exists to report with, and the program ends in silence.
[[nodiscard]] bool LoadLanguageLibrary(const QString& folder);
void FreeLanguageLibrary();

/// The text of a number, kept for the life of the process; an empty text for a number that the library lacks.
[[nodiscard]] const QString& LoadText(Text id);
[[nodiscard]] const QString& LoadText(int id);
/// All numbers of the library with their texts, ascending.
[[nodiscard]] QList<std::pair<int, QString>> AllTexts();
/// The readable name of a text number, empty for an unknown one.
[[nodiscard]] QString TextName(int id);
