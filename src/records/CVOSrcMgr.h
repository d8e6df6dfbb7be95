#pragma once

#include "records/CVORec.h"
#include "records/CVORecordset.h"

#include <QString>
#include <cstdint>
#include <memory>

class CSqliteFile;

/// How InitDataSrc found the store.
enum class eActionDisposition : int { Created = 0, Existed = 1 };

/// One open connection to the record store. The store's query language is SQL; statements come composed from
/// CRecordStore. Operations return false on failure and leave m_error (words) and m_errorCode filled.
///
/// Changes gather in one transaction until Update makes them durable; a delete outside of one is durable by
/// itself. When Update fails and the store has dropped the transaction, the rows of the open state are kept
/// here and, after a look whether the store has them, written with the next Update: nothing that was entered
/// gets lost while the program runs.
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
    bool m_mayCreate = true;  ///< false: a missing store is an error, not an empty start
    QString m_error;
    std::int32_t m_errorCode = 0;
    std::unique_ptr<CVORecordset> m_recordset;  ///< null before the first query

    [[nodiscard]] bool InitDataSrc(eActionDisposition& source, eActionDisposition& second);
    [[nodiscard]] bool InitDataSrcTable(const QString& name, const CVORec& description);
    [[nodiscard]] bool Query(const QString& statement, bool updatable);
    [[nodiscard]] bool GetQueryRecord(CVORec& record, bool& found, bool advance);
    [[nodiscard]] bool IsEOF() const;
    [[nodiscard]] bool MoveNext();
    [[nodiscard]] bool Insert(const CVORec& record);
    [[nodiscard]] bool Modify(const CVORec& record);
    [[nodiscard]] bool Update();

    /// Opens the transaction of a batch, so that deletes join it until Update.
    [[nodiscard]] bool BeginBatch();
    /// Undoes all changes since the last Update.
    void Discard();
    [[nodiscard]] bool HasOpenChanges() const;
    /// Frees the query and its statement: nothing stays open across a turn of the event loop.
    void CloseQuery();
    void Close();
    [[nodiscard]] CSqliteFile& File();

 private:
    friend class CVORecordset;
    class Impl;
    std::unique_ptr<Impl> m_impl;
};
