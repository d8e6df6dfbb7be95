#pragma once

#include "config/CCfgValue.h"
#include "config/CColSet.h"
#include "config/CTreeColSet.h"
#include "config/EntryContent.h"
#include "config/FontRecord.h"
#include "config/Settings.h"
#include "config/SettingsTable.h"
#include "lang/Text.h"
#include "platform/host/CRegionalInfo.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "records/Precisions.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class CEntryJournal;
class CPrompt;

/// The settings object: holds the settings, both sets of columns and the list font and moves them between
/// memory and the settings tree, in two areas that stay apart: the profile (numbered values) and the base key
/// (named blobs and keys of other users). Values are written one by one and only where they differ from what
/// this process last read or wrote, so that a window and a console that change different settings at once
/// lose none.
class CCfgStore : public Settings, public CPrecisionSource {
 public:
    /// A value of the base key is never empty and never longer: bytes of a blob, characters of a text.
    static constexpr int kMostOfValue = 4096;

    /// basePath: name of the base key below the tree's root. Where it doesn't exist yet, it is made and all
    /// defaults are written; otherwise everything is loaded. Where it can't be opened the user is told, and
    /// the object works from memory.
    CCfgStore(CSettingsTree& tree, CProfile& profile, CPrompt& prompt, const CRegionalInfo& region,
              const QString& basePath);
    /// Saves everything.
    ~CCfgStore() override;
    CCfgStore(const CCfgStore&) = delete;
    CCfgStore& operator=(const CCfgStore&) = delete;

    /// The list's columns, the tree's, the font, then the values, as far as they have changed. The first
    /// failure ends it.
    bool SaveAll();
    /// Columns that can't be read take their defaults: the list's in silence, the tree's after the user was
    /// told. That difference is wanted. Where the file can't be read at all, the user is told, and all have
    /// their defaults, of which nothing is saved.
    void LoadAll();
    /// False when the object works from memory: what is changed is lost at its end.
    [[nodiscard]] bool AreKept() const { return m_openKey.IsOpen(); }
    void ResetAll();
    /// All that have changed as one change of the tree: all of them or, on failure, none.
    bool SaveValues();
    void LoadValues();
    void ResetValues();
    /// Saves one setting at once, changed or not (console, or a running window on its behalf).
    [[nodiscard]] bool SaveValue(int index);
    /// Drops what memory holds at the end instead of saving it: a console command that only reads writes
    /// nothing.
    void KeepStoreUntouched() { m_saveAtEnd = false; }

    /// The columns of the record list, and the levels of the data tree.
    [[nodiscard]] CColSet& ListColumns() { return m_listColumns; }
    [[nodiscard]] const CColSet& ListColumns() const { return m_listColumns; }
    [[nodiscard]] CTreeColSet& TreeColumns() { return m_treeColumns; }
    [[nodiscard]] const CTreeColSet& TreeColumns() const { return m_treeColumns; }
    [[nodiscard]] const FontRecord& ListFont() const { return m_listFont; }
    void SetListFont(const FontRecord& font) { m_listFont = font; }

    // Values of the base key. report: a failed read or write is shown to the user; that a value is empty or
    // too long to be written is always shown. A value that isn't read leaves the target empty or 0.
    bool ReadBinary(const QString& name, QByteArray& out, bool report);
    bool ReadText(const QString& name, QString& out, bool report);
    bool WriteBinary(const QString& name, const QByteArray& data, bool report);
    bool WriteText(const QString& name, const QString& text, bool report);
    /// A number is a blob of 4 bytes, little-endian.
    bool WriteInt(const QString& name, std::int32_t value);
    /// The first 4 bytes of a blob; a shorter one counts as followed by zeros.
    bool ReadInt(const QString& name, std::int32_t& out, bool report);
    bool DeleteKey(const QString& name);
    bool DeleteValue(const QString& name);
    /// Names of the keys below a key, in order of creation.
    bool EnumKeys(const QString& subkey, QStringList& out);

    // The same on the key "entry" below the key "prefix", both data, not paths. Reading, too, makes the keys
    // when they don't exist; that is how it has always been.
    bool ReadSubBinary(const QString& prefix, const QString& entry, const QString& name, QByteArray& out,
                       bool report);
    bool ReadSubText(const QString& prefix, const QString& entry, const QString& name, QString& out,
                     bool report);
    bool ReadSubInt(const QString& prefix, const QString& entry, const QString& name, std::int32_t& out,
                    bool report);
    bool WriteSubBinary(const QString& prefix, const QString& entry, const QString& name,
                        const QByteArray& data, bool report);
    bool WriteSubText(const QString& prefix, const QString& entry, const QString& name, const QString& text,
                      bool report);
    bool WriteSubInt(const QString& prefix, const QString& entry, const QString& name, std::int32_t value);

