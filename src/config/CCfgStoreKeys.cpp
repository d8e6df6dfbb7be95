#include "config/CCfgStore.h"
#include "lang/FormatText.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>

/// Makes a key below the base key the open one for its scope. Where it can't be opened nothing is open, and
/// what is read or written then fails by its own rules.
class CCfgStore::OpenKeySwap {
 public:
    OpenKeySwap(CCfgStore& store, const QString& prefix, const QString& entry)
        : m_store(store), m_former(store.m_openKey) {
        const CSettingsKey parent = store.m_tree.CreateKey(m_former, prefix);
        m_store.m_openKey = parent.IsOpen() ? store.m_tree.CreateKey(parent, entry) : CSettingsKey();
    }
    ~OpenKeySwap() { m_store.m_openKey = m_former; }
    OpenKeySwap(const OpenKeySwap&) = delete;
    OpenKeySwap& operator=(const OpenKeySwap&) = delete;

 private:
    CCfgStore& m_store;
    CSettingsKey m_former;
};

// --- Reading

bool CCfgStore::ReadBinary(const QString& name, QByteArray& out, bool report) {
    return ReadAs(name, out, report);
}

bool CCfgStore::ReadText(const QString& name, QString& out, bool report) {
    return ReadAs(name, out, report);
}

template <class T>
bool CCfgStore::ReadAs(const QString& name, T& out, bool report) {
    out.clear();
    const auto value = m_openKey.IsOpen() ? m_tree.ReadValue(m_openKey, name) : std::nullopt;
    if (!value) {
        if (report)
            Tell(Text::ValueSizeUnknown, FormatText<Text::ValueSizeUnknown>(m_basePath, name),
                 Text::ReadSettingTitle);
        return false;
    }
    const T* content = std::get_if<T>(&*value);
    if (!content) {
        if (report)
            Tell(Text::ValueReadFailed, FormatText<Text::ValueReadFailed>(m_basePath, name),
                 Text::WriteSettingTitle);
        return false;
    }
    if (content->isEmpty()) {
        if (report)
            Tell(Text::ValueEmpty, FormatText<Text::ValueEmpty>(m_basePath, name), Text::ReadSettingTitle);
        return false;
    }
    out = *content;
    return true;
}

bool CCfgStore::ReadInt(const QString& name, std::int32_t& out, bool report) {
    out = 0;
    QByteArray bytes;
    if (!ReadBinary(name, bytes, report)) return false;
    char first[4] = {};
    std::memcpy(first, bytes.constData(), std::min<std::size_t>(4, static_cast<std::size_t>(bytes.size())));
    out = qFromLittleEndian<std::int32_t>(first);
    return true;
}

bool CCfgStore::EnumKeys(const QString& subkey, QStringList& out) {
    out.clear();
    const CSettingsKey key = m_openKey.IsOpen() ? m_tree.OpenKey(m_openKey, subkey) : CSettingsKey();
    if (!key.IsOpen()) return false;
    const auto names = m_tree.EnumKeys(key);
    if (!names) return false;
    out = *names;
    return true;
}

// --- Writing

/// Shown whatever the caller says about reports: what is refused here would be lost in silence.
bool CCfgStore::HasFittingSize(const QString& name, qsizetype size) {
    if (size == 0) {
        Tell(Text::ValueRefusedEmpty, FormatText<Text::ValueRefusedEmpty>(m_basePath, name),
             Text::WriteSettingTitle);
        return false;
    }
    if (size > kMostOfValue) {
        Tell(Text::ValueRefusedLarge,
             FormatText<Text::ValueRefusedLarge>(m_basePath, name, kMostOfValue, static_cast<int>(size)),
             Text::WriteSettingTitle);
        return false;
    }
    return true;
}

bool CCfgStore::WriteBinary(const QString& name, const QByteArray& data, bool report) {
    return HasFittingSize(name, data.size()) && Write(name, data, report);
}

bool CCfgStore::WriteText(const QString& name, const QString& text, bool report) {
    return HasFittingSize(name, text.size()) && Write(name, text, report);
}

bool CCfgStore::Write(const QString& name, const SettingsValue& value, bool report) {
    if (m_openKey.IsOpen() && m_tree.WriteValue(m_openKey, name, value)) return true;
    if (report)
        Tell(Text::ValueWriteFailed, FormatText<Text::ValueWriteFailed>(m_basePath, name),
             Text::WriteSettingTitle);
    return false;
}

