#pragma once

#include <QString>
#include <utility>

/// What the user has to be told of the history, once.
class CHistoryNotice {
 public:
    void Put(const QString& words) { m_words = words; }
    /// That a change could not be written down, unless the one before it couldn't be either: a history that
    /// can't be written is told of once, not with each change.
    void PutFailure(const QString& words) {
        if (!std::exchange(m_isFailureTold, true)) m_words = words;
    }
    void NoteSuccess() { m_isFailureTold = false; }
    /// Nothing came of the change that there was something to say about.
    void Drop() { m_words.clear(); }
    [[nodiscard]] QString Take() { return std::exchange(m_words, {}); }

 private:
    QString m_words;
    bool m_isFailureTold = false;
};
