#pragma once

class CHTMLWriter;
class CListing;
class CListingRows;
class ReportSectionList;
struct GroupedTable;
struct ReportResult;

// The page of a report, written from what the run came to.

/// The whole page: title, date, header, tables, footer. False for a kind of report that there isn't, and
/// where the rows of a listing break off; the page breaks off there too.
[[nodiscard]] bool WriteReportPage(CHTMLWriter& writer, const ReportResult& result, CListingRows& rows);

/// A row for each group and one with the total; nothing at all without groups.
void WriteGrouped(CHTMLWriter& writer, const GroupedTable& table);
/// A row for each record.
[[nodiscard]] bool WriteListing(CHTMLWriter& writer, const CListing& listing, CListingRows& rows);
/// A table for each section.
void WriteSummary(CHTMLWriter& writer, const ReportSectionList& summary);
