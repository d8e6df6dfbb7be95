#pragma once

/// One text of a language library as it lies in the library: number, readable name, text (UTF-8).
struct TextRow {
    int id;
    const char* name;
    const char* text;
};

/// The library's one entry, "LanguageTexts": its texts in ascending order of numbers.
using LanguageTextsEntry = const TextRow* (*)(int* count);
