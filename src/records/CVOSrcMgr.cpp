#include "records/CVOSrcMgr.h"

#include "lang/LoadText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "platform/sqlite/SqliteErrors.h"
#include "records/CBulkInsert.h"
#include "records/CStoreJournal.h"
#include "records/CStoreTable.h"

#include <sqlite3.h>

#include <QDir>
#include <QHash>
#include <QStringList>
#include <optional>
#include <span>
#include <utility>

namespace {

/// "VLMR": PRAGMA application_id of the record store.
constexpr std::uint32_t kApplicationId = 0x564C4D52U;
constexpr int kVersion = 1;
constexpr int kTables = 4;

/// What a failure without a code of its own gets (DISP_E_EXCEPTION).
constexpr std::int32_t kUnnamedFailure = -2147352567;

}  // namespace

/// The connection with what is known about its tables and its open transaction.
class CVOSrcMgr::Impl {
 public:
    /// Nothing is on its way into it.
    [[nodiscard]] CSqliteFile& File() {
        static_cast<void>(Settle());
        return m_file;
    }
    void BeginBulk() { m_bulk.emplace(m_file); }
    void EndBulk() { m_bulk.reset(); }
    [[nodiscard]] bool Settle() { return !m_bulk || m_bulk->Settle(); }
    /// Without waiting for what is on its way into it.
    [[nodiscard]] bool InTransaction() const {
        return (m_bulk && m_bulk->IsBusy()) || m_file.InTransaction();
    }
    [[nodiscard]] bool Insert(const Table& table, std::span<const VARIANT> values);
    [[nodiscard]] const CStoredRows& AsStored(std::span<const VARIANT> values);
    [[nodiscard]] Table TableOf(const QByteArray& name);
    void ForgetTables() {
        m_last = {};
        m_tables.clear();
    }
    /// Of a file that was found damaged before: reads all of it.
    void LookForDamage(const QByteArrayList& tables);

 private:
    CSqliteFile m_file;
    std::optional<CBulkInsert> m_bulk;
    CStoredRows m_row;  ///< that is written
    QHash<QByteArray, Table> m_tables;
    std::pair<QByteArray, Table> m_last;  ///< that was asked for: a million records in a row go into one
};

const CStoredRows& CVOSrcMgr::Impl::AsStored(std::span<const VARIANT> values) {
    m_row.Clear();
    m_row.Add(values);
    return m_row;
}

bool CVOSrcMgr::Impl::Insert(const Table& table, std::span<const VARIANT> values) {
    return m_bulk ? m_bulk->Add(table, values) : table->Insert(m_file, AsStored(values));
}

CVOSrcMgr::Table CVOSrcMgr::Impl::TableOf(const QByteArray& name) {
    if (m_last.second && m_last.first == name) return m_last.second;
    Table& known = m_tables[name];
    if (!known) {
        if (auto table = CStoreTable::Look(File(), name))
            known = std::make_shared<CStoreTable>(std::move(*table));
    }
    m_last = {name, known};
    return known;
}

/// The check of the whole file doesn't look into the rows, some of which can't be read all the same; reading
/// such a row notes the damage.
void CVOSrcMgr::Impl::LookForDamage(const QByteArrayList& tables) {
    if (!m_file.IntegrityReport().isEmpty()) return m_file.NoteDamage();
    QStringList faults;
    for (const QByteArray& name : tables)
        if (const Table table = TableOf(name)) static_cast<void>(table->FindFaults(m_file, faults));
}

CVOSrcMgr::CVOSrcMgr() : m_impl(std::make_unique<Impl>()) {}

CVOSrcMgr::CVOSrcMgr(const QString&, const QString&) : CVOSrcMgr() {}

CVOSrcMgr::~CVOSrcMgr() {
    Close();
}

CSqliteFile& CVOSrcMgr::File() {
    return m_impl->File();
}

void CVOSrcMgr::SetJournal(CStoreJournal* journal) {
    m_journal = journal;
    m_impl->File().Watch(journal ? &journal->Rows() : nullptr);
}

bool CVOSrcMgr::FailByFile() {
    return Fail(m_impl->File().ErrorCode(), m_impl->File().Error());
}

bool CVOSrcMgr::Fail(std::int32_t code, const QString& words) {
    m_errorCode = code == 0 ? kUnnamedFailure : code;
    m_error = words;
    return false;
}

/// A row that its record refused: the record's code and words, where it gave any.
bool CVOSrcMgr::FailByRecord() {
    return Fail(m_recordset->m_errorCode, m_recordset->Words());
}

