#include "shell/controls/CCalendarPopup.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextCharFormat>
#include <QVBoxLayout>

CCalendarPopup::CCalendarPopup(const DateTimeVal& day, int firstDayOfWeek, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_calendar(new QCalendarWidget(this)) {
    setObjectName(QStringLiteral("calendarPopup"));
    setFrameStyle(QFrame::StyledPanel);
    NameWidget(*m_calendar, QStringLiteral("calendar"), LoadText(Text::LabelDate));
    // The focus goes to the calendar's table of days, which is what is read out.
    for (auto* days : m_calendar->findChildren<QAbstractItemView*>())
        days->setAccessibleName(LoadText(Text::LabelDate));
    m_calendar->setGridVisible(false);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // The usual red of weekends can't be read on a dark ground.
    for (const Qt::DayOfWeek weekend : {Qt::Saturday, Qt::Sunday})
        m_calendar->setWeekdayTextFormat(weekend, m_calendar->weekdayTextFormat(Qt::Monday));
    m_calendar->setFirstDayOfWeek(firstDayOfWeek == 0 ? Qt::Sunday
                                                      : static_cast<Qt::DayOfWeek>(firstDayOfWeek));
    m_calendar->setSelectedDate(QDate(day.year, day.month, day.day));
    CMnemonics mnemonics;
    auto* today = new QPushButton(mnemonics.Give(LoadText(Text::PickToday)));
    NameWidget(*today, QStringLiteral("todayButton"), LoadText(Text::PickToday));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kFormSpace, kFormSpace, kFormSpace, kFormSpace);
    column->addWidget(m_calendar);
    column->addWidget(today, 0, Qt::AlignLeft);
    connect(m_calendar, &QCalendarWidget::clicked, this, &CCalendarPopup::Take);
    connect(m_calendar, &QCalendarWidget::activated, this, &CCalendarPopup::Take);
    connect(today, &QPushButton::clicked, this, [this] {
        Q_EMIT TodayWanted();
        close();
    });
    m_calendar->setFocus();
}

void CCalendarPopup::Take(const QDate& day) {
    DateTimeVal value;
    // Return and a double click announce the day twice; the first closes the popup.
    if (isVisible() && value.SetDate(day.month(), day.day(), day.year())) Q_EMIT Picked(value);
    close();
}

void CCalendarPopup::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QFrame::keyPressEvent(event);
}
