#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// Whether a text has all words, in any order and any case. No words: every text.
[[nodiscard]] bool HasAllWords(const QString& text, const QString& words);
/// The places of the texts that have all words.
[[nodiscard]] std::vector<int> FindByWords(const QStringList& texts, const QString& words);

/// A text with what stands around it: a command and its menu.
struct PlacedText {
    QString text;
    QString place;
};
/// The places of those that have all words, the best first: the text as typed, then one that begins so, then
/// one in which each word begins a word, then one that has the words somewhere, last those that need the
/// place for it. Equals stay in their order.
[[nodiscard]] std::vector<int> FindBest(const std::vector<PlacedText>& texts, const QString& words);
