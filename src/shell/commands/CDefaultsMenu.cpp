#include "shell/commands/CDefaultsMenu.h"

#include "lang/FormatText.h"
#include "shell/look/PlainTip.h"

#include <QAction>
#include <QIcon>
#include <QMenu>

CDefaultsMenu::CDefaultsMenu(QMenu& menu, QAction& before) : QObject(&menu), m_menu(menu), m_before(before) {
    connect(&menu, &QMenu::aboutToShow, this, &CDefaultsMenu::Wanted);
}

void CDefaultsMenu::Show(const QStringList& names) {
    qDeleteAll(m_shown);
    m_shown.clear();
    for (const QString& name : names.first(qMin(names.size(), kMostNames))) {
        QString caption = name;
        auto* action = new QAction(QIcon::fromTheme(QStringLiteral("document-new-from-template")),
                                   caption.replace(u'&', QStringLiteral("&&")), this);
        action->setObjectName(QStringLiteral("default.") + name);
        const QString tip = FormatText<Text::TipDefaultNamed>(name, name);
        action->setToolTip(PlainTip(tip.section(u'\n', 0, 0)));
        action->setStatusTip(tip.section(u'\n', 1));
        connect(action, &QAction::triggered, this, [this, name] { Q_EMIT Chosen(name); });
        m_menu.insertAction(&m_before, action);
        m_shown.append(action);
    }
}
