// The settings file: the input is the file. It opens, or it is in quarantine as it was and a fresh one takes
// its place; then the tree works. A file that is newer or can't be read stays as it was. (A file with a
// write-ahead log is brought back to a rollback journal before anybody looks into it, so that it may change.)
#include "Fuzz.h"
#include "platform/settings/CSettingsTree.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDeepest = 20;  // a damaged file may have keys in a circle

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool HasWriteAheadLog(const QByteArray& file) {
    return file.size() > 19 && (file[18] == 2 || file[19] == 2);
}

bool Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

void ReadAll(CSettingsTree& tree, const CSettingsKey& key, int depth, int& left) {
    static_cast<void>(tree.ReadValues(key));
    const auto names = depth < kDeepest ? tree.EnumKeys(key) : std::nullopt;
    if (!names) return;
    for (const QString& name : *names) {
        if (--left < 0) return;
        const CSettingsKey child = tree.OpenKey(key, name);
        if (child.IsOpen()) ReadAll(tree, child, depth + 1, left);
    }
}

bool Works(CSettingsTree& tree) {
    const QString name = u"key / \\ of \"ours\""_s;
    const SettingsValue value = QByteArray("bytes");
    const CSettingsKey key = tree.CreateKey(tree.Root(), name);
    return key.IsOpen() && tree.WriteValue(key, u"value"_s, value) &&
           tree.ReadValue(key, u"value"_s) == value && tree.DeleteKey(tree.Root(), name);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir scratch;
    const QString folder = scratch.filePath(u"home"_s);
    QDir(folder).removeRecursively();
    Demand(QDir().mkpath(folder), "there is a scratch folder");
    const QString path = folder + u"/velmarch.settings"_s;
    const QByteArray bytes = CInput(data, size).Rest();
    Demand(Write(path, bytes), "the file can be written");

    CSettingsTree tree;
    const bool isOpen = tree.Open(path, 0);
    if (!tree.KeptAside().isEmpty()) {
        Demand(isOpen, "a fresh file takes the place of one in quarantine");
        Demand(HasWriteAheadLog(bytes) || ContentOf(tree.KeptAside()) == bytes,
               "the file in quarantine is as it was");
    }
    if (!isOpen) {
        Demand(HasWriteAheadLog(bytes) || ContentOf(path) == bytes,
               "a file that isn't ours to change stays as it was");
        Demand(!tree.Error().isEmpty(), "there is a reason");
    }
    int left = 1000;
    ReadAll(tree, tree.Root(), 0, left);
    // A file that opens may still hold somebody's own rules against writing.
    const bool works = Works(tree);
    if (!isOpen || !tree.KeptAside().isEmpty()) Demand(works, "a fresh tree can be written and read");
    return 0;
}
