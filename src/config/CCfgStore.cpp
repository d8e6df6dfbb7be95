#include "config/CCfgStore.h"

#include "config/CCfgBool.h"
#include "config/CCfgColour.h"
#include "config/CCfgInt.h"
#include "config/CEntryJournal.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>

namespace {

bool IsOwn(std::size_t index) {
    return index >= SettingsTable().size();
}

/// The name under which a setting is stored: its place in the table, nothing else. This program's own ones
/// are stored by their names.
QString EntryName(std::size_t index) {
    if (IsOwn(index)) return QLatin1String(OwnSettingsTable()[index - SettingsTable().size()].name);
    return QStringLiteral("VirtualCfgObj%1").arg(index, 4, 10, QLatin1Char('0'));
}

/// Where it is stored in the profile. No name is in both sections.
QString SectionName(std::size_t index) {
    return IsOwn(index) ? QStringLiteral("Own") : QStringLiteral("CoreRuntime");
}

FontRecord DefaultFont() {
    FontRecord font;
    font.face = LoadText(Text::DefaultFontFace);
    return font;
}

int Places(std::int32_t setting) {
    return std::clamp(setting, 0, 6);
}

}  // namespace

CCfgStore::CCfgStore(CSettingsTree& tree, CProfile& profile, CPrompt& prompt, const CRegionalInfo& region,
                     const QString& basePath)
    : m_tree(tree),
      m_profile(profile),
      m_prompt(prompt),
      m_region(region),
      m_listFont(DefaultFont()),
      m_basePath(basePath) {
    RegisterValues(SettingsTable());
    RegisterValues(OwnSettingsTable());
    ResetValues();
    OpenBaseKey();
}

CCfgStore::~CCfgStore() {
    if (m_saveAtEnd) SaveAll();
}

// --- The values, in the order of their table

void CCfgStore::RegisterValues(std::span<const SettingRow> rows) {
    for (const SettingRow& row : rows)
        std::visit(
            [this, &row](auto member) {
                auto& setting = this->*member;
                using Value = std::remove_reference_t<decltype(setting)>;
                const auto preset = static_cast<Value>(row.preset);
                if constexpr (std::is_same_v<Value, bool>) AddBool(setting, preset);
                if constexpr (std::is_same_v<Value, std::int32_t>) AddInt(setting, preset);
                if constexpr (std::is_same_v<Value, std::uint32_t>) AddColour(setting, preset);
            },
            row.member);
}

void CCfgStore::AddBool(bool& setting, bool preset) {
    Adopt(std::make_unique<CCfgBool>(), &setting, preset);
}

void CCfgStore::AddInt(std::int32_t& setting, std::int32_t preset) {
    Adopt(std::make_unique<CCfgInt>(), &setting, preset);
}

void CCfgStore::AddColour(std::uint32_t& setting, std::uint32_t preset) {
    Adopt(std::make_unique<CCfgColour>(), &setting, preset);
}

void CCfgStore::Adopt(std::unique_ptr<CCfgValue> value, const SettingAddress& setting,
                      const SettingContent& preset) {
    value->Bind(setting, preset);
    m_values.push_back(std::move(value));
}

ProfileSection CCfgStore::ReadSection() const {
    ProfileSection section;
    for (const std::size_t first : {std::size_t{0}, SettingsTable().size()})
        for (const auto& [entry, value] : m_profile.Section(SectionName(first))) section.insert(entry, value);
    return section;
}

void CCfgStore::LoadValues() {
    const ProfileSection stored = ReadSection();
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        m_values[i]->Load(stored, EntryName(i));
        m_values[i]->NoteKnown(stored.contains(EntryName(i)));
    }
    FollowRegion();
}

/// A value that isn't stored yet is written as well, unless another program has stored it in the meantime.
bool CCfgStore::SaveValues() {
    const auto isDue = [](const auto& value) { return value->IsChanged() || !value->IsStored(); };
    if (std::ranges::none_of(m_values, isDue)) return true;

    std::vector<CCfgValue*> written;
    const bool done = m_profile.Change([&] {
        const ProfileSection stored = ReadSection();
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            CCfgValue& value = *m_values[i];
            const QString entry = EntryName(i);
            if (!value.IsChanged() && (value.IsStored() || stored.contains(entry))) continue;
            if (!value.Save(m_profile, SectionName(i), entry)) return false;
            written.push_back(&value);
        }
        return true;
    });
    if (done)
        for (CCfgValue* value : written) value->NoteKnown(true);
    return done;
}

/// Without the base key the next start is a first one, which writes the defaults over everything.
bool CCfgStore::SaveValue(int index) {
    if (!m_openKey.IsOpen() || index < 0 || index >= static_cast<int>(m_values.size())) return false;
    const auto place = static_cast<std::size_t>(index);
    CCfgValue& value = *m_values[place];
    if (!value.Save(m_profile, SectionName(place), EntryName(place))) return false;
    value.NoteKnown(true);
    FollowRegion();
    return true;
}

void CCfgStore::ResetValues() {
    for (const auto& value : m_values) value->Reset();
    FollowRegion();
}

