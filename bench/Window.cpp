// What a user of the window waits for, measured on the window itself under the offscreen platform. Prints
// "name value", a line each; processor time throughout.

#include "Painted.h"
#include "ProcessorTime.h"
#include "WindowHome.h"
#include "WindowMeasures.h"
#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "shell/program/CWindowProgram.h"

#include <QApplication>
#include <QTimer>
#include <array>
#include <cstdio>
#include <string>

namespace {

/// Ends the program, as its user would, when the rows of the list have been painted for the first time.
class FirstRows final : public QObject {
 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && IsListWithRows(*watched)) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, [] {
                std::printf("first_rows_us %.3f\n", ProcessorMicroseconds());
                std::fflush(stdout);
                QApplication::closeAllWindows();
            });
        }
        return QObject::eventFilter(watched, event);
    }

 private:
    static bool IsListWithRows(const QObject& watched) {
        const auto* list = qobject_cast<const CRecordListView*>(watched.parent());
        return list && list->viewport() == &watched && list->model()->rowCount() > 0;
    }
};

bool theStartIsMeasured = false;

void WatchStart() {
    static FirstRows firstRows;
    if (theStartIsMeasured) QCoreApplication::instance()->installEventFilter(&firstRows);
}

/// The program as it is, with somebody who looks at its window.
int Start(char* program, char* home) {
    theStartIsMeasured = true;
    std::string option = "--home";
    std::array words{program, option.data(), home, static_cast<char*>(nullptr)};
    int count = static_cast<int>(words.size()) - 1;
    return CWindowProgram(count, words.data()).Run();
}

struct Part {
    std::string name;
    void (*measure)(WindowHome&);
};
const Part kParts[] = {{"list", MeasureList},    {"sort", MeasureSorting}, {"groups", MeasureGroups},
                       {"find", MeasureFind},    {"tick", MeasureTick},    {"change", MeasureChange},
                       {"switch", MeasureSwitch}};

/// All parts over one load of the records, or the one that is named.
int Measure(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (!LoadLanguageLibrary(FolderOf(ModulePath()))) return 1;
    WindowHome home(QString::fromLocal8Bit(argv[2]));
    const std::string wanted = argc > 3 ? argv[3] : "";
    for (const Part& part : kParts)
        if (wanted.empty() || wanted == part.name) part.measure(home);
    return 0;
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchStart)

int main(int argc, char** argv) {
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "start" && argc == 3) return Start(argv[0], argv[2]);
    if (what == "views" && (argc == 3 || argc == 4)) return Measure(argc, argv);
    std::fputs(
        "usage: bench-window start HOME | views HOME [list | sort | groups | find | tick | change | "
        "switch]\n",
        stderr);
    return 2;
}
