#include "shell/controls/CClockControl.h"

#include <QSignalBlocker>
#include <cerrno>

CClockControl::CClockControl(bool is24Hour, QWidget* parent) : QTimeEdit(parent) {
    // The words for the halves of the day are those of the program, not of the desktop's language.
    setLocale(QLocale::c());
    setDisplayFormat(is24Hour ? QStringLiteral("HH:mm") : QStringLiteral("hh:mm AP"));
    setWrapping(true);
}

int CClockControl::SetTime(const SYSTEMTIME& time) {
    const QTime shown(time.wHour, time.wMinute);
    if (!shown.isValid()) return EINVAL;
    const QSignalBlocker blocked(this);
    setTime(shown);
    return 0;
}

bool CClockControl::GetTime(SYSTEMTIME& out) const {
    if (!time().isValid()) return false;
    out = {};
    out.wHour = static_cast<std::uint16_t>(time().hour());
    out.wMinute = static_cast<std::uint16_t>(time().minute());
    return true;
}