/// What the user has chosen comes before what the region has; times are shown by the regional values in use,
/// so these take the choice over.
void CCfgStore::FollowRegion() {
    constexpr int kFullDay = 24;
    constexpr int kMetric = 1;
    m_chosenRegion.reset();
    clock24 = clockFormat == 0 ? m_region.is24Hour : clockFormat == kFullDay;
    metricUnits = distanceUnit == 0 ? m_region.isMetric : distanceUnit == kMetric;
    if (clockFormat == 0 || TheRegion().is24Hour == clock24) return;
    CRegionalInfo chosen = TheRegion();
    chosen.is24Hour = clock24;
    m_chosenRegion.emplace(chosen);
}

// --- Everything

void CCfgStore::OpenBaseKey() {
    m_openKey = m_tree.OpenKey(m_tree.Root(), m_basePath);
    if (m_openKey.IsOpen()) return LoadAll();
    if (!MakeBaseKey()) WorkFromMemory();
}

void CCfgStore::WorkFromMemory() {
    m_openKey = {};
    Tell(Text::BaseKeyFailed, FormatText<Text::BaseKeyFailed>(m_basePath), Text::WriteSettingTitle);
    m_listColumns = {};
    m_treeColumns = {};
    ResetAll();
}

/// The first run: key, columns, font and all values come into being as one change, so that a second program
/// that starts at the same moment finds nothing or everything.
bool CCfgStore::MakeBaseKey() {
    auto created = CSettingsTree::Created::No;
    const bool done = m_tree.Change([&] {
        m_openKey = m_tree.CreateKey(m_tree.Root(), m_basePath, &created);
        if (!m_openKey.IsOpen()) return false;
        if (created == CSettingsTree::Created::No) return true;
        ResetAll();
        return SaveBlobs(false) && SaveValues();
    });
    if (done && created == CSettingsTree::Created::No) LoadAll();
    return done;
}

void CCfgStore::DefaultColumns() {
    m_listColumns.SetDefaults();
    m_treeColumns.SetDefaults();
}

void CCfgStore::ResetAll() {
    DefaultColumns();
    ResetValues();
    m_listFont = DefaultFont();
}

/// What a broken disk didn't give is no default: saved at the end, that would take the user's place.
void CCfgStore::LoadAll() {
    (void)m_tree.TakeReadFailure();
    LoadFont();
    LoadListColumns();
    LoadTreeColumns();
    m_listColumns.Repair();
    LoadValues();
    if (m_tree.TakeReadFailure()) WorkFromMemory();
}

bool CCfgStore::SaveAll() {
    if (!m_openKey.IsOpen()) return false;  // the user was told when it could not be opened
    return SaveBlobs(true) && SaveValues();
}

bool CCfgStore::SaveBlobs(bool report) {
    return SaveColumns(m_listColumns, Text::ValueListColumns, Text::ListColumnsBlobFailed, report) &&
           SaveColumns(m_treeColumns, Text::ValueTreeColumns, Text::TreeColumnsBlobFailed, report) &&
           SaveFont(report);
}

bool CCfgStore::SaveColumns(const CColSet& columns, Text name, Text failure, bool report) {
    QByteArray blob;
    if (columns.MakeBlob(blob)) return SaveBlob(name, blob, report);
    if (report) Tell(failure, LoadText(failure), Text::WriteSettingTitle);
    return false;
}

void CCfgStore::LoadListColumns() {
    if (!m_listColumns.LoadBlob(ReadBlob(Text::ValueListColumns)) || m_listColumns.IsEmpty())
        m_listColumns.SetDefaults();
}

void CCfgStore::LoadTreeColumns() {
    const QByteArray blob = ReadBlob(Text::ValueTreeColumns);
    if (m_treeColumns.LoadBlob(blob)) {
        if (m_treeColumns.IsEmpty()) m_treeColumns.SetDefaults();
        return;
    }
    const Text message = blob.isEmpty() ? Text::TreeColumnsReadFailed : Text::TreeColumnsBlobBad;
    Tell(message, LoadText(message), Text::ColumnsTitle);
    m_treeColumns.SetDefaults();
}

void CCfgStore::LoadFont() {
    if (!FontRecord::FromBytes(ReadBlob(Text::ValueListFont), m_listFont)) m_listFont = DefaultFont();
}

bool CCfgStore::SaveFont(bool report) {
    return SaveBlob(Text::ValueListFont, m_listFont.ToBytes(), report);
}

/// Takes note of what is stored under a name, usable or not; nothing where nothing is.
QByteArray CCfgStore::ReadBlob(Text name) {
    QByteArray blob;
    (void)ReadBinary(LoadText(name), blob, false);
    m_storedBlobs.insert(static_cast<int>(name), blob);
    return blob;
}

/// What this process last read or wrote isn't written again: another program may have changed it since.
bool CCfgStore::SaveBlob(Text name, const QByteArray& blob, bool report) {
    if (m_storedBlobs.value(static_cast<int>(name)) == blob) return true;
    if (!WriteBinary(LoadText(name), blob, report)) return false;
    m_storedBlobs.insert(static_cast<int>(name), blob);
    return true;
}

