#pragma once

#include "records/CVORec.h"
#include "records/CVORecordset.h"

#include <QByteArrayList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <memory>

#include "platform/host/CWaitBudget.h"

class CSqliteFile;
class CStoreJournal;
class CStoreTable;

/// How InitDataSrc found the store.
enum class eActionDisposition : int { Created = 0, Existed = 1 };

/// One open connection to the record store. The store's query language is SQL; statements come composed from
/// CRecordStore. Operations return false on failure and leave m_error (words) and m_errorCode filled.
///
/// Changes gather in one transaction until Update makes them durable; a delete outside of one is durable by
/// itself. When Update fails, nothing of them is stored, now or later: who made them reads again, tells the
/// user and has them entered once more.
class CVOSrcMgr {
 public:
    CVOSrcMgr();
    /// A second, independent manager on the same store.
    CVOSrcMgr(const QString& name, const QString& purpose);
    ~CVOSrcMgr();
    CVOSrcMgr(const CVOSrcMgr&) = delete;
    CVOSrcMgr& operator=(const CVOSrcMgr&) = delete;

    QString m_directory;  ///< set before InitDataSrc
    QString m_fileName;
    QString m_thirdLocation;
    bool m_mayCreate = true;               ///< false: a missing store is an error, not an empty start
    int m_busySeconds = kMostWaitSeconds;  ///< how long to wait for one lock of another program
    QString m_error;
    std::int32_t m_errorCode = 0;
    std::unique_ptr<CVORecordset> m_recordset;  ///< null before the first query

    // Before InitDataSrc.

    /// A store of an earlier version stays without checksums.
    void LeaveWithoutChecks() { m_mayTakeOver = false; }
    /// Damage was met before: the store is checked as it is opened.
    void Suspect() { m_isSuspect = true; }

    /// Opens the store. source: Created as long as the store lacks tables, so a creation that was cut off is
    /// finished at the next start. A store that can only be read opens; changing it fails.
    [[nodiscard]] bool InitDataSrc(eActionDisposition& source, eActionDisposition& second);
    /// Whether the row of an identity is as it was written; true also for one that can't be compared.
    [[nodiscard]] bool IsAsWritten(const QString& table, const QString& id);
    /// The identities of a table's rows that aren't as they were written, or are gone without having been
    /// deleted.
    [[nodiscard]] bool FindFaults(const QString& table, QStringList& ids);
    /// Makes a table; one that is there already stays.
    [[nodiscard]] bool InitDataSrcTable(const QString& name, const CVORec& description);
    /// Runs one statement. One that reads stands on its first row then; when updatable, its rows are held in
    /// memory, so no lock is kept while they are changed. One that changes data is durable by itself, or
    /// joins the open transaction.
    [[nodiscard]] bool Query(const QString& statement, bool updatable);
    /// Whether this was the last query, in the batch that is open: nobody else has changed a table since.
    [[nodiscard]] bool StandsAt(const QString& statement) const;
    [[nodiscard]] bool GetQueryRecord(CVORec& record, bool& found, bool advance);
    /// The next rows of the query, so many at most.
    [[nodiscard]] bool GetQueryRows(RowTable& rows, std::size_t most, Ahead ahead = Ahead::No);
    [[nodiscard]] bool IsEOF() const;
    [[nodiscard]] bool MoveNext();
    [[nodiscard]] bool Insert(const CVORec& record);
    [[nodiscard]] bool Modify(const CVORec& record);
    [[nodiscard]] bool Update();

    /// Opens the transaction of a batch, so that deletes join it until Update.
    [[nodiscard]] bool BeginBatch();
    /// While one lives, the records that are inserted into the batch which is open are put into the store in
    /// a thread of its own; whatever else is done with the store waits for them first. One that can't be put
    /// there fails a later call, Update at the latest, and the whole batch is undone.
    class [[nodiscard]] Bulk {
     public:
        explicit Bulk(CVOSrcMgr& manager);
        ~Bulk();
        Bulk(const Bulk&) = delete;
        Bulk& operator=(const Bulk&) = delete;

     private:
        CVOSrcMgr& m_manager;
    };
    /// Waits for the records that are on their way. False when one of a bulk can't be put into the store.
    [[nodiscard]] bool Settle();
    /// Opens a transaction in which everything is read as of one moment, until Discard. Nothing is changed in
    /// it, and other programs that want to store something wait.
    [[nodiscard]] bool BeginRead();
    /// Undoes all changes since the last Update.
    void Discard();
    /// Whether something waits for an Update.
    [[nodiscard]] bool HasOpenChanges() const;
    /// A batch is open that has changed nothing so far.
    [[nodiscard]] bool IsBatchUntouched() const;
    /// The last Update is in the store, but the disk could not confirm it: a power failure may take it back.
    [[nodiscard]] bool IsUnconfirmed() const;
    /// Frees the query and its statement: nothing stays open across a turn of the event loop.
    void CloseQuery();
    /// What no Update has made durable is undone.
    void Close();
    [[nodiscard]] CSqliteFile& File();
    /// Who writes down what is changed through this connection; null: nobody. Must outlive it, or be taken
    /// away.
    void SetJournal(CStoreJournal* journal);
    [[nodiscard]] CStoreJournal* Journal() const { return m_journal; }

 private:
    class Impl;
    using Table = std::shared_ptr<const CStoreTable>;
    bool Fail(std::int32_t code, const QString& words);
    bool FailByFile();
    bool FailByRecord();
    bool FailChange(bool isOwn);
    void TakeOver(const QByteArrayList& tables);
    [[nodiscard]] bool CheckPlace();
    [[nodiscard]] bool EnterTransaction();
    [[nodiscard]] bool RunChange(const QByteArray& sql);
    [[nodiscard]] bool FillRow(const CVORec& record, Table& table);

    QString m_lastQuery;  ///< that has succeeded and wasn't closed
    bool m_mayTakeOver = true;
    bool m_isSuspect = false;
    CStoreJournal* m_journal = nullptr;
    std::unique_ptr<Impl> m_impl;
};