bool CVOSrcMgr::InitDataSrc(eActionDisposition& source, eActionDisposition& second) {
    Close();
    second = eActionDisposition::Existed;
    const QString path = QDir(m_directory).filePath(m_fileName);
    const OpenOutcome outcome =
        m_impl->File().Open(path, {kApplicationId, kVersion, m_busySeconds}, m_mayCreate);
    if (!m_impl->File().IsOpen()) return FailByFile();
    const auto tables = CStoreTable::Names(m_impl->File());
    if (!tables) {
        m_impl->File().Close();
        return FailByFile();
    }
    if (m_isSuspect) m_impl->LookForDamage(*tables);
    const bool isNew = outcome == OpenOutcome::Created || tables->size() < kTables;
    source = isNew ? eActionDisposition::Created : eActionDisposition::Existed;
    if (!isNew && m_mayTakeOver && outcome == OpenOutcome::Existed) TakeOver(*tables);
    return true;
}

/// A store of an earlier version gets its checksums. Where that fails, on a full disk for instance, it is
/// used without.
void CVOSrcMgr::TakeOver(const QByteArrayList& tables) {
    for (const QByteArray& name : tables)
        if (auto table = CStoreTable::Look(m_impl->File(), name))
            static_cast<void>(table->MakeChecks(m_impl->File()));
}

bool CVOSrcMgr::IsAsWritten(const QString& table, const QString& id) {
    const Table known = m_impl->TableOf(table.toUtf8());
    return !known || known->IsAsWritten(m_impl->File(), id);
}

bool CVOSrcMgr::FindFaults(const QString& table, QStringList& ids) {
    const Table known = m_impl->TableOf(table.toUtf8());
    return (known && known->FindFaults(m_impl->File(), ids)) || FailByFile();
}

bool CVOSrcMgr::InitDataSrcTable(const QString& name, const CVORec& description) {
    return CStoreTable::Make(m_impl->File(), name, description.GetFieldDefs()) || FailByFile();
}

/// A file that was moved away or replaced would take every change and lose it.
bool CVOSrcMgr::CheckPlace() {
    const CSqliteFile& file = m_impl->File();
    if (!file.IsOpen() || file.IsStillInPlace()) return true;
    return Fail(SQLITE_READONLY_DBMOVED, SqliteSentence(SQLITE_READONLY_DBMOVED, 0, file.Path(), {}));
}

/// The transaction of the next change. Where SQLite has undone it by itself nothing more goes into the store:
/// the rest of a batch is not to be written without its beginning.
bool CVOSrcMgr::EnterTransaction() {
    CSqliteFile& file = m_impl->File();
    if (file.InTransaction()) return true;
    if (file.WasUndone()) return Fail(SQLITE_ABORT, LoadText(Text::BatchLost));
    m_lastQuery.clear();  // other programs may have changed the tables before
    return CheckPlace() && (file.Begin() || FailByFile());
}

bool CVOSrcMgr::Query(const QString& statement, bool updatable) {
    CloseQuery();
    if (!m_recordset) m_recordset = std::make_unique<CVORecordset>();
    // Within a batch the look at the file is left to its commit.
    if (!m_impl->File().InTransaction() && !CheckPlace()) return false;
    const QByteArray sql = statement.trimmed().toUtf8();
    sqlite3_stmt* prepared = m_impl->File().Prepare(sql);
    if (!prepared) return FailByFile();
    if (qstrlen(sqlite3_sql(prepared)) != static_cast<std::size_t>(sql.size()))
        return Fail(SQLITE_MISUSE, LoadText(Text::OneStatementOnly));
    if (!sqlite3_stmt_readonly(prepared)) return RunChange(sql);
    if (!m_recordset->m_cursor.Open(m_impl->File(), prepared, updatable)) return FailByFile();
    m_lastQuery = statement;
    return true;
}

bool CVOSrcMgr::StandsAt(const QString& statement) const {
    return m_impl->InTransaction() && m_lastQuery == statement;
}

/// Outside of a transaction the change is one by itself, and durable when this returns.
bool CVOSrcMgr::RunChange(const QByteArray& sql) {
    CSqliteFile& file = m_impl->File();
    const bool isOwn = !file.InTransaction();
    if (!EnterTransaction()) return false;
    if (!file.Execute(sql)) return FailChange(isOwn);
    return !isOwn || file.Commit() || FailChange(isOwn);
}

