#include "exchange/export/ItemExport.h"

#include "app/ListNameMap.h"
#include "exchange/export/CReadBack.h"
#include "exchange/export/RecordText.h"
#include "records/CPRecord.h"
#include "records/CRecordStore.h"

namespace {

constexpr std::size_t kPiece = 500;

/// False when the items can't be read.
bool PutItems(CTextExport& file, const Delimiters& delimiters, CRecordStore& store, CReadBack& readBack,
              int& items) {
    const ListNameMap lists;
    bool isRead = store.Query(store.SelectAll(RecordKind::PulldownItem));
    RowTable rows;
    while (isRead && !store.IsEOF()) {
        isRead = store.NextRows(rows, kPiece);
        for (std::size_t row = 0; isRead && row < rows.RowCount(); ++row) {
            CPRecord item;
            isRead = item.Load(rows, row);
            const QString* name = lists.ListName(item.listId);
            if (!isRead || !name) continue;
            const QString line = ItemLine(*name, item.GetText(), delimiters);
            readBack.TakeItem({*name, item.GetText()}, line);
            // A failure to write stays, and is told at the end.
            static_cast<void>(file.Put(line));
            ++items;
        }
    }
    store.Manager().CloseQuery();
    return isRead;
}

}  // namespace

ItemExportEnd ExportItems(const QString& path, const ExportForm& form, CRecordStore& store) {
    ItemExportEnd end;
    CTextExport file(path, form);
    CReadBack readBack(form.delimiters);
    end.areItemsRead = PutItems(file, form.delimiters, store, readBack, end.items);
    if (!end.areItemsRead) return end;
    end.file = file.Finish();
    end.file.lost = readBack.LostCount();
    end.file.lostWords = readBack.Words();
    return end;
}
