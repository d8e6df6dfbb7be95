#include "shell/look/IconTheme.h"

#include "shell/look/ListColours.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Some platforms of Qt look for themes nowhere but in the program.
void LookInTheDataFolders() {
    QStringList paths = QIcon::themeSearchPaths();
    for (const QString& path : QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s,
                                                         QStandardPaths::LocateDirectory))
        if (!paths.contains(path)) paths.append(path);
    QIcon::setThemeSearchPaths(paths);
}

}  // namespace

void ChooseIconTheme() {
    LookInTheDataFolders();
    const QString fallback = IsDark(QGuiApplication::palette()) ? u"breeze-dark"_s : u"breeze"_s;
    QIcon::setFallbackThemeName(fallback);
    // Without a desktop there is no theme but the bare base of all themes.
    const QString present = QIcon::themeName();
    if (present.isEmpty() || present == u"hicolor"_s || present.startsWith(u"breeze"_s))
        QIcon::setThemeName(fallback);
}
