#include "shell/commands/CPeriodButton.h"

#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"

#include <QIcon>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;

CPeriodButton::CPeriodButton(QWidget* parent) : QToolButton(parent) {
    setObjectName(u"periodButton"_s);
    setAccessibleName(LoadText(Text::PeriodButton));
    setToolTip(LoadText(Text::TipPeriod));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIcon(QIcon::fromTheme(u"view-calendar"_s));
    setPopupMode(InstantPopup);
    setFocusPolicy(Qt::NoFocus);
    setMenu(new QMenu(this));
    connect(menu(), &QMenu::aboutToShow, this, &CPeriodButton::FillMenu);
}

void CPeriodButton::ShowPeriod(const QString& name, int preset) {
    m_preset = preset;
    // An ampersand would underline the next letter.
    setText(QString(name).replace(u'&', u"&&"_s));
}

void CPeriodButton::FillMenu() {
    menu()->clear();
    const auto add = [this](const QString& text, int preset, auto&& chosen) {
        QAction* action = menu()->addAction(text);
        action->setCheckable(true);
        action->setChecked(preset == m_preset);
        connect(action, &QAction::triggered, this, chosen);
    };
    add(LoadText(Text::PeriodAll), PeriodCode::kAll, [this] { Q_EMIT AllChosen(); });
    add(LoadText(Text::CmdPeriodDay), PeriodCode::kSingleDate, [this] { Q_EMIT DayWanted(); });
    menu()->addSeparator();
    for (const PeriodPresetRow& row : PeriodPresets())
        add(LoadText(row.name), row.preset, [this, preset = row.preset] { Q_EMIT PresetChosen(preset); });
}
