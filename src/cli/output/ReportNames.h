#pragma once

#include "reports/definition/CReportDef.h"

#include <QString>
#include <optional>
#include <span>

// What kinds of reports and choices of records are called on the command line and in JSON.

[[nodiscard]] QString NameOf(ReportKind kind);
/// Those that are stored: grouped, listing, compound.
[[nodiscard]] std::span<const ReportKind> StoredKinds();
/// "grouped, listing, compound".
[[nodiscard]] QString StoredKindNames();
/// Of these three; nothing for anything else.
[[nodiscard]] std::optional<ReportKind> StoredKindNamed(const QString& name);
[[nodiscard]] QString NameOf(ReportSelection selection);
[[nodiscard]] std::optional<ReportSelection> SelectionNamed(const QString& name);
