#pragma once

#include "shell/report/ReportSheetContext.h"

class CReportSource;
struct FrameContext;

/// What the sheet of a report can say of the records before it is run. Groups are made of the first ten
/// thousand records at most, so that they are there at once. All of them must outlive it.
[[nodiscard]] ReportCoverage ReportCoverageOf(const FrameContext& context, const CFieldCatalogue& catalogue,
                                              const CReportSource& source);
