#pragma once

#include "exchange/backup/BackupOutcome.h"
#include "records/CVORec.h"

#include <QByteArray>
#include <functional>
#include <optional>

class CBackupDigest;
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

    /// Reads all of it and looks whether it is whole: by its digest, and each record by its parts. Of times
    /// and expenses that is all there is to making them; a file that was just written is looked at so, in one
    /// go.
    [[nodiscard]] BackupOutcome VerifyParts();
    /// Reads all of it and makes every record, handing them on; what: said of the progress. The digest is
    /// compared before the first record is made.
    [[nodiscard]] BackupOutcome Read(const QString& what, const Take& take);
    /// The same of a file that was read before and may have changed since: the digest is taken beside the
    /// records and compared behind the last one. Until then what was taken counts for nothing.
    [[nodiscard]] BackupOutcome ReadAgain(const QString& what, const Take& take);

 private:
    enum class Got { All, Less, Failed };
    /// What becomes of the bytes of a record.
    enum class Depth { Parts, Records };
    enum class Digest { First, Beside };
    [[nodiscard]] BackupOutcome ReadTo(Depth depth, Digest digest, const QString& what, const Take& take);
    [[nodiscard]] bool Seek(qint64 place);
    [[nodiscard]] Got ReadBlock(qint64 wanted);
    [[nodiscard]] Got Get(char* bytes, qint64 size);
    [[nodiscard]] Got GetBytes(qint64 size, QByteArray& bytes);
    [[nodiscard]] Got GetInt(std::int32_t& number);
    bool Fail(Text reason);
    bool FailIn(const char* className);
    [[nodiscard]] bool Follow(Got got, Text failed, Text less);
    [[nodiscard]] bool GoesOn(qint64 bytes);

    [[nodiscard]] bool ReadWithDigestFirst(const Take& take);
    [[nodiscard]] bool ReadWithDigestBeside(const Take& take);
    [[nodiscard]] bool ReadStoredDigest(QByteArray& stored);
    [[nodiscard]] bool HashRest(CBackupDigest& digest);
    [[nodiscard]] bool Compare(CBackupDigest& digest, const QByteArray& stored);
    [[nodiscard]] bool ReadContent(const Take& take);
    [[nodiscard]] bool ReadHead();
    [[nodiscard]] bool ReadForm();
    [[nodiscard]] bool ReadTime();
    [[nodiscard]] bool ReadTable(const BackupFormat::TableRow& table, int& count, const Take& take);
    [[nodiscard]] bool ReadRecord(const BackupFormat::TableRow& table, std::int32_t idLength,
                                  const Take& take);
    [[nodiscard]] bool ReadId(std::int32_t length, QString& id);
    [[nodiscard]] bool TakeData(const BackupFormat::TableRow& table, const QString& id, const Take& take);

    QIODevice& m_file;
    CProgress& m_progress;
    Depth m_depth = Depth::Records;
    qint64 m_left = 0;                  ///< of the file, behind what was handed out
    QByteArray m_block;                 ///< read at once
    CBackupDigest* m_beside = nullptr;  ///< has every block that is read
    qsizetype m_used = 0;               ///< of the block
    QByteArray m_data;                  ///< of the record that is read
    int m_items = 0;                    ///< that a record of the table has as bytes
    BackupFormat::TextForm m_form = BackupFormat::TextForm::Wide;
    bool m_isPacked = false;
    qint64 m_handled = 0;  ///< bytes since the last step of the progress
    BackupOutcome m_outcome;
};