void CCfgStore::Tell(Text message, const QString& text, Text title) {
    MessageBox box;
    box.textId = static_cast<int>(message);
    box.title = LoadText(title);
    box.text = text;
    box.icon = BoxIcon::Warning;
    m_prompt.Tell(box);
}

// --- Decimal places

int CCfgStore::DurationPrecision() const {
    return Places(precisionDuration);
}

int CCfgStore::DistancePrecision() const {
    return Places(precisionDistance);
}

int CCfgStore::RatePrecision() const {
    return Places(precisionRate);
}

int CCfgStore::AmountPrecision() const {
    return Places(precisionAmount);
}

// --- Values of the base key

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
                 Text::ReadWriteTitle);
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
            Tell(Text::ValueEmpty, FormatText<Text::ValueEmpty>(m_basePath, name), Text::ReadWriteTitle);
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

QString CCfgStore::SizeProblem(const QString& name, qsizetype size) const {
    if (size == 0) return FormatText<Text::ValueRefusedEmpty>(m_basePath, name);
    if (size <= kMostOfValue) return {};
    return FormatText<Text::ValueRefusedLarge>(m_basePath, name, kMostOfValue, static_cast<int>(size));
}

/// Shown whatever the caller says about reports: what is refused here would be lost in silence.
bool CCfgStore::HasFittingSize(const QString& name, qsizetype size) {
    const QString problem = SizeProblem(name, size);
    if (problem.isEmpty()) return true;
    Tell(size == 0 ? Text::ValueRefusedEmpty : Text::ValueRefusedLarge, problem, Text::WriteSettingTitle);
    return false;
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
    const bool done = m_tree.Change([&] {
        NoteEntry(prefix, entry);
        return WriteSubBinary(prefix, entry, value, data, false);
    });
    if (!done)
        Tell(Text::ValueWriteFailed, FormatText<Text::ValueWriteFailed>(m_basePath, value),
             Text::WriteSettingTitle);
    return done;
}

CSettingsKey CCfgStore::FindKey(const QString& prefix, const QString& entry) {
    const CSettingsKey parent = m_openKey.IsOpen() ? m_tree.OpenKey(m_openKey, prefix) : CSettingsKey();
    return parent.IsOpen() ? m_tree.OpenKey(parent, entry) : CSettingsKey();
}

void CCfgStore::NoteEntry(const QString& prefix, const QString& entry) {
    if (m_entryJournal) m_entryJournal->NoteEntry(prefix, entry);
}

std::optional<StoredEntry> CCfgStore::FindEntry(const QString& prefix, const QString& entry) {
    const CSettingsKey key = FindKey(prefix, entry);
    auto values = key.IsOpen() ? m_tree.ReadValues(key) : std::nullopt;
    if (!values) return std::nullopt;
    return StoredEntry{EntryContent(std::move(*values)), key.Place()};
}

std::optional<EntryContent> CCfgStore::ReadEntryContent(const QString& prefix, const QString& entry) {
    auto stored = FindEntry(prefix, entry);
    return stored ? std::optional(std::move(stored->content)) : std::nullopt;
}

bool CCfgStore::PutEntryBack(const QString& prefix, const QString& entry, const StoredEntry& former) {
    if (!m_openKey.IsOpen()) return false;
    return m_tree.Change([&] {
        NoteEntry(prefix, entry);
        const CSettingsKey parent = m_tree.CreateKey(m_openKey, prefix);
        CSettingsKey key = m_tree.OpenKey(parent, entry);
        if (!key.IsOpen()) key = m_tree.MakeKeyAgain(parent, entry, former.place);
        const auto present = key.IsOpen() ? m_tree.ReadValues(key) : std::nullopt;
        return present &&
               std::ranges::all_of(*present,
                                   [&](const auto& value) { return m_tree.DeleteValue(key, value.first); }) &&
               std::ranges::all_of(former.content.Values(), [&](const auto& value) {
                   return m_tree.WriteValue(key, value.first, value.second);
               });
    });
}

bool CCfgStore::WriteEntryContent(const QString& prefix, const QString& entry, const EntryContent& content) {
    return m_tree.Change([&] {
        NoteEntry(prefix, entry);
        const OpenKeySwap swap(*this, prefix, entry);
        return std::ranges::all_of(
            content.Values(), [this](const auto& value) { return Write(value.first, value.second, false); });
    });
}

bool CCfgStore::DeleteEntry(const QString& prefix, const QString& entry) {
    const CSettingsKey parent = m_openKey.IsOpen() ? m_tree.OpenKey(m_openKey, prefix) : CSettingsKey();
    return parent.IsOpen() && m_tree.Change([&] {
        NoteEntry(prefix, entry);
        return m_tree.DeleteKey(parent, entry);
    });
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
        NoteEntry(prefix, newName);
        return isDeleted && WriteSubBinary(prefix, newName, value, content, false);
    });
    if (!done && isDeleted)
        Tell(Text::ValueWriteFailed, FormatText<Text::ValueWriteFailed>(m_basePath, value),
             Text::WriteSettingTitle);
    return done;
}