bool CVOSrcMgr::GetQueryRecord(CVORec& record, bool& found, bool advance) {
    if (!Settle()) return false;
    found = m_recordset && !m_recordset->m_cursor.IsEof();
    if (!found) return true;
    m_recordset->m_errorCode = 0;
    m_recordset->m_errorTexts = {};
    if (!record.ReadFields(*m_recordset)) return FailByRecord();
    return !advance || MoveNext();
}

bool CVOSrcMgr::GetQueryRows(RowTable& rows, std::size_t most, Ahead ahead) {
    if (!Settle()) return false;
    return !m_recordset || m_recordset->GetRows(rows, most, ahead) || FailByFile();
}

bool CVOSrcMgr::IsEOF() const {
    return !m_recordset || m_recordset->m_cursor.IsEof();
}

bool CVOSrcMgr::MoveNext() {
    if (!Settle()) return false;
    return !m_recordset || m_recordset->m_cursor.Next() || FailByFile();
}

/// Fills the row to be written from a record. table: that of the last query.
bool CVOSrcMgr::FillRow(const CVORec& record, Table& table) {
    if (!m_recordset || m_recordset->m_cursor.Table().isEmpty())
        return Fail(SQLITE_MISUSE, LoadText(Text::NoTableToWrite));
    table = m_impl->TableOf(m_recordset->m_cursor.Table());
    if (!table) return FailByFile();
    if (!table->Fits(record.GetFieldDefs())) return Fail(SQLITE_MISMATCH, LoadText(Text::NoTableToWrite));
    return m_recordset->TakeRecord(record) || FailByRecord();
}

/// Leaves the transaction that a failed change has opened for itself.
bool CVOSrcMgr::FailChange(bool isOwn) {
    if (isOwn) m_impl->File().Rollback();
    return FailByFile();
}

bool CVOSrcMgr::Insert(const CVORec& record) {
    Table table;
    if (!FillRow(record, table)) return false;
    const bool isOwn = !m_impl->InTransaction();
    if (isOwn && !EnterTransaction()) return false;
    return m_impl->Insert(table, m_recordset->m_written) || FailChange(isOwn);
}

bool CVOSrcMgr::Modify(const CVORec& record) {
    Table table;
    if (!FillRow(record, table)) return false;
    const QueryCursor& cursor = m_recordset->m_cursor;
    if (cursor.IsEof()) return Fail(SQLITE_NOTFOUND, LoadText(Text::RecordGone));
    const QString key = ToText(cursor.Value(cursor.ColumnOf(table->KeyColumn())));
    const bool isOwn = !m_impl->File().InTransaction();
    if (!EnterTransaction()) return false;
    bool found = false;
    if (!table->Modify(m_impl->File(), key, m_impl->AsStored(m_recordset->m_written), found))
        return FailChange(isOwn);
    if (found) return true;
    if (isOwn) m_impl->File().Rollback();
    return Fail(SQLITE_NOTFOUND, LoadText(Text::RecordGone));
}

/// A commit that fails is given up: written later, it could undo what another program has changed since.
bool CVOSrcMgr::Update() {
    if (!HasOpenChanges()) return true;
    const bool isDone = EnterTransaction() && CheckPlace() && (m_impl->File().Commit() || FailByFile());
    if (!isDone) Discard();
    return isDone;
}

bool CVOSrcMgr::BeginBatch() {
    return EnterTransaction();
}

CVOSrcMgr::Bulk::Bulk(CVOSrcMgr& manager) : m_manager(manager) {
    m_manager.m_impl->BeginBulk();
}

CVOSrcMgr::Bulk::~Bulk() {
    m_manager.m_impl->EndBulk();
}

bool CVOSrcMgr::Settle() {
    return m_impl->Settle() || FailByFile();
}

bool CVOSrcMgr::BeginRead() {
    return CheckPlace() && (m_impl->File().BeginRead() || FailByFile());
}

void CVOSrcMgr::Discard() {
    CloseQuery();
    m_impl->File().Rollback();
}

bool CVOSrcMgr::HasOpenChanges() const {
    return m_impl->File().InTransaction() || m_impl->File().WasUndone();
}

bool CVOSrcMgr::IsBatchUntouched() const {
    return m_impl->File().IsUntouched();
}

bool CVOSrcMgr::IsUnconfirmed() const {
    return m_impl->File().IsUnconfirmed();
}

void CVOSrcMgr::CloseQuery() {
    static_cast<void>(Settle());
    m_lastQuery.clear();
    if (m_recordset) m_recordset->m_cursor.Close();
}

void CVOSrcMgr::Close() {
    Discard();
    m_recordset.reset();
    m_impl->ForgetTables();
    m_impl->File().Close();
}
