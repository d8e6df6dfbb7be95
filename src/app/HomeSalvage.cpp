#include "app/HomeSalvage.h"

#include "app/HomeFiles.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "platform/settings/SettingsChecks.h"
#include "platform/sqlite/FileCopy.h"
#include "records/CRecordStore.h"
#include "records/RecordFactory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWaitSeconds = 30;

/// A failure of the store shows in its manager as well.
class CSilentPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override { return box.defaultAnswer; }
    void Tell(const MessageBox&) override {}
    std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }
};

/// A copy of a damaged file beside the new ones, for as long as it is read.
class CWorkingCopy {
 public:
    CWorkingCopy(const QString& from, const QString& path) : m_file(path) {
        error = CopyDatabase(from, path, kWaitSeconds);
        if (error.isEmpty() && !m_file.open(QIODevice::ReadOnly)) error = m_file.errorString();
        if (error.isEmpty()) m_bytes = m_file.map(0, m_file.size());
        if (error.isEmpty() && m_bytes == nullptr && m_file.size() > 0) error = m_file.errorString();
    }
    ~CWorkingCopy() {
        m_file.close();
        QFile::remove(m_file.fileName());
        QFile::remove(m_file.fileName() + u"-journal"_s);
    }
    CWorkingCopy(const CWorkingCopy&) = delete;
    CWorkingCopy& operator=(const CWorkingCopy&) = delete;

    [[nodiscard]] QByteArrayView Bytes() const {
        return {reinterpret_cast<const char*>(m_bytes), m_bytes != nullptr ? m_file.size() : 0};
    }
    QString error;

 private:
    QFile m_file;
    const uchar* m_bytes = nullptr;
};

QString MakeFolder(const QString& folder) {
    const QFileInfo present(folder);
    if (present.exists() && (!present.isDir() || !QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden |
                                                                       QDir::System | QDir::NoDotAndDotDot)))
        return FormatText<Text::SalvageFolderUsed>(folder);
    errno = 0;
    if (present.exists() || (QDir().mkpath(present.path()) &&
                             QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)))
        return {};
    return FormatText<Text::HomeCantBeMade>(folder, qt_error_string(errno));
}

QString SalvageRecords(const QString& home, SalvagedHome& out) {
    const QString from = StorePath(home);
    const QString path = StorePath(out.folder);
    const CWorkingCopy copy(from, path + u".damaged"_s);
    if (!copy.error.isEmpty()) return copy.error;
    CVOSrcMgr manager;
    CSilentPrompt prompt;
    CRecordStore store(manager, prompt, DataSourceName());
    manager.m_directory = out.folder;
    manager.m_fileName = QFileInfo(path).fileName();
    eActionDisposition source{}, second{};
    bool isMade = manager.InitDataSrc(source, second);
    for (const RecordKind kind : kStoreTables)
        isMade = isMade && manager.InitDataSrcTable(store.TableName(kind), *NewRecord(kind));
    if (!isMade) return manager.m_error;
    return SalvageStore(copy.Bytes(), store, out.records) ? QString() : manager.File().Error();
}

bool AreSound(const QString& path) {
    CSqliteFile file;
    const OpenOutcome outcome = file.Open(path, CSettingsTree::kFileKind, false);
    if (outcome != OpenOutcome::Existed || !file.IntegrityReport().isEmpty()) return false;
    const auto damaged = DamagedEntries(file);
    return damaged && damaged->empty();
}

/// The new home has a store, and no damage is known of it; that timers are lost stays known.
bool NoteStore(CSettingsTree& tree, const SalvagedHome& saved) {
    CProfile profile(tree, LoadText(Text::ProfileKeyName));
    return profile.Change([&] {
        return NoteStoreKnown(profile, true) && NoteStoreDamaged(profile, false) &&
               (!HasTimers(saved.values.lostNames) || NoteTimersLost(profile, true));
    });
}

/// What is lost now, and what was put aside before.
QStringList NotSaved(const QString& home, CSettingsTree& tree, const SalvagedHome& saved) {
    QStringList names = saved.values.lostNames;
    names += NamesOf(tree.File(), EntriesAside(tree.File()));
    names.removeDuplicates();
    const QFileInfo settings(SettingsPath(home));
    const QStringList aside{settings.fileName() + u".unreadable-*"_s};
    for (const QString& file : settings.dir().entryList(aside, QDir::Files))
        if (!file.endsWith(u"-journal")) names += file;
    return names;
}

