#include "app/RecordMode.h"

RecordMode theRecordMode = RecordMode::Time;
