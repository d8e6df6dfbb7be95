#pragma once

class CListingRows;
class CTextSink;
struct ReportResult;

/// The table of a report for a spreadsheet (RFC 4180): a line of captions, a line for each record or group,
/// no total; of a summary a line for each value: section, caption, value. Of a compound report the listing.
/// False where the rows break off or aren't taken.
[[nodiscard]] bool WriteCsv(CTextSink& sink, const ReportResult& result, CListingRows& rows);
