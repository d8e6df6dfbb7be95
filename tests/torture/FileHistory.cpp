#include "torture/FileHistory.h"

#include <algorithm>

namespace {

using Kind = FileEvent::Kind;

constexpr qsizetype kSector = 512;

void Overwrite(QByteArray& content, qsizetype offset, QByteArrayView data) {
    if (content.size() < offset + data.size()) content.append(offset + data.size() - content.size(), '\0');
    std::copy(data.begin(), data.end(), content.begin() + offset);
}

void Resize(QByteArray& content, qsizetype size) {
    if (size <= content.size())
        content.truncate(size);
    else
        content.append(size - content.size(), '\0');
}

/// The whole of a change.
void Carry(QByteArray& content, const FileEvent& event) {
    if (event.kind == Kind::Write)
        Overwrite(content, event.offset, event.data);
    else if (event.kind == Kind::Truncate)
        Resize(content, event.offset);
}

/// Some of the sectors that a write touches.
void CarrySectors(QByteArray& content, const FileEvent& event, std::mt19937& random) {
    for (qsizetype at = 0; at < event.data.size();) {
        const qsizetype end = std::min(event.data.size(), at + kSector - (event.offset + at) % kSector);
        if (random() % 2 == 0)
            Overwrite(content, event.offset + at, QByteArrayView(event.data).sliced(at, end - at));
        at = end;
    }
    // The size may have become durable without the sectors.
    if (random() % 2 == 0 && content.size() < event.offset + event.data.size())
        Resize(content, event.offset + event.data.size());
}

/// What is left of a change after a power cut: all, nothing or a part.
void CarryMaybe(QByteArray& content, const FileEvent& event, std::mt19937& random) {
    const auto fate = random() % 3;
    if (fate == 0) return;
    if (fate == 1 || event.kind != Kind::Write)
        Carry(content, event);
    else
        CarrySectors(content, event, random);
}

}  // namespace

void FileHistory::OnOpened(const QString& path, bool isNew) {
    if (isNew && !path.isEmpty()) events.push_back({Kind::Create, path, 0, {}});
}

int FileHistory::OnWrite(const QString& path, qint64 offset, const QByteArray& data) {
    events.push_back({Kind::Write, path, offset, data});
    return SQLITE_OK;
}

int FileHistory::OnTruncate(const QString& path, qint64 size) {
    events.push_back({Kind::Truncate, path, size, {}});
    return SQLITE_OK;
}

int FileHistory::OnSync(const QString& path, bool isFirst) {
    events.push_back({Kind::Sync, path, 0, {}});
    if (isFirst) events.push_back({Kind::SyncFolder, path, 0, {}});
    return SQLITE_OK;
}

int FileHistory::OnDelete(const QString& path, bool syncsFolder) {
    events.push_back({Kind::Delete, path, 0, {}});
    if (syncsFolder) events.push_back({Kind::SyncFolder, path, 0, {}});
    return SQLITE_OK;
}

void DiskState::Put(const QString& path, const QByteArray& content) {
    m_files[path].durable = content;
}

void DiskState::Apply(const FileEvent& event) {
    if (event.kind == Kind::SyncFolder) {
        for (auto file = m_files.begin(); file != m_files.end();) {
            file->isNamed = true;
            file = file->isDeleted ? m_files.erase(file) : std::next(file);
        }
        return;
    }
    File& file = m_files[event.path];
    switch (event.kind) {
        case Kind::Create:
            file = {};
            file.isNamed = false;
            break;
        case Kind::Delete:
            file.isDeleted = true;
            break;
        case Kind::Sync:
            for (const FileEvent& change : file.pending) Carry(file.durable, change);
            file.pending.clear();
            break;
        default:
            file.pending.push_back(event);
    }
}

QHash<QString, QByteArray> DiskState::AfterPowerCut(std::mt19937& random) const {
    QHash<QString, QByteArray> files;
    for (auto file = m_files.begin(); file != m_files.end(); ++file) {
        const bool isThere = (file->isNamed || random() % 2 == 0) && (!file->isDeleted || random() % 2 == 0);
        if (!isThere) continue;
        QByteArray content = file->durable;
        for (const FileEvent& change : file->pending) CarryMaybe(content, change, random);
        files.insert(file.key(), content);
    }
    return files;
}

QHash<QString, QByteArray> DiskState::Whole() const {
    QHash<QString, QByteArray> files;
    for (auto file = m_files.begin(); file != m_files.end(); ++file) {
        if (file->isDeleted) continue;
        QByteArray content = file->durable;
        for (const FileEvent& change : file->pending) Carry(content, change);
        files.insert(file.key(), content);
    }
    return files;
}
