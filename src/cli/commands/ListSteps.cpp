#include "cli/commands/ListSteps.h"

#include "cli/arguments/EnteredValues.h"
#include "cli/home/CWindowLink.h"
#include "cli/home/RecordContext.h"
#include "cli/output/COutput.h"
#include "lang/FormatText.h"

#include <algorithm>

const ListRow* FindList(const QString& typed, Console& console) {
    const auto number = EnteredValues::ReadCount(typed);
    const auto lists = RecordLists();
    const auto found = std::ranges::find_if(lists, [&](const ListRow& row) {
        return number ? row.list == *number : LoadText(row.title).compare(typed, Qt::CaseInsensitive) == 0;
    });
    if (found != lists.end()) return &*found;
    console.out.Complain(FormatText<Text::CliNoSuchList>(typed));
    return nullptr;
}

void AnnounceLists(Console& console, RecordContext& context) {
    if (!context.window.TellAllChanged()) console.out.Note(LoadText(Text::CliWindowNotTold));
}
