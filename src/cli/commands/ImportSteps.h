#pragma once

#include "cli/output/Console.h"
#include "cli/output/ExitCode.h"
#include "exchange/import/CIdList.h"
#include "exchange/import/CRecordImport.h"
#include "exchange/import/ItemImport.h"

class COutput;
struct RecordContext;

// Steps of the commands that import, and how they account for what they did.

/// What became of a file of records, or would.
struct ImportAccount {
    const ImportPlan& plan;
    QByteArray encoding;
    int added;
    int listItems;
    bool isDryRun;
    CIdList ids = {};
};
void PrintAccount(COutput& out, const ImportAccount& account);
void PrintItemAccount(COutput& out, const ItemPlan& plan, int added, bool isDryRun);

/// Stores the items of a plan, and lets the captions of columns follow the names of fields among them. added:
/// how many were new.
[[nodiscard]] ExitCode StoreItems(const ItemPlan& plan, int& added, Console& console, RecordContext& context);
[[nodiscard]] ExitCode RefuseUndecodable(int line, const CTextFile& file, Console& console);
