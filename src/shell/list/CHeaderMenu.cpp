#include "shell/list/CHeaderMenu.h"

#include "config/CColSet.h"
#include "lang/LoadText.h"

using namespace Qt::Literals::StringLiterals;

CHeaderMenu::CHeaderMenu(const CColSet& columns, ColumnHalf half, int column, const QList<QAction*>& commands,
                         QWidget* parent)
    : QMenu(parent) {
    setObjectName(u"headerMenu"_s);
    setAccessibleName(LoadText(Text::HeaderMenuName));
    if (column != Column::kNone) AddColumn(column, columns.Order(half).size() == 1);
    AddShown(columns, half);
    addSeparator();
    addActions(commands);
}

/// Without any column there would be no header to bring them back.
void CHeaderMenu::AddColumn(int column, bool isLastShown) {
    QAction* fit = addAction(LoadText(Text::HeaderFit));
    fit->setObjectName(u"fitColumn"_s);
    connect(fit, &QAction::triggered, this, [this, column] { Q_EMIT FitWanted(column); });
    QAction* hide = addAction(LoadText(Text::HeaderHide));
    hide->setObjectName(u"hideColumn"_s);
    hide->setEnabled(!isLastShown);
    connect(hide, &QAction::triggered, this, [this, column] { Q_EMIT ShowWanted(column, false); });
    addSeparator();
}

/// Those shown in their order, then the others.
void CHeaderMenu::AddShown(const CColSet& columns, ColumnHalf half) {
    QMenu* shown = addMenu(LoadText(Text::HeaderColumns));
    shown->setObjectName(u"shownColumns"_s);
    const auto add = [this, shown, &columns](int column, bool isChecked, bool isOffered) {
        QAction* action = shown->addAction(columns.EntryAt(column).caption.replace(u'&', u"&&"_s));
        action->setObjectName(u"column%1"_s.arg(column));
        action->setCheckable(true);
        action->setChecked(isChecked);
        action->setEnabled(isOffered);
        connect(action, &QAction::triggered, this,
                [this, column](bool isShown) { Q_EMIT ShowWanted(column, isShown); });
    };
    const std::vector<int>& order = columns.Order(half);
    for (const int column : order) add(column, true, order.size() > 1);
    for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
        if (!columns.IsVisible(column)) add(column, false, true);
}
