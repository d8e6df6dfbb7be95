#pragma once

#include "platform/host/CPrompt.h"
#include "records/CVOSrcMgr.h"
#include "records/ChangeFlags.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

struct RowConditions;

/// The program's store access: composes every statement from the language library's pieces, calls the manager
/// and shows each failure in a box. Holds no connection of its own.
class CRecordStore {
 public:
    CRecordStore(CVOSrcMgr& manager, CPrompt& prompt, const QString& dataSourceName);

    /// 0 when the last operation succeeded or found no row; otherwise the manager's code.
    std::int32_t m_lastError = 0;

    [[nodiscard]] bool Query(const QString& statement);
    /// The first column of all rows, as texts.
    [[nodiscard]] bool QueryTexts(const QString& statement, QStringList& out);
    /// The next row of the query; false with m_lastError 0 after the last one.
    [[nodiscard]] bool NextRecord(CVORec& record, QString& id, bool advance);
    /// The next rows of the query, so many at most; false when they can't be read.
    [[nodiscard]] bool NextRows(RowTable& rows, std::size_t most, Ahead ahead = Ahead::No);
    /// A record that isn't as it was written is read, and the user is told.
    [[nodiscard]] bool ReadRecord(CVORec& record, const QString& id);
    [[nodiscard]] bool ModifyRecord(const CVORec& record, const QString& id, ::Commit commit,
                                    Seek seek = Seek::Yes);
    /// A commit that fails after the insert shows its message, sets m_lastError and still returns true: the
    /// row was taken in. It went with the commit, so who wants to know whether it is stored looks at
    /// m_lastError. The same holds for ModifyRecord.
    [[nodiscard]] bool InsertRecord(const CVORec& record, ::Commit commit);
    /// Waits for the records of a bulk (CVOSrcMgr::Bulk). False when one of them can't be stored.
    [[nodiscard]] bool SettleInserts();
    [[nodiscard]] bool DeleteRecord(RecordKind kind, const QString& id);
    [[nodiscard]] bool Commit();
    /// Opens one transaction for a batch: what follows, deletes included, is durable with Commit.
    [[nodiscard]] bool BeginBatch();
    [[nodiscard]] bool IsEOF() const;
    [[nodiscard]] bool MoveNext();

    [[nodiscard]] QString TableName(RecordKind kind) const;
    /// All columns of the rows with these identities.
    [[nodiscard]] QString SelectByIds(RecordKind kind, const QStringList& ids) const;
    /// "all columns of the kind's table".
    [[nodiscard]] QString SelectAll(RecordKind kind) const;
    /// The same for the rows that fulfil the conditions, days through the table's date index.
    [[nodiscard]] QString Select(RecordKind kind, const RowConditions& conditions) const;
    [[nodiscard]] CVOSrcMgr& Manager() { return m_manager; }
    /// Damage was met: what can be read of the store is read, and nothing is written to it.
    [[nodiscard]] bool IsDamaged() const;

    /// While one lives no box comes: what failed is told at its end. For a transaction, in which other
    /// programs wait for the store: they don't wait for the user's answer as well.
    class [[nodiscard]] TellLater {
     public:
        explicit TellLater(CRecordStore& store) : m_store(store) { ++m_store.m_holding; }
        ~TellLater() { m_store.TellHeld(); }
        TellLater(const TellLater&) = delete;
        TellLater& operator=(const TellLater&) = delete;

     private:
        CRecordStore& m_store;
    };

 private:
    [[nodiscard]] QString ById(Text opening, RecordKind kind, const QString& id) const;
    [[nodiscard]] bool TakeRecord(CVORec& record, bool advance, Text failure);
    [[nodiscard]] bool Update(Text failure);
    bool Fail(Text what, const QString& statement);
    void TellUnlessAsWritten(RecordKind kind, const QString& id);
    void Tell(Text what, const QString& text, BoxIcon icon);
    void TellHeld();
    void TellOfJournal();

    CVOSrcMgr& m_manager;
    CPrompt& m_prompt;
    QString m_dataSourceName;
    int m_holding = 0;  ///< how many want to hear later
    std::vector<MessageBox> m_held;
    QSet<QString> m_toldFaults;  ///< identities of records that the user was told aren't as written
    QHash<int, QString> m_insertPositions;  ///< by kind: the query that positions for an insert
};
