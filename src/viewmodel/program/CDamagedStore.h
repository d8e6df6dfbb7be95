#pragma once

#include "lang/Text.h"

#include <QString>

class CClock;
class CPrompt;
class CVelmarchApp;

/// What the window does when the records of its home are damaged: the user has what can be read saved into a
/// new folder, puts the damaged file aside, or leaves it.
class CDamagedStore {
 public:
    /// All must outlive it.
    struct Context {
        CVelmarchApp& app;
        CPrompt& prompt;
        const CClock& clock;
    };
    explicit CDamagedStore(const Context& context) : m_context(context) {}

    /// Asks where the store is damaged; isOpen: it could be opened all the same. Whether a store is open
    /// then.
    [[nodiscard]] bool Resolve(bool isOpen);

 private:
    [[nodiscard]] bool Salvage();
    [[nodiscard]] bool ReplaceBy(const QString& folder);
    [[nodiscard]] bool PutAside();
    [[nodiscard]] bool StartWithNone();
    [[nodiscard]] QString NewFolder() const;
    [[nodiscard]] bool Ask(Text question, const QString& words, Text action);
    void Tell(Text what, const QString& words);

    Context m_context;
};
