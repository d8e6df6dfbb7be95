#include "shell/IconTheme.h"

#include "shell/ListColours.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPalette>

using namespace Qt::Literals::StringLiterals;

void ChooseIconTheme() {
    const QString fallback = IsDark(QGuiApplication::palette()) ? u"breeze-dark"_s : u"breeze"_s;
    QIcon::setFallbackThemeName(fallback);
    // Without a desktop there is no theme but the bare base of all themes.
    const QString present = QIcon::themeName();
    if (present.isEmpty() || present == u"hicolor"_s || present.startsWith(u"breeze"_s))
        QIcon::setThemeName(fallback);
}
