#pragma once

#include "calendar/DateTimeVal.h"

#include <QFrame>

class QCalendarWidget;

/// A small popup with a calendar: arrows move, Return or a click takes a day, Escape leaves all as it was.
class CCalendarPopup final : public QFrame {
    Q_OBJECT

 public:
    /// firstDayOfWeek: 0 Sunday to 6 Saturday.
    CCalendarPopup(const DateTimeVal& day, int firstDayOfWeek, QWidget* parent);

 Q_SIGNALS:
    void Picked(const DateTimeVal& day);
    void TodayWanted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Take(const QDate& day);

    QCalendarWidget* m_calendar;
};
