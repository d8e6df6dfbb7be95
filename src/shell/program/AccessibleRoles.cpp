#include "shell/program/AccessibleRoles.h"

#include "shell/options/COptionsTree.h"
#include "shell/options/COptionsTreeAccess.h"
#include "shell/report/CReportView.h"
#include "shell/report/CReportViewAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFrame>

namespace {

bool IsLine(const QWidget& widget) {
    const auto& frame = static_cast<const QFrame&>(widget);
    return frame.frameShape() == QFrame::VLine || frame.frameShape() == QFrame::HLine;
}
bool IsAny(const QWidget&) {
    return true;
}

struct RoleRow {
    const char* className;
    bool (*concerns)(const QWidget& widget);
    QAccessible::Role role;
};
constexpr RoleRow kRoles[] = {
    {"QSplitterHandle", &IsAny, QAccessible::Separator},
    {"QFrame", &IsLine, QAccessible::Separator},
    {"QSizeGrip", &IsAny, QAccessible::Client},
};

/// Qt asks for each class an object descends from, from its own up; null leaves the answer to Qt.
QAccessibleInterface* MakeAccessible(const QString& className, QObject* object) {
    if (!object || !object->isWidgetType()) return nullptr;
    if (className == QLatin1String(COptionsTree::staticMetaObject.className()))
        return new COptionsTreeAccess(static_cast<COptionsTree&>(*object));
    if (className == QLatin1String(CReportView::staticMetaObject.className()))
        return new CReportViewAccess(static_cast<CReportView&>(*object));
    auto* widget = static_cast<QWidget*>(object);
    for (const RoleRow& row : kRoles)
        if (className == QLatin1String(row.className) && row.concerns(*widget))
            return new QAccessibleWidget(widget, row.role);
    return nullptr;
}

}  // namespace

void InstallAccessibleRoles() {
    QAccessible::installFactory(&MakeAccessible);
}
