#pragma once

#include "changes/CItemCarrier.h"

class CCfgStore;
class CClock;
class CPrompt;

/// The texts of list items in stored queries and stored defaults: they take the new text of an item over when
/// the records do, as they would find nothing any more. A query takes it where it asks for just the old text,
/// in its own way of comparing.
class CStoredTexts final : public CItemCarrier {
 public:
    CStoredTexts(CCfgStore& settings, const CClock& clock, CPrompt& prompt)
        : m_settings(settings), m_clock(clock), m_prompt(prompt) {}

    /// All of them or none, as one change of the settings.
    [[nodiscard]] std::optional<int> Carry(int list, const QString& oldText, const QString& newText) override;

 private:
    CCfgStore& m_settings;
    const CClock& m_clock;
    CPrompt& m_prompt;
};
