#pragma once

#include "platform/instance/CInstance.h"

class CPrompt;
enum class Text : int;

/// One window for a home: the first one holds the home's lock, a further one brings the first forward and
/// ends.
class CSingleWindow {
 public:
    enum class Start {
        IsAlone,      ///< this window goes on
        OtherRaised,  ///< another one is there and has come forward
        Refused       ///< told: there may be another one
    };
    explicit CSingleWindow(CPrompt& prompt) : m_prompt(prompt) {}

    /// A home that can't be written has no lock. There the channel is the guard: it can't be had twice.
    [[nodiscard]] Start Begin(const QString& home);
    [[nodiscard]] bool IsLocked() const { return m_isLocked; }
    /// Why there may be another window after all.
    void TellNotAlone(const QString& home, const QString& why);

 private:
    [[nodiscard]] Start Refuse(const QString& home, CInstance::Outcome outcome);
    void Tell(Text text, const QString& words);

    CPrompt& m_prompt;
    CInstance m_instance;
    bool m_isLocked = false;
};
