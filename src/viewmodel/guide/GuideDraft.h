#pragma once

#include <QString>

/// What the user calls the people worked for, and what is done for them.
enum class GuideWords {
    AsNow,    ///< the names that fields have
    Plain,    ///< the default ones
    Law,      ///< a ready-made set of names: a law office's
    Service,  ///< that of a field service
    Own       ///< two words of the user's own, all other names as they are
};

/// What is entered on the pages of the guide. Nothing of it is stored before the last page is accepted.
struct GuideDraft {
    GuideWords words = GuideWords::AsNow;
    QString person = {};  ///< with GuideWords::Own; empty: as now
    QString work = {};    ///< the same

    QString client = {};
    QString project = {};

    QString rate = {};  ///< as typed
    QString currency = {};
    int spanFormat = 0;  ///< these five are settings
    int durationPlaces = 0;
    int clockFormat = 0;
    int distanceUnit = 0;
    int firstDayOfWeek = 0;

    bool startsTimer = false;
    QString activity = {};  ///< of the record with the timer

    bool operator==(const GuideDraft&) const = default;
};
