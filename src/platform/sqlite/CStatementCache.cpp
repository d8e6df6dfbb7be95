#include "platform/sqlite/CStatementCache.h"

#include <sqlite3.h>

#include <iterator>

namespace {

constexpr std::size_t kMost = 64;
/// So many of the last ones are looked at by where their text lies in memory, before a text is hashed: who
/// stores a million records asks for the same three texts each time.
constexpr int kLookedAt = 4;

}  // namespace

CStatementCache::~CStatementCache() {
    for (const Entry& entry : m_entries) sqlite3_finalize(entry.statement);
}

sqlite3_stmt* CStatementCache::Get(const QByteArray& sql) {
    auto place = m_entries.begin();
    for (int looked = 0; looked < kLookedAt && place != m_entries.end(); ++looked, ++place)
        if (place->sql.constData() == sql.constData() && place->sql.size() == sql.size()) return Take(place);
    const auto found = m_places.constFind(sql);
    return found == m_places.constEnd() ? Prepare(sql) : Take(*found);
}

sqlite3_stmt* CStatementCache::Take(std::list<Entry>::iterator place) {
    m_entries.splice(m_entries.begin(), m_entries, place);
    sqlite3_stmt* statement = m_entries.front().statement;
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return statement;
}

sqlite3_stmt* CStatementCache::Prepare(const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(m_db, sql.constData(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (result != SQLITE_OK || statement == nullptr) return nullptr;
    m_entries.push_front({sql, statement});
    m_places.insert(sql, m_entries.begin());
    if (m_entries.size() > kMost) DropOldest();
    return statement;
}

/// One that is being stepped right now stays, and so does the newest.
void CStatementCache::DropOldest() {
    for (auto entry = std::prev(m_entries.end()); entry != m_entries.begin(); --entry) {
        if (sqlite3_stmt_busy(entry->statement) != 0) continue;
        sqlite3_finalize(entry->statement);
        m_places.remove(entry->sql);
        m_entries.erase(entry);
        return;
    }
}
