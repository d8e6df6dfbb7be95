#pragma once

#include "torture/CVfsShim.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <random>
#include <vector>

/// One change of a file, or a point at which changes became durable.
struct FileEvent {
    enum class Kind { Create, Write, Truncate, Sync, SyncFolder, Delete };
    Kind kind;
    QString path;
    qint64 offset = 0;  ///< of a write; the size of a truncation
    QByteArray data;
};

/// Notes every change that SQLite makes to its files, in order.
class FileHistory final : public CVfsShim {
 public:
    std::vector<FileEvent> events;

    void OnOpened(const QString& path, bool isNew) override;
    int OnWrite(const QString& path, qint64 offset, const QByteArray& data) override;
    int OnTruncate(const QString& path, qint64 size) override;
    int OnSync(const QString& path, bool isFirst) override;
    int OnDelete(const QString& path, bool syncsFolder) override;
};

/// What a disk holds while events go by: of each file what is surely there, and the changes since its last
/// sync, any of which a power cut may take away.
class DiskState {
 public:
    /// A file that is there, durable, from the beginning.
    void Put(const QString& path, const QByteArray& content);
    void Apply(const FileEvent& event);

    /// The files after a power cut at this point, drawn at random: pending changes are there, absent or torn
    /// at sectors of 512 bytes, in any combination; so are sizes, and names until their folder was synced.
    [[nodiscard]] QHash<QString, QByteArray> AfterPowerCut(std::mt19937& random) const;
    /// The files if all went well.
    [[nodiscard]] QHash<QString, QByteArray> Whole() const;

 private:
    struct File {
        QByteArray durable;
        std::vector<FileEvent> pending;
        bool isNamed = true;     ///< its name is surely in the folder
        bool isDeleted = false;  ///< deleted, but the name may come back
    };
    QHash<QString, File> m_files;
};
