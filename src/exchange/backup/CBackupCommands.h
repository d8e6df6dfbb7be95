#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <functional>

class CClock;
class CProfile;
class CProgress;
class CPrompt;
class CVelmarchDoc;

/// The user's commands Backup and Restore, from the choice of the file to the message at the end.
class CBackupCommands {
 public:
    /// All must outlive it.
    struct Context {
        QString home;
        CVelmarchDoc& document;
        CProfile& profile;
        CPrompt& prompt;
        const CClock& clock;
        CProgress& progress;
        std::function<void()> refresh;  ///< reads everything anew
        std::function<int()> dropGone;  ///< drops timers whose records are gone; how many
        /// What it takes to put each timer back, by record.
        std::function<QHash<QString, QByteArray>()> timers;
    };
    explicit CBackupCommands(const Context& context) : m_context(context) {}

    void Backup();
    void Restore();

 private:
    [[nodiscard]] QString SuggestedFile() const;
    void TellBackup(const QString& path, const QString& error);
    void TellRestored(const QString& path, const QString& safetyCopy);

    Context m_context;
};
