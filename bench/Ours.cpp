// The waiting moments inside the program, measured on its own classes. Prints "name value", a line each.

#include "LoudPrompt.h"
#include "OursReports.h"
#include "OursViews.h"
#include "ProcessorTime.h"
#include "app/CVelmarchApp.h"
#include "app/ListTable.h"
#include "changes/DemoData.h"
#include "lang/LoadText.h"
#include "platform/host/CClock.h"
#include "platform/host/CInstallLocation.h"
#include "platform/host/CMessagePump.h"
#include "records/CERecord.h"
#include "viewmodel/program/PeriodMemory.h"

#include <unistd.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>
#include <random>
#include <vector>

namespace {

struct Program {
    CSystemClock clock;
    LoudPrompt prompt;
    CNoPump pump;
    CNoViews views;
    CVelmarchApp app{{clock, prompt, pump, views}};

    explicit Program(const QString& home) {
        if (!app.ResolveHome(home) || !app.OpenSettings() || !app.OpenStore())
            qFatal("the home can't be opened");
    }
};

void Say(const char* name, double value) {
    std::printf("%s %.3f\n", name, value);
}

double Microseconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1000;
}

double ResidentBytes() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly)) qFatal("no /proc/self/statm");
    return statm.readAll().split(' ').at(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE));
}

int Fill(const QString& home, int times, std::uint32_t seed) {
    Program program(home);
    QElapsedTimer timer;
    timer.start();
    if (FillWithDemoData(program.app.Document(), program.clock, {times, 0}, seed) != DemoOutcome::Filled)
        return 1;
    Say("fill_us", Microseconds(timer));
    StorePeriod(program.app.Profile(), PeriodFilter());  // a window over this home lists all of them
    return 0;
}

void Filter(CVelmarchDoc& document) {
    document.Filter().ApplyPreset(PeriodCode::kThisMonth, document.GetPeriodContext());
    QElapsedTimer timer;
    timer.start();
    document.BuildVisible();
    Say("filter_us", Microseconds(timer));
    Say("visible", static_cast<double>(document.VisibleCount()));
}

void Find(CVelmarchDoc& document) {
    std::vector<QString> all, wanted(200000);
    document.ForEachVisible([&all](const CVORec& record) { all.push_back(record.GetId()); });
    std::mt19937 random(1);
    // Texts of their own: a caller's identity doesn't share the record's memory.
    for (QString& id : wanted)
        id = QString::fromUtf16(reinterpret_cast<const char16_t*>(all[random() % all.size()].utf16()));
    QElapsedTimer timer;
    timer.start();
    int sum = 0;
    for (const QString& id : wanted) sum += document.FindTime(id)->startHour;
    Say("find_ns", Microseconds(timer) * 1000 / static_cast<double>(wanted.size()));
    Say("sum", sum);
}

int Load(const QString& home) {
    Program program(home);
    CVelmarchDoc& document = program.app.Document();
    const double before = ResidentBytes(), processorBefore = ProcessorMicroseconds();
    QElapsedTimer timer;
    timer.start();
    document.LoadRecords(RecordKind::Time);
    Say("load_us", Microseconds(timer));
    Say("load_processor_us", ProcessorMicroseconds() - processorBefore);
    Say("bytes", ResidentBytes() - before);
    Say("records", static_cast<double>(document.RecordCount()));
    document.BuildVisible();
    Find(document);
    Filter(document);
    return 0;
}

/// Items of the first pick list in a home without records.
int MakeItems(const QString& home, int count) {
    Program program(home);
    CRecordStore& store = program.app.Store();
    if (!store.BeginBatch()) return 1;
    for (int i = 0; i < count; ++i) {
        CPRecord item(QStringLiteral("Client number %1").arg(i));
        item.listId = ListId::kClient;
        item.GenUnique();
        if (!store.InsertRecord(item, Commit::Later)) return 1;
    }
    return store.Commit() ? 0 : 1;
}

/// Expenses for a home that has time records only.
int MakeExpenses(const QString& home, int count) {
    Program program(home);
    CRecordStore& store = program.app.Store();
    if (!store.BeginBatch()) return 1;
    for (int i = 0; i < count; ++i) {
        CERecord expense;
        expense.Reset();
        expense.date.Set(i % 12 + 1, i % 28 + 1, 2000 + i % 25);
        expense.item1 = QStringLiteral("Client number %1").arg(i % 50);
        expense.item5 = QStringLiteral("EUR");
        expense.amount.Set(static_cast<float>(i % 1000));
        expense.GenUnique();
        if (!store.InsertRecord(expense, Commit::Later)) return 1;
    }
    return store.Commit() ? 0 : 1;
}

int Items(const QString& home) {
    Program program(home);
    QElapsedTimer timer;
    timer.start();
    if (!program.app.Catalogue().Load()) return 1;
    Say("items_us", Microseconds(timer));
    Say("items", static_cast<double>(program.app.Catalogue().GetList(ListId::kClient)->size()));
    return 0;
}

int Views(const QString& home) {
    Program program(home);
    program.app.Document().LoadRecords(RecordKind::Time);
    program.app.Document().BuildVisible();
    MeasureViews(program.app);
    program.app.Settings().KeepStoreUntouched();  // the next run starts from the same order
    return 0;
}

int Reports(const QString& home) {
    Program program(home);
    program.app.Document().LoadRecords(RecordKind::Time);
    program.app.Document().BuildVisible();
    MeasureReports(program.app);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) return 1;
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("load")) return Load(arguments[2]);
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("views")) return Views(arguments[2]);
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("reports")) return Reports(arguments[2]);
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("items")) return Items(arguments[2]);
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("make-items"))
        return MakeItems(arguments[2], arguments[3].toInt());
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("make-expenses"))
        return MakeExpenses(arguments[2], arguments[3].toInt());
    if (arguments.size() == 5 && arguments[1] == QStringLiteral("fill"))
        return Fill(arguments[2], arguments[3].toInt(), arguments[4].toUInt());
    std::fputs(
        "usage: bench-ours load HOME | views HOME | reports HOME | fill HOME RECORDS SEED |\n"
        "       make-items HOME COUNT | items HOME | make-expenses HOME COUNT\n",
        stderr);
    return 2;
}