    // Records that are kept as one blob in a key of their own.
    bool ReadEntry(QByteArray& out, const QString& prefix, const QString& entry);
    /// Whether there is such an entry, with a value or without; makes none.
    [[nodiscard]] bool HasEntry(const QString& prefix, const QString& entry);
    bool WriteEntry(const QString& prefix, const QString& entry, const QByteArray& data);
    /// All values of an entry; nothing when there is no such entry, of which none is made.
    [[nodiscard]] std::optional<EntryContent> ReadEntryContent(const QString& prefix, const QString& entry);
    /// Writes the values in their order, as one change: all of them or, on failure, none.
    [[nodiscard]] bool WriteEntryContent(const QString& prefix, const QString& entry,
                                         const EntryContent& content);
    /// The same with the place of the entry.
    [[nodiscard]] std::optional<StoredEntry> FindEntry(const QString& prefix, const QString& entry);
    /// Makes an entry what it was, at its place where there is none now: all of it or nothing.
    [[nodiscard]] bool PutEntryBack(const QString& prefix, const QString& entry, const StoredEntry& former);
    /// Who hears of entries that change; null: nobody. Must outlive this, or be taken away before.
    void SetEntryJournal(CEntryJournal* journal) { m_entryJournal = journal; }
    [[nodiscard]] CEntryJournal* EntryJournal() const { return m_entryJournal; }
    /// Why a value of this size can't be written; empty when it can.
    [[nodiscard]] QString SizeProblem(const QString& name, qsizetype size) const;
    /// Whether a value of this size can be written; the user is shown why not.
    [[nodiscard]] bool HasFittingSize(const QString& name, qsizetype size);
    bool DeleteEntry(const QString& prefix, const QString& entry);
    /// False, and the old entry as it was, when it has no value or can't be moved. An entry that has the new
    /// name already is overwritten.
    bool RenameEntry(const QString& prefix, const QString& oldName, const QString& newName);

    [[nodiscard]] CProfile& Profile() { return m_profile; }
    [[nodiscard]] CSettingsTree& Tree() { return m_tree; }
    [[nodiscard]] const CSettingsTree& Tree() const { return m_tree; }
    [[nodiscard]] const CRegionalInfo& Region() const { return m_region; }

    // Decimal places for records: the settings, brought into 0 to 6.
    [[nodiscard]] int DurationPrecision() const override;
    [[nodiscard]] int DistancePrecision() const override;
    [[nodiscard]] int RatePrecision() const override;
    [[nodiscard]] int AmountPrecision() const override;

 private:
    class OpenKeySwap;

    void AddBool(bool& setting, bool preset);
    void AddInt(std::int32_t& setting, std::int32_t preset);
    void AddColour(std::uint32_t& setting, std::uint32_t preset);
    void Adopt(std::unique_ptr<CCfgValue> value, const SettingAddress& setting, const SettingContent& preset);
    void RegisterValues(std::span<const SettingRow> rows);
    void FollowRegion();
    void OpenBaseKey();
    void WorkFromMemory();
    bool MakeBaseKey();
    void DefaultColumns();
    bool SaveBlobs(bool report);
    bool SaveColumns(const CColSet& columns, Text name, Text failure, bool report);
    void LoadListColumns();
    void LoadTreeColumns();
    bool SaveFont(bool report);
    void LoadFont();
    [[nodiscard]] QByteArray ReadBlob(Text name);
    bool SaveBlob(Text name, const QByteArray& blob, bool report);
    [[nodiscard]] ProfileSection ReadSection() const;
    void Tell(Text message, const QString& text, Text title);
    template <class T>
    bool ReadAs(const QString& name, T& out, bool report);
    bool Write(const QString& name, const SettingsValue& value, bool report);
    [[nodiscard]] CSettingsKey FindKey(const QString& prefix, const QString& entry);
    void NoteEntry(const QString& prefix, const QString& entry);

    CSettingsTree& m_tree;
    CProfile& m_profile;
    CPrompt& m_prompt;
    CRegionalInfo m_region;
    std::optional<RegionScope> m_chosenRegion;  ///< where the user has chosen another clock than the region
    std::vector<std::unique_ptr<CCfgValue>> m_values;
    FontRecord m_listFont;
    CColSet m_listColumns;
    CTreeColSet m_treeColumns;
    QHash<int, QByteArray>
        m_storedBlobs;  ///< by the text of their name: what this process last read or wrote
    QString m_basePath;
    CSettingsKey m_openKey;
    bool m_saveAtEnd = true;
    CEntryJournal* m_entryJournal = nullptr;
};
