// The functions that show a row before and after its change are declared on demand.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "platform/sqlite/RowHook.h"

#include <sqlite3.h>

#include "platform/sqlite/CRowListener.h"

namespace {

RowEvent EventOf(int operation) {
    if (operation == SQLITE_INSERT) return RowEvent::Added;
    return operation == SQLITE_DELETE ? RowEvent::Deleted : RowEvent::Modified;
}

/// The names are those of the file and the table, the last two numbers those of rows that have them.
void OnRow(void* listener, sqlite3* db, int operation, const char*, const char* table, sqlite3_int64,
           sqlite3_int64) {
    static_cast<CRowListener*>(listener)->OnRow({db, EventOf(operation), table});
}

}  // namespace

void HookRows(sqlite3* db, CRowListener* listener) {
    sqlite3_preupdate_hook(db, listener == nullptr ? nullptr : OnRow, listener);
}

int CChangedRow::ColumnCount() const {
    return sqlite3_preupdate_count(m_db);
}

sqlite3_value* CChangedRow::Before(int column) const {
    sqlite3_value* value = nullptr;
    return sqlite3_preupdate_old(m_db, column, &value) == SQLITE_OK ? value : nullptr;
}

sqlite3_value* CChangedRow::After(int column) const {
    sqlite3_value* value = nullptr;
    return sqlite3_preupdate_new(m_db, column, &value) == SQLITE_OK ? value : nullptr;
}
