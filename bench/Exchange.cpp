// What backup, verify, restore, export and import cost beside the least that each can cost, over the time
// records of a home, by the clock and by the processors' time; and by how much memory grows. Prints "name
// value", a line each.
//   bench-exchange HOME SCRATCH

#include "FloorStore.h"
#include "LoudPrompt.h"
#include "ProcessorTime.h"
#include "app/CRecordReader.h"
#include "app/CVelmarchApp.h"
#include "app/HomeFiles.h"
#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "entry/CEnteredItems.h"
#include "exchange/backup/CRestore.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/WriteBackup.h"
#include "exchange/export/CRecordExport.h"
#include "exchange/import/CRecordImport.h"
#include "exchange/text/TextColumns.h"
#include "lang/LoadText.h"
#include "platform/host/CClock.h"
#include "platform/host/CInstallLocation.h"
#include "platform/host/CMessagePump.h"
#include "platform/host/SafeFile.h"
#include "timers/CRecordTimers.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kPiece = 1 << 16;

struct Bench {
    QString home;     ///< with the records
    QString scratch;  ///< a folder for everything else
    CSystemClock clock;
    LoudPrompt prompt;
    CNoProgress progress;

    [[nodiscard]] QString File(const QString& name) const { return scratch + u'/' + name; }
};

/// A home that is open as the console has it.
struct Program {
    Bench& bench;
    CNoPump pump;
    CNoViews views;
    CVelmarchApp app{{bench.clock, bench.prompt, pump, views}};

    Program(Bench& of, const QString& home) : bench(of) {
        if (!app.ResolveHome(home) || !app.OpenSettings() || !app.OpenStore()) qFatal("no home");
    }
};

void Say(const char* name, double value) {
    std::printf("%s %.3f\n", name, value);
}

void Say(const std::string& name, const Spent& spent) {
    Say((name + "_us").c_str(), spent.elapsed);
    Say((name + "_processor_us").c_str(), spent.processor);
}

/// The most memory that the process has held so far, in bytes.
double MostMemory() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) qFatal("no /proc/self/status");
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).simplified().split(' ').front().toDouble() * 1024;
    return 0;
}

/// From here on the most memory is counted anew.
double BeginMemory() {
    QFile clear(u"/proc/self/clear_refs"_s);
    if (!clear.open(QIODevice::WriteOnly) || clear.write("5") != 1) qFatal("no /proc/self/clear_refs");
    clear.close();
    return MostMemory();
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("no file");
    return file.readAll();
}

std::vector<FloorRow> RowsOf(const QString& home) {
    std::vector<FloorRow> rows;
    FloorStore store(StorePath(home).toStdString());
    sqlite3_stmt* select = store.Prepare("SELECT * FROM time_velmarch");
    while (store.Step(select)) rows.push_back(ReadRow(select));
    sqlite3_finalize(select);
    return rows;
}

/// A home with the times of another alone: the floors know nothing else.
QString HomeOfTimes(const QString& home, const QString& scratch) {
    const QString times = scratch + u"/times"_s;
    if (!QDir().mkpath(times) || !QFile::copy(StorePath(home), StorePath(times)) ||
        !QFile::copy(SettingsPath(home), SettingsPath(times)))
        qFatal("no copy of the home");
    FloorStore store(StorePath(times).toStdString());
    for (const char* table : {"expense_velmarch", "item_velmarch", "dependency_velmarch"})
        store.Run(std::string("DELETE FROM ") + table);
    return times;
}

/// Reading the rows, which are not kept.
void ReadRows(const QString& home) {
    FloorStore store(StorePath(home).toStdString());
    sqlite3_stmt* select = store.Prepare("SELECT * FROM time_velmarch");
    while (store.Step(select)) static_cast<void>(ReadRow(select));
    sqlite3_finalize(select);
}

