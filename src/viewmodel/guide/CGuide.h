#pragma once

#include "platform/host/CRegionalInfo.h"
#include "viewmodel/guide/GuideDraft.h"

#include <QString>

class CCfgStore;
class CClock;
class CPulldownCatalogue;
class CRecordChanges;
class CTimerService;
class CVelmarchDoc;

/// The guide of the first start, without its pages: what they propose, and storing what they come back with.
class CGuide {
 public:
    /// All must outlive it.
    struct Context {
        CVelmarchDoc& document;
        CTimerService& timers;
        CCfgStore& settings;
        CPulldownCatalogue& catalogue;
        CRecordChanges& changes;
        const CClock& clock;
        RegionalHabits habits;
    };
    explicit CGuide(const Context& context) : m_context(context) {}

    /// What the pages show first. Where the guide comes by itself, what the region knows; later, what is set.
    [[nodiscard]] GuideDraft Proposal() const;
    /// Settings, names, list items, dependencies, a stored default and the timer, in this order. False where
    /// one of them could not be stored, of which the user was told; what came before it stays, and storing
    /// the same draft again does no harm.
    [[nodiscard]] bool Store(const GuideDraft& draft);
    /// The user does without: of all that was proposed the first day of the week is taken over, as the
    /// region's is right for nearly everybody. False when that could not be stored.
    [[nodiscard]] bool Skip();
    /// Everything was stored.
    [[nodiscard]] bool IsStored() const { return m_isStored; }
    /// The record with the timer; empty without one.
    [[nodiscard]] const QString& StartedId() const { return m_startedId; }
    /// The name under which the rate becomes a stored default; empty where it doesn't.
    [[nodiscard]] QString DefaultName(const GuideDraft& draft) const;

    [[nodiscard]] const CPulldownCatalogue& Catalogue() const { return m_context.catalogue; }
    [[nodiscard]] const CCfgStore& Settings() const { return m_context.settings; }

 private:
    [[nodiscard]] bool StoreSettings(const GuideDraft& draft, int firstSteps);
    [[nodiscard]] bool StoreItems(const GuideDraft& draft);
    [[nodiscard]] bool StoreDependencies(const GuideDraft& draft);
    [[nodiscard]] bool StoreDefault(const GuideDraft& draft);
    [[nodiscard]] bool StartTimer(const GuideDraft& draft);

    Context m_context;
    bool m_isStored = false;
    QString m_startedId;
};

/// Whether a rate of the guide can be read; so can an empty one.
[[nodiscard]] bool IsGuideRate(const QString& typed);

/// A home that was made just now: its window opens with the guide, also after a start that was cut off.
/// False when that can't be noted.
[[nodiscard]] bool WantGuide(CCfgStore& settings);
/// Not any more once there is something to work with.
[[nodiscard]] bool IsGuideWanted(const CCfgStore& settings, const CVelmarchDoc& document,
                                 const CPulldownCatalogue& catalogue);
