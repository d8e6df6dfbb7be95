#pragma once

#include <cstdint>
#include <span>
#include <variant>

/// The user's settings: plain members, read by everyone. SettingsTable gives their order, names and defaults.
struct Settings {
    bool confirmCopy = true, confirmDelete = true, confirmMark = true;
    bool confirmAddListItem = false, confirmDeleteListItem = true;
    bool reservedFlag5 = false, reservedFlag6 = false, reservedFlag7 = true;
    bool lastModeWasTime = true;
    bool odometerSuggestStart = true;
    bool reservedFlag10 = true, reservedFlag11 = false;
    bool keepTimeList109 = true, keepTimeList110 = true, keepTimeList111 = true, keepTimeList112 = true;
    bool keepTimeList115 = false, keepTimeList113 = true, keepTimeList114 = true;
    bool keepExpenseList131 = true, keepExpenseList132 = true, keepExpenseList133 = true,
         keepExpenseList134 = true;
    bool keepExpenseList136 = false, keepExpenseList135 = true, keepDistance = true, keepDistanceRate = true;
    std::int32_t roundStartType = 0, roundEndType = 0, roundDurationType = 0;
    std::int32_t roundStartMinutes = 0, roundEndMinutes = 0, roundDurationMinutes = 0;
    std::int32_t odometerLastEnd = -1;
    std::int32_t firstDayOfWeek = 0;
    std::int32_t iconColumnWidth = 40;
    std::int32_t reservedInt36 = -1, reservedInt37 = -1;
    bool sortAscendingTime = false, sortAscendingExpense = false;
    std::int32_t reservedInt40 = 50;
    bool reservedFlag41 = true;
    bool accumulateOnReentry = false, lockDurationOnTimeEdit = false, lockStartOnDurationEdit = true;
    bool useDependencies = false;
    bool reservedFlag46 = true;
    std::int32_t sortColumnTime = 0, sortColumnExpense = 17;
    std::int32_t spanDisplayFormat = 0;
    bool refreshOnSyncEnd = true;
    std::int32_t yearDisplayFormat = 1;
    std::int32_t listLayout = 4;
    std::int32_t alternateRows = 1;
    std::uint32_t alternateRowColour = 0xF8F8F8;  ///< colours: 0x00BBGGRR
    std::int32_t gridLines = 1;
    std::uint32_t gridLineColour = 0xE1E9EA;
    std::int32_t gridLineStyle = 0, gridLineWidth = 0;
    std::uint32_t lineColour1 = 0x000000, lineColour2 = 0x916F70, lineColour3 = 0xC49797,
                  lineColour4 = 0x8C8C8C;
    std::int32_t precisionDuration = 4, precisionDistance = 2, precisionRate = 3, precisionAmount = 2;
    std::int32_t exportPostProcessing = 0;
    std::int32_t timerOnNewTimer = 0;  ///< 0 continue, 1 pause, 2 stop
    std::int32_t timerOnExit = 1;      ///< 0 continue, 1 pause, 2 stop
    bool resortOnChange = true, dialogOnQuickEntry = true;
    std::int32_t weekNumberType = 1;
    bool showDayWeekNumbers = true, addMinuteOnSuccessive = true;

    // This program's own settings: OwnSettingsTable gives their names and defaults.
    std::int32_t clockFormat = 0;   ///< times of day: 0 as the region has them, 12 or 24 hours
    std::int32_t distanceUnit = 0;  ///< 0 as the region has it, 1 kilometres, 2 miles
    std::int32_t firstSteps = 0;    ///< the guide of the first start: 0 not wanted, 1 wanted, 2 done
    bool linesOnGrid = false;       ///< the several lines of a record share their columns
    std::int32_t listGroups = 0;    ///< heads in the list: 0 none, for each 1 day, 2 week, 3 month
    bool closeToTray = false;       ///< a closed window goes on behind its icon in the notification area

    bool clock24 = false;      ///< not stored: from clockFormat or the regional settings
    bool metricUnits = false;  ///< not stored: from distanceUnit or the regional settings
};
