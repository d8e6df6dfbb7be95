#pragma once

#include "cli/commands/ReportRequest.h"
#include "cli/output/ExitCode.h"

class CListingRows;
struct Console;
struct ReportResult;

/// Where a run goes, and as what.
struct ReportOutlet {
    RunFormat format = RunFormat::Page;
    std::optional<QString> file{};  ///< none: standard output
};

/// Writes the page in the system's code page, the table in UTF-8, piece by piece. A file is replaced when the
/// new one is whole; what the code page lacks is told before that.
[[nodiscard]] ExitCode WriteReport(const ReportOutlet& outlet, const ReportResult& result, CListingRows& rows,
                                   Console& console);
