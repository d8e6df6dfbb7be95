#pragma once

#include "platform/host/SYSTEMTIME.h"

#include <QString>
#include <optional>

class CClock;
class CProfile;
class CProgress;
class CPrompt;
class CVelmarchDoc;

/// When backups are made by themselves, where, and how many of them are kept.
struct BackupPlan {
    int everyDays = 0;  ///< 0 never, 1 daily, 7 weekly
    QString folder;
    int keep = 7;
    bool operator==(const BackupPlan&) const = default;
};

inline constexpr int kMostKeptBackups = 99;

[[nodiscard]] BackupPlan ReadBackupPlan(const CProfile& profile);
[[nodiscard]] bool NoteBackupPlan(CProfile& profile, const BackupPlan& plan);

/// The backups that nobody has to think of. The user hears of them only when one fails.
class CAutomaticBackups {
 public:
    /// All must outlive it.
    struct Context {
        QString home;
        CVelmarchDoc& document;
        CProfile& profile;
        CPrompt& prompt;
        const CClock& clock;
        CProgress& progress;
    };
    explicit CAutomaticBackups(const Context& context) : m_context(context) {}

    /// Makes one when it is due by the calendar: the last one was made so many days ago, or on a day that is
    /// yet to come. After a failure no other is tried on the same day.
    void RunIfDue();

 private:
    [[nodiscard]] bool IsDue(const BackupPlan& plan) const;
    [[nodiscard]] QString Make(const BackupPlan& plan);

    Context m_context;
    std::optional<SYSTEMTIME> m_failed;
};
