#pragma once

#include "exchange/backup/BackupFormat.h"
#include "platform/host/SYSTEMTIME.h"

#include <QString>
#include <array>
#include <numeric>

/// What is in a backup.
struct BackupContent {
    SYSTEMTIME time;                                         ///< local, of its making
    std::array<int, BackupFormat::kTables.size()> counts{};  ///< records of each table

    [[nodiscard]] int Total() const { return std::accumulate(counts.begin(), counts.end(), 0); }
    bool operator==(const BackupContent&) const = default;
};

/// How writing or reading a backup ended.
struct [[nodiscard]] BackupOutcome {
    QString error;  ///< what failed, for the user; empty when nothing has
    BackupContent content;
    bool isCancelled = false;  ///< the user ended it, or said no
    bool isEmpty = false;      ///< it would have held no record, and was not written for that

    explicit operator bool() const { return error.isEmpty(); }
};
