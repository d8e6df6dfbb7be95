#pragma once

struct Places;

/// The lines of the report view: a page of 1,000, 10,000 and 100,000 rows by 10 columns.
void ReportViewLines(const Places& places);
