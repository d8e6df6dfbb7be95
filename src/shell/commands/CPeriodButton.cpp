#include "shell/commands/CPeriodButton.h"

#include "calendar/PeriodFilter.h"
#include "lang/FormatText.h"
#include "shell/look/PlainTip.h"

#include <QEvent>
#include <QIcon>
#include <QMenu>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The longest that a day is written.
constexpr auto kDay = u"88/88/8888";

}  // namespace

CPeriodButton::CPeriodButton(QWidget* parent) : QToolButton(parent) {
    setObjectName(u"periodButton"_s);
    setAccessibleName(LoadText(Text::PeriodButton));
    setToolTip(LoadText(Text::TipPeriod));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIcon(QIcon::fromTheme(u"view-calendar"_s));
    setPopupMode(MenuButtonPopup);
    setFocusPolicy(Qt::NoFocus);
    setMenu(new QMenu(this));
    connect(this, &QToolButton::clicked, this, &QToolButton::showMenu);
    connect(menu(), &QMenu::aboutToShow, this, &CPeriodButton::FillMenu);
}

void CPeriodButton::ShowPeriod(const QString& name, int preset) {
    m_preset = preset;
    if (name == m_name) return;
    m_name = name;
    setToolTip(PlainTip(FormatText<Text::TipPeriodShown>(name)));
    FitName();
}

/// A name that is longer all the same is cut.
void CPeriodButton::FitName() {
    const QString shown = fontMetrics().elidedText(m_name, Qt::ElideRight, WidestName());
    // An ampersand would underline the next letter.
    setText(QString(shown).replace(u'&', u"&&"_s));
}

QSize CPeriodButton::sizeHint() const {
    QSize size = QToolButton::sizeHint();
    size.rwidth() += WidestName() - WidthOf(text());
    return size;
}

int CPeriodButton::WidthOf(const QString& text) const {
    return fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

int CPeriodButton::WidestName() const {
    const QString day = QString::fromUtf16(kDay);
    int widest = std::max(WidthOf(day + LoadText(Text::PeriodTo) + day), WidthOf(LoadText(Text::PeriodAll)));
    for (const PeriodPresetRow& row : PeriodPresets()) widest = std::max(widest, WidthOf(LoadText(row.name)));
    return widest;
}

void CPeriodButton::changeEvent(QEvent* event) {
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitName();
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
    add(LoadText(Text::CmdPeriodRange), PeriodCode::kRange, [this] { Q_EMIT RangeWanted(); });
    menu()->addSeparator();
    for (const PeriodPresetRow& row : PeriodPresets())
        add(LoadText(row.name), row.preset, [this, preset = row.preset] { Q_EMIT PresetChosen(preset); });
}