/// A bare prepared insert of rows that are ready, into an empty store of the same tables.
Spent InsertRows(const Bench& bench, const std::vector<FloorRow>& rows) {
    const QString path = bench.File(u"floor.store"_s);
    QFile::remove(path);
    FloorStore from(StorePath(bench.home).toStdString()), to(path.toStdString());
    for (const char* name : {"time_velmarch", "time_velmarch_days", "time_velmarch_checks"})
        to.Run(from.Text(std::string("SELECT sql FROM sqlite_schema WHERE name='") + name + '\''));
    const Spent took = SpentOn([&] {
        to.Run("BEGIN IMMEDIATE");
        sqlite3_stmt* insert = to.Prepare(InsertSql());
        for (const FloorRow& row : rows) {
            BindRow(insert, row);
            static_cast<void>(to.Step(insert));
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        to.Run("COMMIT");
    });
    QFile::remove(path);
    return took;
}

// --- Backup

void Backup(Bench& bench) {
    const QString file = bench.File(u"bench.vbk"_s);
    CSecondSource source(bench.home, bench.prompt);
    if (!source.Open()) qFatal("no store");
    const double before = BeginMemory();
    Say("backup", SpentOn([&] {
            if (const auto done =
                    WriteBackup({source, bench.clock, bench.progress}, file, EmptyBackup::Refused);
                !done)
                qFatal("%s", qPrintable(done.error));
        }));
    Say("backup_bytes", MostMemory() - before);
    const QByteArray bytes = BytesOf(file);
    Say("backup_floor", SpentOn([&] {
            ReadRows(bench.home);
            static_cast<void>(QCryptographicHash::hash(bytes, QCryptographicHash::Md5));
        }));
}

/// The digest over the file, and each record made of its bytes.
Spent FloorOfVerify(const QByteArray& bytes) {
    return SpentOn([&] {
        static_cast<void>(QCryptographicHash::hash(bytes, QCryptographicHash::Md5));
        qsizetype at = 40;
        for (;;) {
            const auto length = qFromLittleEndian<qint32>(bytes.constData() + at);
            if (length < 0) break;
            at += 4 + length * 2;
            const auto size = qFromLittleEndian<qint32>(bytes.constData() + at);
            CTRecord record;
            if (!record.FromBytes(bytes.mid(at + 4, size), false)) qFatal("a bad record");
            at += 4 + size;
        }
    });
}

/// Into an empty store: what the copy of the present records costs is a backup's cost.
void VerifyAndRestore(Bench& bench) {
    const QString file = bench.File(u"bench.vbk"_s);
    Say("verify_floor", FloorOfVerify(BytesOf(file)));
    CRestore restore({.prompt = bench.prompt, .clock = bench.clock, .progress = bench.progress});
    const double before = BeginMemory();
    Say("verify", SpentOn([&] {
            if (!restore.Verify(file)) qFatal("not sound");
        }));
    Say("verify_bytes", MostMemory() - before);
    Say("restore_floor", InsertRows(bench, RowsOf(bench.home)));
    const QString home = bench.File(u"restored"_s);
    static_cast<void>(Program(bench, home));
    const double beforeRestore = BeginMemory();
    Say("restore", SpentOn([&] {
            if (const auto done = restore.Run(home, nullptr); !done) qFatal("%s", qPrintable(done.error));
        }));
    Say("restore_bytes", MostMemory() - beforeRestore);
    QDir(home).removeRecursively();
}

// --- Text files

void Export(Bench& bench) {
    const QString path = bench.File(u"bench.csv"_s);
    Program program(bench, bench.home);
    if (!program.app.Catalogue().Load()) qFatal("no lists");
    const ColumnNames names{program.app.Catalogue().Labels(), program.app.Settings()};
    CRecordReader reader(program.app.Document(), RecordKind::Time, nullptr);
    const double before = BeginMemory();
    Say("export", SpentOn([&] {
            CRecordExport file(path, {.delimiters = PresetDelimiters()}, RecordKind::Time, names);
            const bool isRead =
                reader.ReadAll(CRecordReader::Order::Any,
                               [&file](const std::unique_ptr<CVORec>& record) { file.Put(*record); });
            if (!isRead || !file.Finish().isWritten) qFatal("no export");
        }));
    Say("export_bytes", MostMemory() - before);
    const QByteArray bytes = BytesOf(path);
    Say("export_floor", SpentOn([&] {
            ReadRows(bench.home);
            CSafeFile file(bench.File(u"floor.csv"_s), FileAudience::UserDefault);
            for (qint64 at = 0; at < bytes.size(); at += kPiece)
                if (!file.Write(QByteArrayView(bytes).sliced(at, std::min(kPiece, bytes.size() - at))))
                    qFatal("no file");
            if (!file.Finish().written) qFatal("no file");
        }));
}

/// The fields of all lines as texts, numbers read where they are numbers; quotes go, and nothing is kept.
std::size_t ParseBare(const QByteArray& bytes) {
    std::size_t fields = 0;
    double sum = 0;
    std::string field;
    bool isQuoted = false;
    for (const char sign : bytes) {
        if (sign == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted && (sign == ',' || sign == '\n')) {
            if (!field.empty() && field.front() >= '0' && field.front() <= '9')
                sum += std::strtod(field.c_str(), nullptr);
            ++fields;
            field.clear();
        } else {
            field += sign;
        }
    }
    return fields + static_cast<std::size_t>(sum);
}

void Import(Bench& bench) {
    const QString path = bench.File(u"bench.csv"_s), home = bench.File(u"imported"_s);
    const QByteArray bytes = BytesOf(path);
    const std::vector<FloorRow> rows = RowsOf(bench.home);
    volatile std::size_t fields = 0;
    Say("import_floor", SpentOn([&] { fields = ParseBare(bytes); }) + InsertRows(bench, rows));
    Program program(bench, home);
    ActiveTimerSet set{bench.clock};
    CRecordTimers timers{set, program.app.Document(), program.app.Settings()};
    COwnTimers ownTimers{timers};
    CEnteredItems entered;
    CRecordChanges changes{{.document = program.app.Document(),
                            .timers = ownTimers,
                            .catalogue = program.app.Catalogue(),
                            .entered = entered,
                            .settings = program.app.Settings(),
                            .prompt = bench.prompt,
                            .progress = bench.progress,
                            .partial = CRecordChanges::Partial::Kept}};
    const ImportRequest request{.kind = RecordKind::Time, .form = {.delimiters = PresetDelimiters()}};
    CTextFile file;
    if (file.Open(path) != 0 || !program.app.Catalogue().Load()) qFatal("no file");
    CStoredContents stored(request.kind, request.form.form);
    const double before = BeginMemory();
    Say("import", SpentOn([&] {
            if (stored.Read(program.app.Document().Store()) != CStoredContents::ReadEnd::Complete)
                qFatal("no records");
            CRecordImport import(file, request, stored);
            const ImportPlan plan =
                import.Look({.goesOn = [](const RefusedLine&) { return false; }, .advance = {}});
            if (plan.end != ImportPlan::End::Complete || plan.records != static_cast<int>(rows.size()))
                qFatal("not all of the lines can be imported");
            if (!import.Run(plan, changes, Hold::No, {})) qFatal("no import");
        }));
    Say("import_bytes", MostMemory() - before);
    QDir(home).removeRecursively();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) qFatal("usage: bench-exchange HOME SCRATCH");
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) qFatal("no language library");
    Bench bench;
    bench.scratch = QString::fromLocal8Bit(argv[2]);
    bench.home = HomeOfTimes(QString::fromLocal8Bit(argv[1]), bench.scratch);
    Backup(bench);
    VerifyAndRestore(bench);
    Export(bench);
    Import(bench);
    for (const QString& name : {u"bench.vbk"_s, u"bench.csv"_s, u"floor.csv"_s})
        QFile::remove(bench.File(name));
    QDir(bench.home).removeRecursively();
    return 0;
}
