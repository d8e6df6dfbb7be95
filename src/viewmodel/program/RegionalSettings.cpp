#include "viewmodel/program/RegionalSettings.h"

#include "platform/host/CLauncher.h"

#include <algorithm>
#include <iterator>

namespace {

struct RegionalProgram {
    const char* name;
    const char* page;  ///< empty: it has no other
};
/// Of the usual desktops, the whole settings before single pages.
constexpr RegionalProgram kPrograms[] = {
    {"gnome-control-center", "region"},
    {"systemsettings", "kcm_regionandlang"},
    {"systemsettings5", "kcm_formats"},
    {"lxqt-config-locale", ""},
    {"mintlocale", ""},
};

const RegionalProgram* FirstThere(const CLauncher& launcher) {
    const auto* program = std::ranges::find_if(kPrograms, [&launcher](const RegionalProgram& row) {
        return launcher.IsThere(QString::fromLatin1(row.name));
    });
    return program == std::end(kPrograms) ? nullptr : program;
}

}  // namespace

bool HasRegionalSettings(const CLauncher& launcher) {
    return FirstThere(launcher) != nullptr;
}

bool OpenRegionalSettings(CLauncher& launcher) {
    const RegionalProgram* program = FirstThere(launcher);
    if (!program) return false;
    const QString page = QString::fromLatin1(program->page);
    return launcher.Start(QString::fromLatin1(program->name),
                          page.isEmpty() ? QStringList() : QStringList(page));
}
