#include "records/CRecordStore.h"

#include "lang/FormatText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CStoreJournal.h"
#include "records/QuoteText.h"
#include "records/RowConditions.h"

#include <sqlite3.h>

#include <cstdint>
#include <utility>

namespace {

Text PrefixOf(RecordKind kind) {
    switch (kind) {
        case RecordKind::Time:
            return Text::TimeTablePrefix;
        case RecordKind::Expense:
            return Text::ExpenseTablePrefix;
        case RecordKind::PulldownItem:
            return Text::ItemTablePrefix;
        case RecordKind::Dependency:
            return Text::DependencyTablePrefix;
    }
    return Text::UnknownTable;
}

}  // namespace

CRecordStore::CRecordStore(CVOSrcMgr& manager, CPrompt& prompt, const QString& dataSourceName)
    : m_manager(manager), m_prompt(prompt), m_dataSourceName(dataSourceName) {}

QString CRecordStore::TableName(RecordKind kind) const {
    const Text prefix = PrefixOf(kind);
    if (prefix == Text::UnknownTable) return LoadText(prefix);
    return (LoadText(prefix) + m_dataSourceName).toLower();
}

QString CRecordStore::SelectAll(RecordKind kind) const {
    return LoadText(Text::SqlSelectFrom) + TableName(kind);
}

QString CRecordStore::Select(RecordKind kind, const RowConditions& conditions) const {
    return SelectAll(kind) + conditions.Where();
}

QString CRecordStore::SelectByIds(RecordKind kind, const QStringList& ids) const {
    QStringList quoted;
    quoted.reserve(ids.size());
    for (const QString& id : ids) quoted.append(QuoteText(id));
    return SelectAll(kind) + FormatText<Text::SqlWhereIdentities>(quoted.join(u','));
}

QString CRecordStore::ById(Text opening, RecordKind kind, const QString& id) const {
    return LoadText(opening) + TableName(kind) + LoadText(Text::SqlWhereIdentity) + id +
           LoadText(Text::SqlEndOfIdentity);
}

/// Tells a failure: what failed, the manager's words, and between them the statement where it is the
/// statement that can't be run. A disk that is full or a file that may only be read says nothing of it, and
/// nobody could do anything with it then.
bool CRecordStore::Fail(Text what, const QString& statement) {
    constexpr std::int32_t kPrimary = 0xFF;
    m_lastError = m_manager.m_errorCode;
    QString text = LoadText(what);
    const bool isOfStatement = m_lastError > 0 && (m_lastError & kPrimary) == SQLITE_ERROR;
    if (isOfStatement && !statement.isEmpty()) text += statement + LoadText(Text::BetweenStatementAndError);
    Tell(what, text + m_manager.m_error, BoxIcon::Stop);
    return false;
}

void CRecordStore::Tell(Text what, const QString& text, BoxIcon icon) {
    MessageBox box;
    box.textId = static_cast<int>(what);
    box.title = LoadText(Text::StoreFailureTitle);
    box.text = text;
    box.icon = icon;
    if (m_holding > 0)
        m_held.push_back(box);
    else
        m_prompt.Tell(box);
}

void CRecordStore::TellHeld() {
    if (--m_holding > 0) return;
    for (const MessageBox& box : std::exchange(m_held, {})) m_prompt.Tell(box);
}

/// Done is done, also where the disk leaves doubts: entered again, it would stand there twice.
bool CRecordStore::Update(Text failure) {
    if (!m_manager.Update()) return Fail(failure, {});
    if (m_manager.IsUnconfirmed())
        Tell(Text::CommitUnconfirmed, LoadText(Text::CommitUnconfirmed), BoxIcon::Warning);
    TellOfJournal();
    return true;
}

/// What is stored stays, whether it can be undone or not.
void CRecordStore::TellOfJournal() {
    CStoreJournal* journal = m_manager.Journal();
    const QString notice = journal ? journal->TakeNotice() : QString();
    if (!notice.isEmpty())
        Tell(Text::HistoryTitle, LoadText(Text::HistoryTitle) + QStringLiteral(": ") + notice,
             BoxIcon::Warning);
}

bool CRecordStore::IsDamaged() const {
    return m_manager.File().IsDamaged();
}

bool CRecordStore::Query(const QString& statement) {
    m_lastError = 0;
    return m_manager.Query(statement, false) || Fail(Text::QueryFailed, statement);
}

