#pragma once

#include "exchange/backup/BackupOutcome.h"

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QString>
#include <functional>

class CClock;
class CProgress;
class CPrompt;
class CSecondSource;
class CStoreJournal;

/// What a restore came to. After a failure the records are as they were.
struct [[nodiscard]] RestoreOutcome {
    QString error;               ///< empty when the records are those of the backup, for good
    QString safetyCopy;          ///< the file with what was there before; empty when there was nothing
    bool isUnconfirmed = false;  ///< stored, but the disk could not confirm it

    explicit operator bool() const { return error.isEmpty(); }
};

/// Puts the records of a backup in the place of all that are there: verified, asked about, saved in a copy
/// first, and then all of them or none. The file stays open from the first look to the last, and is compared
/// with its digest each time.
class CRestore {
 public:
    /// All must outlive it.
    struct Context {
        CPrompt& prompt;
        const CClock& clock;
        CProgress& progress;
        std::function<void()> emptied =
            {};  ///< the present records are about to go: nobody shows them any more
    };
    explicit CRestore(const Context& context) : m_context(context) {}

    /// Reads all of the file, to the last record that the store could not take, without touching any records
    /// that are there.
    [[nodiscard]] BackupOutcome Verify(const QString& path);
    /// Asks twice whether the records are to be replaced by those that were verified.
    [[nodiscard]] bool IsConfirmed();
    /// Into the store of a home, which must be there. journal: who writes down what is changed; null: nobody.
    /// timers: what it takes to put each timer back, by record, which is written down for those that go.
    [[nodiscard]] RestoreOutcome Run(const QString& home, CStoreJournal* journal,
                                     const QHash<QString, QByteArray>& timers = {});

 private:
    [[nodiscard]] QString OpenFile(const QString& path);
    [[nodiscard]] bool Ask(Text question, const QString& words, Text title);
    [[nodiscard]] QString Replace(CSecondSource& source, const QString& copy, RestoreOutcome& outcome);
    [[nodiscard]] QString SaveThePresent(CSecondSource& source, const QString& path, RestoreOutcome& outcome);
    [[nodiscard]] QString Empty(CSecondSource& source);
    [[nodiscard]] QString Fill(CSecondSource& source);
    void TellOfJournal(CStoreJournal* journal);

    Context m_context;
    QFile m_file;
    BackupContent m_verified;
};