bool CCfgStore::WriteInt(const QString& name, std::int32_t value) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return WriteBinary(name, bytes, true);
}

bool CCfgStore::DeleteKey(const QString& name) {
    return m_openKey.IsOpen() && m_tree.DeleteKey(m_openKey, name);
}

bool CCfgStore::DeleteValue(const QString& name) {
    return m_openKey.IsOpen() && m_tree.DeleteValue(m_openKey, name);
}

// --- The same below the base key

bool CCfgStore::ReadSubBinary(const QString& prefix, const QString& entry, const QString& name,
                              QByteArray& out, bool report) {
    const OpenKeySwap swap(*this, prefix, entry);
    return ReadBinary(name, out, report);
}

bool CCfgStore::ReadSubText(const QString& prefix, const QString& entry, const QString& name, QString& out,
                            bool report) {
    const OpenKeySwap swap(*this, prefix, entry);
    return ReadText(name, out, report);
}

bool CCfgStore::ReadSubInt(const QString& prefix, const QString& entry, const QString& name,
                           std::int32_t& out, bool report) {
    const OpenKeySwap swap(*this, prefix, entry);
    return ReadInt(name, out, report);
}

bool CCfgStore::WriteSubBinary(const QString& prefix, const QString& entry, const QString& name,
                               const QByteArray& data, bool report) {
    const OpenKeySwap swap(*this, prefix, entry);
    return WriteBinary(name, data, report);
}

bool CCfgStore::WriteSubText(const QString& prefix, const QString& entry, const QString& name,
                             const QString& text, bool report) {
    const OpenKeySwap swap(*this, prefix, entry);
    return WriteText(name, text, report);
}

bool CCfgStore::WriteSubInt(const QString& prefix, const QString& entry, const QString& name,
                            std::int32_t value) {
    const OpenKeySwap swap(*this, prefix, entry);
    return WriteInt(name, value);
}

// --- Named entries

bool CCfgStore::ReadEntry(QByteArray& out, const QString& prefix, const QString& entry) {
    return ReadSubBinary(prefix, entry, LoadText(Text::ValueEntry), out, false);
}

bool CCfgStore::HasEntry(const QString& prefix, const QString& entry) {
    const CSettingsKey parent = m_openKey.IsOpen() ? m_tree.OpenKey(m_openKey, prefix) : CSettingsKey();
    return parent.IsOpen() && m_tree.OpenKey(parent, entry).IsOpen();
}

/// One change of the tree: a program that is killed in between leaves no entry without its value.
bool CCfgStore::WriteEntry(const QString& prefix, const QString& entry, const QByteArray& data) {
    const QString& value = LoadText(Text::ValueEntry);
    if (!HasFittingSize(value, data.size())) return false;
    const bool done = m_tree.Change([&] { return WriteSubBinary(prefix, entry, value, data, false); });
    if (!done)
        Tell(Text::ValueWriteFailed, FormatText<Text::ValueWriteFailed>(m_basePath, value),
             Text::WriteSettingTitle);
    return done;
}

bool CCfgStore::DeleteEntry(const QString& prefix, const QString& entry) {
    const CSettingsKey parent = m_openKey.IsOpen() ? m_tree.OpenKey(m_openKey, prefix) : CSettingsKey();
    return parent.IsOpen() && m_tree.DeleteKey(parent, entry);
}

/// One change of the tree, so that no failure between the delete and the write can lose the entry; what went
/// wrong is told after it, as no box may stand open in the middle of a change.
bool CCfgStore::RenameEntry(const QString& prefix, const QString& oldName, const QString& newName) {
    const QString& value = LoadText(Text::ValueEntry);
    QByteArray content;
    if (!ReadEntry(content, prefix, oldName)) return false;
    if (!HasFittingSize(value, content.size())) return false;
    bool isDeleted = false;
    const bool done = m_tree.Change([&] {
        isDeleted = DeleteEntry(prefix, oldName);
        return isDeleted && WriteSubBinary(prefix, newName, value, content, false);
    });
    if (!done && isDeleted)
        Tell(Text::ValueWriteFailed, FormatText<Text::ValueWriteFailed>(m_basePath, value),
             Text::WriteSettingTitle);
    return done;
}
