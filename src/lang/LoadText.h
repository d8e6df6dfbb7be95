#pragma once

#include "lang/Text.h"

#include <QList>
#include <QString>
#include <utility>

/// Loads the language library (DvAfxRes_Eng with the platform's ending) from a folder, freeing an earlier
/// one. False when it is absent, has no texts, or a format in it takes other arguments than this program
/// gives: then no text exists to report with, and the program ends in silence.
[[nodiscard]] bool LoadLanguageLibrary(const QString& folder);
void FreeLanguageLibrary();

/// The text of a number, kept for the life of the process, even when the library is freed; an empty text for
/// a number that the library lacks, and while no library is loaded.
[[nodiscard]] const QString& LoadText(Text id);
[[nodiscard]] const QString& LoadText(int id);
/// All numbers of the library with their texts, ascending.
[[nodiscard]] QList<std::pair<int, QString>> AllTexts();
/// The readable name of a text number, empty for an unknown one.
[[nodiscard]] QString TextName(int id);
