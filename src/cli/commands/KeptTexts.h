#pragma once

class CArguments;
class CVORec;
struct RecordContext;

/// Keeps the texts of a command line in their pick lists, as the dialog of such a record keeps what was
/// typed: under the keep settings, never what was computed. Loads no more than the lists that it needs. True
/// when a list got a new item.
[[nodiscard]] bool KeepTexts(const CVORec& record, const CArguments& arguments, RecordContext& context);
