#include "app/RecordMode.h"

#include "config/Settings.h"

RecordMode theRecordMode = RecordMode::Time;

RecordMode LastMode(const Settings& settings) {
    return settings.lastModeWasTime ? RecordMode::Time : RecordMode::Expense;
}

void NoteMode(Settings& settings) {
    settings.lastModeWasTime = theRecordMode == RecordMode::Time;
}
