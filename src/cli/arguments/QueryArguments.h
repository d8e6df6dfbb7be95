#pragma once

#include "cli/arguments/FilterArguments.h"
#include "reports/query/StoredQuery.h"

class CQueryStore;
enum class RecordMode : int;

/// --query beside the options that narrow a list.
[[nodiscard]] std::span<const OptionRow> QueryOption();
/// What a query can be stored of: the options that narrow lists of both kinds of records, each once.
[[nodiscard]] std::span<const OptionRow> StoredQueryOptions();

/// The filter of a list: the one that the options describe, or that of a stored query, which stands alone.
[[nodiscard]] FilterProblem ReadListFilter(RecordKind kind, const CArguments& arguments,
                                           const CQueryStore& queries, CVelmarchDoc& document);
/// Makes the document's filter of the queries' mode that of a stored one, with a note for a date that can't
/// be read. Unknown: not found; with a value that can't be read: failed.
[[nodiscard]] FilterProblem ApplyStoredQuery(const QString& name, const CQueryStore& queries,
                                             CVelmarchDoc& document);
/// The query that the options describe. What a stored query has no place for is refused.
[[nodiscard]] FilterProblem ReadQuery(RecordMode mode, const CArguments& arguments,
                                      const PeriodContext& context, StoredQuery& query);
/// That there is no stored query of that name, and how a command ends then.
[[nodiscard]] FilterProblem NoSuchQuery(const QString& name);
