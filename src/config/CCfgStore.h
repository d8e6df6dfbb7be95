#pragma once

#include "config/Settings.h"
#include "config/SettingsTable.h"
#include "platform/CProfile.h"
#include "platform/CRegionalInfo.h"
#include "platform/CSettingsTree.h"
#include "records/Precisions.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <vector>

class CCfgValue;
class CPrompt;

/// The description of a font as it is stored: 92 bytes, see docs/settings-tree.md.
struct FontRecord {
    std::int32_t tenthsOfPoint = 85;
    std::int32_t weight = 400;
    bool italic = false;
    QString face;
    [[nodiscard]] QByteArray ToBytes() const;
    [[nodiscard]] static bool FromBytes(const QByteArray& bytes, FontRecord& out);
    static constexpr int kSize = 92;
};

/// The settings object: holds the settings and the list font and moves them between memory and the settings
/// tree, in two areas that stay apart: the profile (numbered values) and the base key (named blobs and keys
/// of other users). Values are written one by one and only where they differ from what this process last read
/// or wrote, so that a window and a console that change different settings at once lose none.
class CCfgStore : public Settings, public CPrecisionSource {
 public:
    /// basePath: name of the base key below the tree's root.
    CCfgStore(CSettingsTree& tree, CProfile& profile, CPrompt& prompt, const CRegionalInfo& region,
              const QString& basePath);
    ~CCfgStore() override;
    CCfgStore(const CCfgStore&) = delete;
    CCfgStore& operator=(const CCfgStore&) = delete;

    bool SaveAll();
    bool LoadAll();
    void ResetAll();
    bool SaveValues();
    bool LoadValues();
    bool ResetValues();
    /// Saves one setting at once (console, or a running window on its behalf).
    [[nodiscard]] bool SaveValue(int index);
    /// Drops what memory holds at the end instead of saving it: a console command that only reads writes
    /// nothing.
    void KeepStoreUntouched() { m_saveAtEnd = false; }

    [[nodiscard]] const FontRecord& ListFont() const { return m_listFont; }
    void SetListFont(const FontRecord& font) { m_listFont = font; }

    bool ReadBinary(const QString& name, QByteArray& out, bool report);
    bool ReadText(const QString& name, QString& out, bool report);
    bool WriteBinary(const QString& name, const QByteArray& data, bool report);
    bool WriteText(const QString& name, const QString& text, bool report);
    bool WriteInt(const QString& name, std::int32_t value);
    bool ReadInt(const QString& name, std::int32_t& out, bool report);
    bool DeleteKey(const QString& name);
    bool DeleteValue(const QString& name);
    bool EnumKeys(const QString& subkey, QStringList& out);

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

    bool ReadEntry(QByteArray& out, const QString& prefix, const QString& entry);
    bool WriteEntry(const QString& prefix, const QString& entry, const QByteArray& data);
    bool DeleteEntry(const QString& prefix, const QString& entry);
    bool RenameEntry(const QString& prefix, const QString& oldName, const QString& newName);

    [[nodiscard]] CProfile& Profile() { return m_profile; }
    [[nodiscard]] CSettingsTree& Tree() { return m_tree; }
    [[nodiscard]] const CRegionalInfo& Region() const { return m_region; }

    [[nodiscard]] int DurationPrecision() const override { return precisionDuration; }
    [[nodiscard]] int DistancePrecision() const override { return precisionDistance; }
    [[nodiscard]] int RatePrecision() const override { return precisionRate; }
    [[nodiscard]] int AmountPrecision() const override { return precisionAmount; }

 private:
    class OpenKeySwap;
    bool Refuse(int textId, const QString& text, int titleId);

    CSettingsTree& m_tree;
    CProfile& m_profile;
    CPrompt& m_prompt;
    CRegionalInfo m_region;
    QString m_sectionName;
    std::vector<std::unique_ptr<CCfgValue>> m_values;
    FontRecord m_listFont;
    QString m_basePath;
    CSettingsKey m_openKey;
    bool m_saveAtEnd = true;
};
