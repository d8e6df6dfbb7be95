#include "torture/HomeContent.h"

#include "torture/ConsoleRun.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

/// The rows that a statement gives, their values with bars between them; the reason where it fails.
QStringList Rows(const QString& path, const QString& name, const QByteArray& sql) {
    if (!QFile::exists(path)) return {};
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const Database database(opened, sqlite3_close);
    if (result != SQLITE_OK) return {name + u" can't be opened"_s};
    sqlite3_stmt* statement = nullptr;
    // A table that was never made has no rows.
    if (sqlite3_prepare_v2(opened, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        return QByteArray(sqlite3_errmsg(opened)).startsWith("no such table")
                   ? QStringList()
                   : QStringList(name + u": "_s + QString::fromUtf8(sqlite3_errmsg(opened)));
    QStringList rows;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        QString row = name;
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            row += u'|' +
                   QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
        rows += row;
    }
    if (step != SQLITE_DONE) rows += name + u": "_s + QString::fromUtf8(sqlite3_errmsg(opened));
    sqlite3_finalize(statement);
    return rows;
}

/// Each value with its path.
constexpr char kSettings[] =
    "WITH RECURSIVE tree(id, path) AS (SELECT 1, '' UNION ALL "
    "SELECT keys.id, tree.path || '>' || keys.name FROM keys JOIN tree ON keys.parent = tree.id) "
    "SELECT path, entries.name, type, CASE type WHEN 'binary' THEN hex(value) ELSE value END "
    "FROM tree JOIN entries ON entries.key = tree.id ORDER BY path, entries.name";

/// Whether the console shows it better: a setting that isn't stored is the default, timers count, and pieces
/// of the trees have identities of their own.
bool IsShown(const QString& row) {
    static const QRegularExpression kNamed(u"(Defaults|Reports(Time|Exp)|Queries)>"_s);
    const bool isSetting = row.startsWith(u"settings|") && !row.contains(kNamed);
    return isSetting || row.startsWith(u"dependency|");
}

/// The timers have counted up to now, the trees come without the identities of their pieces.
constexpr const char* kShown[] = {
    "settings list",        "columns list time",           "columns list time --tree",
    "columns list expense", "columns list expense --tree", "timer status",
    "tree show time",       "tree show expense",
};

QStringList Shown(const QString& home, const QString& command, const CClock& clock) {
    const ConsoleRun run = RunConsole(home, command.split(u' '), clock);
    QStringList lines = QString::fromUtf8(run.out).split(u'\n', Qt::SkipEmptyParts);
    for (QString& line : lines) line = u"%1 (%2): %3"_s.arg(command).arg(run.exit).arg(line);
    return lines;
}

constexpr QLatin1String kTimers("timer status");
constexpr QLatin1String kSound("\"ok\": true");  ///< of the doctor, with a number of records or timers

/// The records whose timers count or are paused.
QStringList TimedIn(const QStringList& content) {
    QStringList ids;
    for (const QString& line : content) {
        if (!line.startsWith(kTimers)) continue;
        const QByteArray json = line.mid(line.indexOf(u'[')).toUtf8();
        for (const QJsonValue& timer : QJsonDocument::fromJson(json).array())
            ids += timer[u"id"_s].toString();
    }
    return ids;
}

QString WithoutNewIdentities(const QString& line, const QSet<QString>& known) {
    static const QRegularExpression kIdentity(u"(?<![0-9A-F])[0-9A-F]{32}(?![0-9A-F])"_s);
    QString text = line;
    for (auto found = kIdentity.globalMatch(line); found.hasNext();) {
        const QString identity = found.next().captured();
        if (!known.contains(identity)) text.replace(identity, u"new"_s);
    }
    return text;
}

}  // namespace

QStringList RowsOf(const QString& home, const QSet<QString>& known) {
    const QString store = home + u"/velmarch.store"_s, settings = home + u"/velmarch.settings"_s;
    QStringList lines = Rows(settings, u"settings"_s, kSettings);
    lines += Rows(store, u"store"_s, "SELECT * FROM pragma_integrity_check WHERE integrity_check <> 'ok'");
    for (const QString& table : {u"time"_s, u"expense"_s, u"item"_s, u"dependency"_s})
        lines += Rows(store, table, "SELECT * FROM " + table.toUtf8() + "_velmarch");
    for (QString& line : lines) line = WithoutNewIdentities(line, known);
    return lines;
}

QStringList ContentOf(const QString& home, const QSet<QString>& known, const CClock& clock) {
    QStringList lines = RowsOf(home, known);
    lines.removeIf([](const QString& line) { return IsShown(line); });
    for (const char* command : kShown) lines += Shown(home, QString::fromLatin1(command), clock);
    if (qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS")) lines += Shown(home, u"doctor"_s, clock);
    for (QString& line : lines) line = WithoutNewIdentities(line, known);
    lines.sort();
    return lines;
}

QString Difference(const QStringList& first, const QStringList& second) {
    QStringList missing = first, added = second;
    for (const QString& line : first) added.removeOne(line);
    for (const QString& line : second) missing.removeOne(line);
    QString text;
    for (const QString& line : missing) text += u"- "_s + line + u'\n';
    for (const QString& line : added) text += u"+ "_s + line + u'\n';
    return text;
}

bool IsBetween(const QStringList& content, const QStringList& before, const QStringList& after) {
    const bool isKnown = std::ranges::all_of(content, [&](const QString& line) {
        const bool isCount = line.startsWith(kTimers) || line.contains(kSound);
        return isCount || before.contains(line) || after.contains(line);
    });
    const QStringList timers = TimedIn(content);
    return isKnown && std::ranges::all_of(TimedIn(before), [&](const QString& id) {
               return timers.contains(id) || std::ranges::any_of(content, [&](const QString& line) {
                          return line.endsWith(id) && !before.contains(line);
                      });
           });
}

bool CopyHome(const QString& from, const QString& to) {
    for (const QFileInfo& file : QDir(to).entryInfoList(QDir::Files | QDir::Hidden))
        if (!QFile::remove(file.filePath())) return false;
    for (const QFileInfo& file : QDir(from).entryInfoList(QDir::Files | QDir::Hidden))
        if (!QFile::copy(file.filePath(), to + u'/' + file.fileName())) return false;
    return true;
}
