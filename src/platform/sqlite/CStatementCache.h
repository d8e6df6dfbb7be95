#pragma once

#include <QByteArray>
#include <QHash>
#include <list>

struct sqlite3;
struct sqlite3_stmt;

/// The prepared statements of a connection by their text: the 64 used last are kept.
class CStatementCache {
 public:
    explicit CStatementCache(sqlite3* db) : m_db(db) {}
    ~CStatementCache();
    CStatementCache(const CStatementCache&) = delete;
    CStatementCache& operator=(const CStatementCache&) = delete;

    /// The statement of this text, reset and unbound; null when it can't be prepared.
    [[nodiscard]] sqlite3_stmt* Get(const QByteArray& sql);

 private:
    struct Entry {
        QByteArray sql;
        sqlite3_stmt* statement;
    };
    [[nodiscard]] sqlite3_stmt* Take(std::list<Entry>::iterator place);
    [[nodiscard]] sqlite3_stmt* Prepare(const QByteArray& sql);
    void DropOldest();

    sqlite3* m_db;
    std::list<Entry> m_entries;  ///< the one used last in front
    QHash<QByteArray, std::list<Entry>::iterator> m_places;
};
