#pragma once

#include "exchange/backup/BackupOutcome.h"
#include "records/CVORec.h"

#include <QByteArray>
#include <functional>
#include <optional>

class CProgress;
class QIODevice;

/// Reads a backup from an open file, whatever its bytes are: a size that the file can't hold is met before
/// anything is made of it.
class CBackupReader {
 public:
    /// Takes each record in turn; one that has no identity in the file has a new one. A text ends the
    /// reading.
    using Take = std::function<QString(CVORec& record)>;

    CBackupReader(QIODevice& file, CProgress& progress) : m_file(file), m_progress(progress) {}

    /// Reads all of it and makes every record.
    [[nodiscard]] BackupOutcome Verify();
    /// The same, handing the records on; what: said of the progress. The digest is compared before the first
    /// record is made.
    [[nodiscard]] BackupOutcome Read(const QString& what, const Take& take);

 private:
    enum class Got { All, Less, Failed };
    [[nodiscard]] Got GetBytes(qint64 size, QByteArray& bytes);
    [[nodiscard]] Got GetInt(std::int32_t& number);
    bool Fail(Text reason);
    bool FailIn(const char* className);
    [[nodiscard]] bool Follow(Got got, Text failed, Text less);
    [[nodiscard]] bool GoesOn(qint64 bytes);

    [[nodiscard]] bool ReadAll(const Take& take);
    [[nodiscard]] bool CompareDigest();
    [[nodiscard]] bool HashRest(QByteArray& digest);
    [[nodiscard]] bool ReadHead();
    [[nodiscard]] bool ReadForm();
    [[nodiscard]] bool ReadTime();
    [[nodiscard]] bool ReadTable(const BackupFormat::TableRow& table, int& count, const Take& take);
    [[nodiscard]] bool ReadRecord(const BackupFormat::TableRow& table, std::int32_t idLength,
                                  const Take& take);
    [[nodiscard]] bool ReadId(std::int32_t length, QString& id);

    QIODevice& m_file;
    CProgress& m_progress;
    qint64 m_size = 0;
    BackupFormat::TextForm m_form = BackupFormat::TextForm::Wide;
    bool m_isPacked = false;
    qint64 m_handled = 0;  ///< bytes since the last step of the progress
    BackupOutcome m_outcome;
};
