#include "SortFloor.h"

#include "ProcessorTime.h"
#include "platform/host/CRegionalInfo.h"
#include "viewmodel/list/CRecordListModel.h"

#include <algorithm>

namespace {

/// Keeps the compiler from dropping a result.
volatile int theResult;

template <class KeyOf>
double SortKeys(const CRecordListModel& model, int column, KeyOf&& keyOf) {
    std::vector<std::pair<decltype(keyOf(RowKey())), int>> keys;
    for (int row = 0; row < model.rowCount(); ++row)
        keys.emplace_back(keyOf(MakeRowKey(*model.RecordAt(row), column, TheRegion())), row);
    const double took = Took([&keys] {
        std::ranges::sort(
            keys, {}, [](const auto& key) -> const auto& { return key.first; });
    });
    theResult = keys.front().second;
    return took;
}

}  // namespace

double SortFloor(const CRecordListModel& model, int column) {
    return CompareFormOf(column) == CompareForm::Text
               ? SortKeys(model, column, [](const RowKey& key) { return key.text; })
               : SortKeys(model, column, [](const RowKey& key) { return key.order; });
}
