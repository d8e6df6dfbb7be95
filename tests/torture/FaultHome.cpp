#include "torture/FaultHome.h"

#include "torture/HomeContent.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace {

/// In memory where that can be had: thousands of commands sync their files.
QString Pattern() {
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/velmarch-faults-XXXXXX"_s;
}

/// Text files, by the names that commands call them by.
struct FileRow {
    const char* name;
    const char* content;
};
constexpr FileRow kFiles[] = {
    {"times",
     "\"11/17/2026\",\"\",\"\",\"1.0\",\"\",\"Zeta\",\"\",\"\",\"\",\"\",\"\",\"\",\"No\",\"No\",\"new\"\n"},
    {"items", "\"Client\",\"Zeta\"\n"},
    {"target", "what was there before\n"},
};

constexpr int kTenMinutes = 10 * 60, kTwentyMinutes = 20 * 60;

/// What there is besides the records.
constexpr const char* kFillings[] = {
    "items add 17 Plan",
    "tree add time Acme Plan",
    "labels set 109 Client",
    "defaults save Usual --item1 Acme --notes usual",
    "settings set confirmCopy no",
    "timer start {t3}",
    "timer start {t4}",
};

struct RecordRow {
    const char* name;
    const char* command;
};
constexpr RecordRow kRecords[] = {
    {"t1", "time add --date 2026-11-19 --start 08:00 --end 08:30 --item1 Acme --notes first"},
    {"t2", "time add --date 2026-11-18 --duration 2:00 --item1 Beta --billable yes --rate 10"},
    {"t3", "time add --date 2026-11-19 --item1 Acme"},
    {"t4", "time add --date 2026-11-19 --duration 1:00 --item1 Beta"},
    {"e1", "expense add --date 2026-11-19 --amount 12 --item1 Acme"},
    {"e2", "expense add --date 2026-11-18 --odometer-start 100 --odometer-end 150 --rate 2"},
};

}  // namespace

FaultHome::FaultHome()
    : m_made(Pattern()),
      m_prepared(Pattern()),
      m_work(Pattern()),
      m_files(Pattern()),
      m_clock(2026, 11, 19, 9),
      m_isMade(Make()) {}

bool FaultHome::Note(const QString& name, const QString& command) {
    const ConsoleRun run = Run(command);
    const QString id = QJsonDocument::fromJson(run.out).object()[u"id"_s].toString();
    if (id.isEmpty()) qWarning("%s: %s", qPrintable(command), run.err.constData());
    m_names.insert(u'{' + name + u'}', id);
    m_known.insert(id);
    return id.size() == 32;
}

bool FaultHome::WriteFile(const QString& name, const QByteArray& content) {
    const QString path = m_files.filePath(name);
    m_names.insert(u'{' + name + u'}', path);
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(content) == content.size();
}

bool FaultHome::Make() {
    for (const FileRow& row : kFiles)
        if (!WriteFile(QString::fromLatin1(row.name), row.content)) return false;
    for (const RecordRow& row : kRecords)
        if (!Note(QString::fromLatin1(row.name), QString::fromLatin1(row.command))) return false;
    for (const char* filling : kFillings)
        if (!IsDone(QString::fromLatin1(filling))) return false;
    m_clock.Advance(kTenMinutes);
    if (!IsDone(u"timer pause {t4}"_s)) return false;
    m_clock.Advance(kTwentyMinutes);
    return CopyHome(m_work.path(), m_made.path());
}

bool FaultHome::IsDone(const QString& command) const {
    const ConsoleRun run = Run(command);
    if (run.exit != 0) qWarning("%s: %s", qPrintable(command), run.err.constData());
    return run.exit == 0;
}

QStringList FaultHome::Words(const QString& command) const {
    QString text = command;
    for (auto name = m_names.begin(); name != m_names.end(); ++name) text.replace(name.key(), name.value());
    return text.split(u' ', Qt::SkipEmptyParts);
}

bool FaultHome::Prepare(const QString& commands, State state) {
    if (!CopyHome((state == State::New ? m_new : m_made).path(), m_work.path())) return false;
    for (const QString& command : commands.split(u';', Qt::SkipEmptyParts))
        if (!IsDone(command)) return false;
    return CopyHome(m_work.path(), m_prepared.path());
}

bool FaultHome::Renew() const {
    return CopyHome(m_prepared.path(), m_work.path());
}

ConsoleRun FaultHome::Run(const QString& command) const {
    return RunConsole(m_work.path(), Words(command), m_clock);
}

/// Most runs end with one of a few contents, and it takes long to have the console show each.
QStringList FaultHome::Content() const {
    QStringList& content = m_contents[RowsOf(m_work.path(), m_known)];
    if (content.isEmpty()) content = ContentOf(m_work.path(), m_known, m_clock);
    return content;
}
