#pragma once

#include <QString>

/// Hears of named entries of the settings that are about to be written or deleted.
class CEntryJournal {
 public:
    virtual ~CEntryJournal() = default;
    /// Within the change of the settings, before anything of the entry is touched.
    virtual void NoteEntry(const QString& key, const QString& entry) = 0;
    /// What changes from here on belongs to a change of the records that was made just before; or no more.
    virtual void SetCarrying(bool isCarrying) = 0;
};