QString SalvageValues(const QString& home, SalvagedHome& out) {
    const QString from = SettingsPath(home);
    const QString path = SettingsPath(out.folder);
    CSettingsTree tree;
    if (QFileInfo(from).size() > 0) {
        const CWorkingCopy copy(from, path + u".damaged"_s);
        if (!copy.error.isEmpty()) return copy.error;
        const bool areSound = AreSound(path + u".damaged"_s);
        out.settings = areSound ? SalvagedHome::Settings::Copied : SalvagedHome::Settings::Partly;
        if (areSound && !QFile::copy(path + u".damaged"_s, path))
            return FormatText<Text::SettingsInMemory>(path);
        if (!tree.Open(path)) return tree.Error();
        if (!areSound && !SalvageSettings(copy.Bytes(), tree, out.values)) return tree.File().Error();
    } else if (!tree.Open(path)) {
        return tree.Error();
    }
    out.notSaved = NotSaved(home, tree, out);
    return NoteStore(tree, out) ? QString() : tree.Error();
}

int SavedOf(const SalvagedHome& saved, RecordKind kind) {
    const auto found = saved.records.saved.find(kind);
    return found == saved.records.saved.end() ? 0 : found->second;
}

void AddLosses(const SalvagedRecords& records, QStringList& lines) {
    const int lost = records.lost.count;
    if (lost == 0)
        lines += LoadText(records.isLossKnown ? Text::SalvageNothingLost : Text::SalvageLossUnknown);
    else
        lines += records.isLossKnown ? FormatText<Text::SalvageLost>(lost)
                                     : FormatText<Text::SalvageLostAtLeast>(lost);
    for (const auto& [day, count] : records.lost.days) {
        const QString text = DayText(day);
        lines +=
            FormatText<Text::SalvageLostDay>(text.isEmpty() ? LoadText(Text::SalvageNoDay) : text, count);
    }
    if (!records.doubtful.isEmpty())
        lines += FormatText<Text::SalvageDoubtful>(static_cast<int>(records.doubtful.size()),
                                                   records.doubtful.join(u", "_s));
}

}  // namespace

SalvagedHome SalvageHome(const QString& home, const QString& folder) {
    SalvagedHome out;
    out.folder = QDir::cleanPath(QDir::current().absoluteFilePath(folder));
    const QString store = StorePath(home);
    out.error = QFileInfo::exists(store) ? MakeFolder(out.folder) : FormatText<Text::CliStoreGone>(store);
    if (out.error.isEmpty()) out.error = SalvageRecords(home, out);
    if (out.error.isEmpty()) out.error = SalvageValues(home, out);
    out.hasHistory = QFileInfo::exists(HistoryPath(home));
    return out;
}

QStringList SalvageLines(const SalvagedHome& saved) {
    QStringList lines{FormatText<Text::SalvageSaved>(
        saved.folder, SavedOf(saved, RecordKind::Time), SavedOf(saved, RecordKind::Expense),
        SavedOf(saved, RecordKind::PulldownItem), SavedOf(saved, RecordKind::Dependency))};
    AddLosses(saved.records, lines);
    switch (saved.settings) {
        case SalvagedHome::Settings::None:
            lines += LoadText(Text::SalvageNoSettings);
            break;
        case SalvagedHome::Settings::Copied:
            lines += LoadText(Text::SalvageSettingsCopied);
            break;
        case SalvagedHome::Settings::Partly:
            lines += FormatText<Text::SalvageSettingsPartly>(saved.values.saved, saved.values.lost);
            break;
    }
    if (!saved.notSaved.isEmpty()) lines += FormatText<Text::SalvagePutAside>(saved.notSaved.join(u", "_s));
    if (saved.hasHistory) lines += LoadText(Text::SalvageNoHistory);
    return lines;
}

QString DayText(const StoredDay& day) {
    if (day.year == 0) return {};
    return QString::asprintf("%04d-%02d-%02d", day.year, day.month, day.day);
}
