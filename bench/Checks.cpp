// What the checksums of records cost: the same work on a store with them and on one without, in turns. Prints
// a line for each kind of work: microseconds of the processor without, with, and the difference in per cent
// (medians).
//   bench-checks FOLDER RECORDS

#include "LoudPrompt.h"
#include "ProcessorTime.h"
#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "platform/sqlite/CSqliteFile.h"
#include "records/CRecordStore.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kRounds = 7;
constexpr int kSingleAdds = 200;

void Demand(bool isDone, const CVOSrcMgr& manager) {
    if (!isDone) qFatal("%s", qPrintable(manager.m_error));
}

/// A store of its own, empty.
class Scratch {
 public:
    Scratch(const QString& folder, bool hasChecks) : store(manager, m_prompt, u"velmarch"_s) {
        manager.m_directory = folder;
        manager.m_fileName = hasChecks ? u"with"_s : u"without"_s;
        manager.LeaveWithoutChecks();
        QFile::remove(QDir(folder).filePath(manager.m_fileName));
        eActionDisposition source{}, second{};
        Demand(manager.InitDataSrc(source, second), manager);
        const QString table = store.TableName(RecordKind::Time);
        Demand(manager.InitDataSrcTable(table, CTRecord()), manager);
        if (hasChecks) return;
        const QByteArray checks = table.toUtf8() + "_checks";
        Demand(manager.File().Execute("DROP TRIGGER " + checks + "_update; DROP TRIGGER " + checks +
                                      "_delete; DROP TABLE " + checks),
               manager);
    }

    CVOSrcMgr manager;

 private:
    LoudPrompt m_prompt;

 public:
    CRecordStore store;
};

CTRecord RecordOf(int number) {
    CTRecord record;
    record.GenUnique();
    record.date.Set(1 + number % 12, 1 + number % 28, 2026);
    record.SetStart(9, number % 60, false);
    record.SetEnd(5, 30, true);
    record.item1 = u"Client %1"_s.arg(number % 30);
    record.item2 = u"Project %1"_s.arg(number % 100);
    record.notes = u"What was done on this day, number %1"_s.arg(number);
    return record;
}

void AddMany(Scratch& scratch, int records) {
    Demand(scratch.manager.BeginBatch(), scratch.manager);
    for (int i = 0; i < records; ++i)
        Demand(scratch.store.InsertRecord(RecordOf(i), Commit::Later), scratch.manager);
    Demand(scratch.store.Commit(), scratch.manager);
}

void AddSingly(Scratch& scratch, int) {
    for (int i = 0; i < kSingleAdds; ++i)
        Demand(scratch.store.InsertRecord(RecordOf(i), Commit::Now), scratch.manager);
}

void LoadAll(Scratch& scratch, int) {
    RowTable rows;
    Demand(scratch.store.Query(scratch.store.SelectAll(RecordKind::Time)) &&
               scratch.manager.m_recordset->GetRows(rows),
           scratch.manager);
}

void Compare(Scratch& scratch, int) {
    QStringList ids;
    Demand(scratch.manager.FindFaults(scratch.store.TableName(RecordKind::Time), ids), scratch.manager);
}

struct Work {
    const char* name;
    void (*run)(Scratch& scratch, int records);
    int per;  ///< so many times in one run; 0: once for each record
};
constexpr Work kWorks[] = {{"add_in_one_go", AddMany, 0},
                           {"bulk_load", LoadAll, 0},
                           {"add", AddSingly, kSingleAdds},
                           {"doctor_compares", Compare, 0}};

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) qFatal("usage: bench-checks FOLDER RECORDS");
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) qFatal("there are no texts");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const int records = QByteArray(argv[2]).toInt();
    std::vector<double> times[std::size(kWorks)][2];
    for (int round = 0; round < kRounds; ++round)
        for (const int with : {round % 2, 1 - round % 2}) {
            Scratch scratch(folder, with == 1);
            for (std::size_t i = 0; i < std::size(kWorks); ++i) {
                const double took = Took([&] { kWorks[i].run(scratch, records); });
                const int per = kWorks[i].per == 0 ? records : kWorks[i].per;
                times[i][with].push_back(took / per);
            }
        }
    for (std::size_t i = 0; i < std::size(kWorks); ++i) {
        const double without = Median(times[i][0]), with = Median(times[i][1]);
        std::printf("%-16s %10.3f %10.3f", kWorks[i].name, without, with);
        // Without checksums there is nothing to compare.
        if (kWorks[i].run != Compare) std::printf(" %+7.1f %%", (with / without - 1) * 100);
        std::printf("\n");
    }
    return 0;
}