bool CRecordStore::QueryTexts(const QString& statement, QStringList& out) {
    out.clear();
    if (!Query(statement)) return false;
    while (!m_manager.IsEOF()) {
        out.append(m_manager.m_recordset->GetFieldValueString(0));
        if (!m_manager.MoveNext()) return Fail(Text::NextRecordFailed, {});
    }
    m_manager.CloseQuery();
    return true;
}

bool CRecordStore::TakeRecord(CVORec& record, bool advance, Text failure) {
    m_lastError = 0;
    bool found = false;
    if (!m_manager.GetQueryRecord(record, found, advance)) return Fail(failure, {});
    return found;
}

bool CRecordStore::NextRecord(CVORec& record, QString& id, bool advance) {
    if (!TakeRecord(record, advance, Text::NextRecordFailed)) return false;
    id = record.GetId();
    return true;
}

bool CRecordStore::NextRows(RowTable& rows, std::size_t most, Ahead ahead) {
    m_lastError = 0;
    return m_manager.GetQueryRows(rows, most, ahead) || Fail(Text::NextRecordFailed, {});
}

bool CRecordStore::ReadRecord(CVORec& record, const QString& id) {
    m_lastError = 0;
    if (!IsIdentity(id)) return false;  // no record has such an identity
    const QString statement = ById(Text::SqlSelectFrom, record.Kind(), id);
    if (!m_manager.Query(statement, false)) return Fail(Text::ReadQueryFailed, statement);
    const bool isRead = TakeRecord(record, true, Text::ReadFailed);
    m_manager.CloseQuery();
    if (isRead) TellUnlessAsWritten(record.Kind(), id);
    return isRead;
}

/// Once of each record: it is read often. It can be used all the same, since saving it is the way to mend it.
void CRecordStore::TellUnlessAsWritten(RecordKind kind, const QString& id) {
    if (m_toldFaults.contains(id) || m_manager.IsAsWritten(TableName(kind), id)) return;
    m_toldFaults.insert(id);
    Tell(Text::RecordNotAsWritten, FormatText<Text::RecordNotAsWritten>(id), BoxIcon::Warning);
}

bool CRecordStore::ModifyRecord(const CVORec& record, const QString& id, ::Commit commit, Seek seek) {
    m_lastError = 0;
    // A text that is no identity finds no row, like any identity that isn't there.
    const QString statement = seek == Seek::Yes
                                  ? ById(Text::SqlSelectFrom, record.Kind(), IsIdentity(id) ? id : QString())
                                  : QString();
    if (seek == Seek::Yes && !m_manager.Query(statement, true)) return Fail(Text::SeekFailed, statement);
    if (!m_manager.Modify(record)) return Fail(Text::ModifyFailed, {});
    if (commit == Commit::Now) (void)Update(Text::ModifyCommitFailed);
    return true;
}

bool CRecordStore::InsertRecord(const CVORec& record, ::Commit commit) {
    m_lastError = 0;
    // The same for every record of a kind, and composed once: a million records are added in one go.
    QString& statement = m_insertPositions[static_cast<int>(record.Kind())];
    if (statement.isEmpty()) statement = SelectAll(record.Kind()) + LoadText(Text::SqlNoRows);
    if (!m_manager.StandsAt(statement) && !m_manager.Query(statement, true))
        return Fail(Text::InsertQueryFailed, statement);
    if (!m_manager.Insert(record)) return Fail(Text::InsertFailed, {});
    if (commit == Commit::Now) (void)Update(Text::InsertCommitFailed);
    return true;
}

bool CRecordStore::SettleInserts() {
    m_lastError = 0;
    return m_manager.Settle() || Fail(Text::InsertFailed, {});
}

bool CRecordStore::DeleteRecord(RecordKind kind, const QString& id) {
    m_lastError = 0;
    if (!IsIdentity(id)) return true;  // an absent record is as good as deleted
    const QString statement = ById(Text::SqlDeleteFrom, kind, id);
    if (!m_manager.Query(statement, true)) return Fail(Text::DeleteFailed, statement);
    TellOfJournal();
    return true;
}

bool CRecordStore::Commit() {
    m_lastError = 0;
    return Update(Text::CommitFailed);
}

bool CRecordStore::BeginBatch() {
    m_lastError = 0;
    return m_manager.BeginBatch() || Fail(Text::CommitFailed, {});
}

bool CRecordStore::IsEOF() const {
    return m_manager.IsEOF();
}

bool CRecordStore::MoveNext() {
    return m_manager.MoveNext();
}
