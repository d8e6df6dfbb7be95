// What backup, verify and restore cost beside the least that each can cost, at so many time records, by the
// processor's time; and by how much memory grows. Prints a line for each: milliseconds of ours, of the floor,
// and ours by floor.
//   bench-backup FOLDER RECORDS

#include "FloorStore.h"
#include "LoudPrompt.h"
#include "ProcessorTime.h"
#include "app/CVelmarchApp.h"
#include "app/HomeFiles.h"
#include "changes/CProgress.h"
#include "changes/DemoData.h"
#include "exchange/backup/CRestore.h"
#include "exchange/backup/CSecondSource.h"
#include "exchange/backup/WriteBackup.h"
#include "lang/LoadText.h"
#include "platform/host/CClock.h"
#include "platform/host/CInstallLocation.h"
#include "platform/host/CMessagePump.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QtEndian>
#include <cstdio>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Bench {
    QString home;
    QString file;
    CSystemClock clock;
    LoudPrompt prompt;
    CNoProgress progress;
};

void Say(const char* name, double ours, double floor) {
    std::printf("%-8s %10.1f ms  %10.1f ms  %5.2f\n", name, ours / 1000, floor / 1000, ours / floor);
}

/// The most memory that the process has held so far, in megabytes.
double MostMegabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) qFatal("no /proc/self/status");
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).simplified().split(' ').front().toDouble() / 1024;
    return 0;
}

void Fill(Bench& bench, int records) {
    CNoPump pump;
    CNoViews views;
    CVelmarchApp app({bench.clock, bench.prompt, pump, views});
    if (!app.ResolveHome(bench.home) || !app.OpenSettings() || !app.OpenStore()) qFatal("no home");
    if (FillWithDemoData(app.Document(), bench.clock, {records, 0}, 1) != DemoOutcome::Filled)
        qFatal("the home can't be filled");
}

/// The rows as records, as their bytes, through the digest: all that a backup does but for writing.
double FloorOfBackup(Bench& bench) {
    CSecondSource source(bench.home, bench.prompt);
    if (!source.Open()) qFatal("no store");
    return Took([&] {
        CVOSrcMgr& manager = source.Manager();
        QCryptographicHash hash(QCryptographicHash::Md5);
        if (!manager.Query(source.Store().SelectAll(RecordKind::Time), false)) qFatal("no query");
        for (bool found = true; found;) {
            CTRecord record;
            if (!manager.GetQueryRecord(record, found, true)) qFatal("no row");
            if (found) hash.addData(record.ToBytes());
        }
        static_cast<void>(hash.result());
    });
}

void Backup(Bench& bench) {
    const double floor = FloorOfBackup(bench);
    const double before = MostMegabytes();
    CSecondSource source(bench.home, bench.prompt);
    if (!source.Open()) qFatal("no store");
    const double ours = Took([&] {
        if (const auto done =
                WriteBackup({source, bench.clock, bench.progress}, bench.file, EmptyBackup::Refused);
            !done)
            qFatal("%s", qPrintable(done.error));
    });
    Say("backup", ours, floor);
    std::printf("memory of the backup: %.1f MB more\n", MostMegabytes() - before);
}

/// The digest over the file, and each record made of its bytes.
double FloorOfVerify(const QByteArray& bytes) {
    return Took([&] {
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

double FloorOfRestore(const Bench& bench) {
    std::vector<FloorRow> rows;
    const QString path = bench.home + u"/floor.store"_s;
    QFile::remove(path);
    FloorStore from(StorePath(bench.home).toStdString()), to(path.toStdString());
    sqlite3_stmt* select = from.Prepare("SELECT * FROM time_velmarch");
    while (from.Step(select)) rows.push_back(ReadRow(select));
    sqlite3_finalize(select);
    for (const char* name : {"time_velmarch", "time_velmarch_days", "time_velmarch_checks"})
        to.Run(from.Text(std::string("SELECT sql FROM sqlite_schema WHERE name='") + name + '\''));
    const double took = Took([&] {
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

void VerifyAndRestore(Bench& bench) {
    QFile file(bench.file);
    if (!file.open(QIODevice::ReadOnly)) qFatal("no backup");
    const double floor = FloorOfVerify(file.readAll());
    CRestore restore({.prompt = bench.prompt, .clock = bench.clock, .progress = bench.progress});
    Say("verify", Took([&] {
            if (!restore.Verify(bench.file)) qFatal("not sound");
        }),
        floor);
    const double floorOfRestore = FloorOfRestore(bench);
    // Into an empty store: what the copy of the present records costs is a backup's cost.
    if (!QFile::remove(StorePath(bench.home))) qFatal("the store stays");
    Fill(bench, 0);
    Say("restore", Took([&] {
            if (const auto done = restore.Run(bench.home, nullptr); !done) qFatal("%s", qPrintable(done.error));
        }),
        floorOfRestore);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) qFatal("usage: bench-backup FOLDER RECORDS");
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) qFatal("no language library");
    Bench bench;
    bench.home = QString::fromLocal8Bit(argv[1]);
    bench.file = bench.home + u"/bench.vbk"_s;
    Fill(bench, QByteArray(argv[2]).toInt());
    Backup(bench);
    VerifyAndRestore(bench);
    return 0;
}
