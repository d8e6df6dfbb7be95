#pragma once

class CRecordListModel;

/// Microseconds that std::sort takes for the keys of all rows in the order in which the list has them, each
/// key made already and no larger than it must be.
[[nodiscard]] double SortFloor(const CRecordListModel& model, int column);
