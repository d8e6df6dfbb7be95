#pragma once

#include "exchange/text/Delimiters.h"

class CTextFile;

/// The delimiters by which most of a file's first lines have the wanted number of fields; the presets where
/// none of them has with any. The file is read from its beginning, in the encoding that it was begun with.
[[nodiscard]] Delimiters GuessDelimiters(CTextFile& file, int leastFields);
