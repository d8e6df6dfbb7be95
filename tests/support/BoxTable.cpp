#include "support/BoxTable.h"

#include <algorithm>

namespace {

/// A question whose harmless answer is No.
constexpr BoxRow YesOrNo(Text text, Text title, std::optional<Text> action = {},
                         BoxIcon icon = BoxIcon::Warning) {
    return {.text = text,
            .title = title,
            .icon = icon,
            .buttons = Buttons::YesNo,
            .defaultAnswer = Answer::No,
            .action = action};
}

/// A question about what was entered in a dialog that is left; to stay in it is harmless.
constexpr BoxRow Leaving(Text text, Text action) {
    return {.text = text,
            .title = Text::AskLeaveTitle,
            .icon = BoxIcon::Question,
            .buttons = Buttons::YesNoCancel,
            .defaultAnswer = Answer::Cancel,
            .action = action};
}

/// A question whether another name is typed; going on loses nothing.
constexpr BoxRow NameAgain(Text text, Text title) {
    return {.text = text, .title = title, .icon = BoxIcon::Question, .buttons = Buttons::OkCancel};
}

/// A failure of the store.
constexpr BoxRow OfStore(Text text) {
    return {.text = text, .title = Text::StoreFailureTitle, .icon = BoxIcon::Stop};
}

/// A file that can't be read or written.
constexpr BoxRow OfFile(Text text) {
    return {.text = text, .title = Text::ReadWriteTitle};
}

constexpr BoxRow kBoxes[] = {
    OfStore(Text::QueryFailed),
    OfStore(Text::NextRecordFailed),
    OfStore(Text::ReadQueryFailed),
    OfStore(Text::ReadFailed),
    OfStore(Text::SeekFailed),
    OfStore(Text::ModifyFailed),
    OfStore(Text::ModifyCommitFailed),
    OfStore(Text::InsertQueryFailed),
    OfStore(Text::InsertFailed),
    OfStore(Text::InsertCommitFailed),
    OfStore(Text::DeleteFailed),
    OfStore(Text::CommitFailed),
    {.text = Text::CommitUnconfirmed, .title = Text::StoreFailureTitle},
    {.text = Text::HistoryTitle, .title = Text::StoreFailureTitle},
    {.text = Text::HistorySkipUndo,
     .title = Text::HistorySkipTitle,
     .buttons = Buttons::YesNo,
     .defaultAnswer = Answer::No,
     .action = Text::ActionSkipUndo},
    {.text = Text::HistorySkipRedo,
     .title = Text::HistorySkipTitle,
     .buttons = Buttons::YesNo,
     .defaultAnswer = Answer::No,
     .action = Text::ActionSkipRedo},

    {.text = Text::GuideAskEnd,
     .title = Text::GuideTitle,
     .icon = BoxIcon::Question,
     .buttons = Buttons::YesNoCancel,
     .defaultAnswer = Answer::Cancel,
     .action = Text::GuideStoreAction},
    {.text = Text::GuideNotAll, .title = Text::GuideTitle},

    OfFile(Text::ImportCantOpen),
    OfFile(Text::ImportItemsCantOpen),
    OfFile(Text::ImportReadFailed),
    OfFile(Text::ExportCantCreate),
    OfFile(Text::ExportWriteFailed),
    {.text = Text::LineRefused,
     .title = Text::LineRefusedTitle,
     .buttons = Buttons::AbortRetryIgnore,
     .defaultAnswer = Answer::Abort},
    {.text = Text::ItemLineRefused, .title = Text::ItemLineRefusedTitle},
    {.text = Text::LineUndecodable, .title = Text::LineRefusedTitle},
    {.text = Text::ImportFileChanged, .title = Text::LineRefusedTitle},
    {.text = Text::ImportCancelled, .title = Text::LineRefusedTitle},
    {.text = Text::ImportDone, .title = Text::ExchangeTitle, .icon = BoxIcon::Information},
    {.text = Text::ImportItemsDone, .title = Text::ExchangeTitle, .icon = BoxIcon::Information},
    {.text = Text::ExportItemsDone, .title = Text::ExchangeTitle, .icon = BoxIcon::Information},
    {.text = Text::ExportNothingSelected, .title = Text::ExportTitle},
    {.text = Text::ExportRecordGone, .title = Text::ExportTitle},
    {.text = Text::ExportCharsReplaced, .title = Text::ExportTitle},
    {.text = Text::ExportNotDeleted, .title = Text::ExportTitle},
    {.text = Text::ExportNotReadBack, .title = Text::ExportTitle},
    {.text = Text::ExportNotDeletedUnread, .title = Text::ExportTitle},
    {.text = Text::ExportCancelled, .title = Text::ExportTitle},
    OfFile(Text::ExportOwnFile),
    {.text = Text::DelimitersBothEmpty, .title = Text::DelimitersTitle},
    {.text = Text::DelimiterNoLineEnd, .title = Text::DelimitersTitle},
    {.text = Text::DelimiterTooWide, .title = Text::DelimitersTitle},
    {.text = Text::EncodingUnknown, .title = Text::DelimitersTitle},

    {.text = Text::RegionalNotStarted, .title = Text::RegionalTitle},
    {.text = Text::WindowNotAlone, .title = Text::ProgramTitle},
    {.text = Text::OtherWindowIsMute, .title = Text::ProgramTitle},
    {.text = Text::AskTrueTime,
     .title = Text::AskTrueTimeTitle,
     .icon = BoxIcon::Question,
     .buttons = Buttons::YesNoCancel,
     .defaultAnswer = Answer::Cancel,
     .action = Text::TakeTrueTime},
    {.text = Text::BaseKeyFailed, .title = Text::WriteSettingTitle},
    {.text = Text::ListColumnsBlobFailed, .title = Text::WriteSettingTitle},
    {.text = Text::TreeColumnsBlobFailed, .title = Text::WriteSettingTitle},
    {.text = Text::TreeColumnsReadFailed, .title = Text::ColumnsTitle},
    {.text = Text::TreeColumnsBlobBad, .title = Text::ColumnsTitle},
    {.text = Text::ValueRefusedEmpty, .title = Text::WriteSettingTitle},
    {.text = Text::ValueRefusedLarge, .title = Text::WriteSettingTitle},
    {.text = Text::ValueWriteFailed, .title = Text::WriteSettingTitle},
    {.text = Text::ValueSizeUnknown, .title = Text::ReadWriteTitle},
    {.text = Text::ValueEmpty, .title = Text::ReadWriteTitle},
    {.text = Text::ValueReadFailed, .title = Text::WriteSettingTitle},

    YesOrNo(Text::AskAddItem, Text::AskAddItemTitle, Text::ActionAddItem, BoxIcon::Question),
    YesOrNo(Text::AskDeleteItem, Text::AskAddItemTitle, Text::ActionDeleteItem),
    YesOrNo(Text::AskDeleteItems, Text::AskAddItemTitle, Text::ActionDeleteItem),
    YesOrNo(Text::AskDeleteAllItems, Text::AskAddItemTitle, Text::ActionDeleteAllItems),
    YesOrNo(Text::AskMergeItems, Text::MergeTitle, Text::ActionMerge),
    {.text = Text::ItemListsNotShown, .title = Text::ReadWriteTitle},
    {.text = Text::ItemListUnknown, .title = Text::ListsTitle},
    {.text = Text::NoItemTyped, .title = Text::ItemChoiceTitle},
    {.text = Text::NoItemToDelete, .title = Text::ItemChoiceTitle},
    {.text = Text::NoItemToRename, .title = Text::ItemChoiceTitle},
    {.text = Text::ItemStaysAsItWas, .title = Text::RenameFailedTitle},
    {.text = Text::ItemsNotDeleted, .title = Text::ListsTitle},
    {.text = Text::ItemsNotMerged, .title = Text::ListsTitle},
    YesOrNo(Text::AskResetTree, Text::AskResetTreeTitle),
    YesOrNo(Text::AskSaveDeletedAsNew, Text::ChangedElsewhereTitle, Text::SaveAsNew),
    {.text = Text::AskChangedOnBothSides,
     .title = Text::ChangedElsewhereTitle,
     .icon = BoxIcon::Warning,
     .buttons = Buttons::YesNoCancel,
     .defaultAnswer = Answer::Cancel,
     .action = Text::SaveEntered},
    {.text = Text::ItemWithoutList, .title = Text::ListsTitle},
    {.text = Text::StoredItemWithoutList, .title = Text::ListsTitle},
    {.text = Text::ItemNotRenamed, .title = Text::ListsTitle},
    {.text = Text::ItemNotDeleted, .title = Text::ListsTitle},
    {.text = Text::DependenciesNotSaved, .title = Text::ListsTitle},
    {.text = Text::DependenciesNotUpdated, .title = Text::ListsTitle},
    YesOrNo(Text::AskReplaceInRecords, Text::AskReplaceTitle, Text::ActionReplaceInRecords,
            BoxIcon::Question),
    {.text = Text::RecordsReplaced, .title = Text::ReplacedTitle, .icon = BoxIcon::Information},
    {.text = Text::RecordsNotReplaced, .title = Text::ReplacedTitle},
    YesOrNo(Text::DepAskDelete, Text::AskDeleteTitle, Text::AskDeleteTitle),
    YesOrNo(Text::DepAskDeleteSeveral, Text::AskDeleteTitle, Text::AskDeleteTitle),
    YesOrNo(Text::DepAskDiscard, Text::DepTitleTime, Text::DepDiscard),
    YesOrNo(Text::DepAskDiscard, Text::DepTitleExpenses, Text::DepDiscard),
    {.text = Text::DepListsNotRead, .title = Text::ListsTitle},
    {.text = Text::DepListsNotRead, .title = Text::DepTitleTime},

    {.text = Text::HomeIsNoFolder, .title = Text::HomeTitle},
    {.text = Text::HomeCantBeMade, .title = Text::HomeTitle},
    {.text = Text::NotInstalledHere, .title = Text::ProgramTitle},
    {.text = Text::SettingsInMemory, .title = Text::SettingsTitle},
    {.text = Text::SettingsKeptAside, .title = Text::SettingsTitle},
    {.text = Text::SettingsMissing, .title = Text::SettingsTitle},
    {.text = Text::StoreCantOpen, .title = Text::StoreProblemTitle},
    {.text = Text::RecordNotAsWritten, .title = Text::StoreFailureTitle},
    {.text = Text::SettingsValuesDamaged, .title = Text::SettingsTitle},
    YesOrNo(Text::AskSalvage, Text::StoreProblemTitle, Text::AskSalvageYes),
    YesOrNo(Text::AskUseSalvaged, Text::StoreProblemTitle, Text::AskUseSalvagedYes),
    YesOrNo(Text::AskPutStoreAside, Text::StoreProblemTitle, Text::AskPutStoreAsideYes),
    {.text = Text::SalvageFailed, .title = Text::StoreProblemTitle},
    {.text = Text::StorePutAsideFailed, .title = Text::StoreProblemTitle},
    {.text = Text::DamagedStoreStays, .title = Text::StoreProblemTitle},
    YesOrNo(Text::StoreMissing, Text::StoreProblemTitle, Text::StartWithoutRecords),
    {.text = Text::StartCheckFound, .title = Text::ProgramTitle},

    YesOrNo(Text::AskDeleteRecords, Text::AskDeleteTitle, Text::AskDeleteTitle),
    YesOrNo(Text::AskCopyRecords, Text::AskCopyTitle, Text::AskCopyTitle),
    YesOrNo(Text::AskMarkRecords, Text::AskMarkTitle, Text::AskMarkTitle),
    Leaving(Text::AskLeaveNew, Text::LeaveKeep),
    Leaving(Text::AskLeaveTimer, Text::LeaveKeep),
    Leaving(Text::AskLeaveChanged, Text::LeaveSave),
    Leaving(Text::AskLeaveStopped, Text::LeaveSave),
    Leaving(Text::AskLeaveDefault, Text::LeaveSave),
    {.text = Text::SelectOneRecord, .title = Text::EditTitle, .icon = BoxIcon::Information},
    {.text = Text::SelectTreeNode, .title = Text::DataTreeTitle, .icon = BoxIcon::Information},
    {.text = Text::OptionsNotSaved, .title = Text::OptionsTitle},

    YesOrNo(Text::PausedAtExitOne, Text::PausedAtExitTitle, Text::PausedAtExitGoOn, BoxIcon::Question),
    YesOrNo(Text::PausedAtExitMany, Text::PausedAtExitTitle, Text::PausedAtExitGoOn, BoxIcon::Question),
    {.text = Text::TickFailed, .title = Text::TickFailedTitle},
    {.text = Text::TimersNotSaved, .title = Text::TickFailedTitle},
    {.text = Text::AddedWithoutTimer, .title = Text::TickFailedTitle},
    {.text = Text::TimerWithoutRecord, .title = Text::TickFailedTitle},
    {.text = Text::TimersLost, .title = Text::TickFailedTitle},
    {.text = Text::TimesDrivenByTimer, .title = Text::TimesDrivenByTimerTitle, .icon = BoxIcon::Information},
    {.text = Text::ClockTimeRefused, .title = Text::DateControlTitle},
    {.text = Text::ClockTimeUnreadable, .title = Text::DateControlTitle},
    {.text = Text::DateMissing, .title = Text::CheckEntryTitle},
    {.text = Text::DateUnreadable, .title = Text::CheckEntryTitle},
    {.text = Text::DateUnreadable, .title = Text::FilterTitleTime},
    {.text = Text::DateUnreadable, .title = Text::FilterTitleExpenses},
    {.text = Text::TimeUnreadable, .title = Text::CheckEntryTitle},
    {.text = Text::SpanUnreadable, .title = Text::CheckEntryTitle},
    {.text = Text::NumberRefused, .title = Text::CheckEntryTitle},
    YesOrNo(Text::AskNumberKept, Text::CheckEntryTitle, Text::DialogSave),
    {.text = Text::AskTakeUpDraft,
     .title = Text::AskTakeUpDraftTitle,
     .icon = BoxIcon::Question,
     .buttons = Buttons::YesNo,
     .defaultAnswer = Answer::Yes,
     .action = Text::TakeUpDraft},

    NameAgain(Text::AskNameAgain, Text::DefaultsName),
    NameAgain(Text::AskNameAgain, Text::RenameDefaultTitle),
    NameAgain(Text::AskOtherName, Text::RenameDefaultTitle),
    {.text = Text::AskReplaceDefault,
     .title = Text::NewDefaultTitle,
     .icon = BoxIcon::Question,
     .buttons = Buttons::YesNoCancel,
     .defaultAnswer = Answer::No},
    YesOrNo(Text::AskDeleteDefault, Text::DeleteDefaultTitle, Text::AskDeleteTitle, BoxIcon::Question),
    YesOrNo(Text::AskDeleteDefault, Text::NewDefaultTitle, Text::AskDeleteTitle, BoxIcon::Question),
    {.text = Text::EditRefused, .title = Text::EditDefaultTitle},
    {.text = Text::DeleteRefused, .title = Text::DeleteDefaultTitle},
    {.text = Text::DeleteRefused, .title = Text::NewDefaultTitle},
    {.text = Text::RenameRefused, .title = Text::RenameDefaultTitle},
    {.text = Text::DefaultDamaged, .title = Text::EditDefaultTitle},
    {.text = Text::DefaultDamaged, .title = Text::DefaultsTitleTime},
    {.text = Text::DefaultDamaged, .title = Text::DefaultsTitleExpenses},

    YesOrNo(Text::AskBackupDamaged, Text::BackupDoneTitle, Text::AskBackupDamagedYes),
    YesOrNo(Text::AskBackupEmpty, Text::BackupDoneTitle, Text::AskBackupEmptyYes),
    {.text = Text::BackupDone, .title = Text::BackupDoneTitle, .icon = BoxIcon::Information},
    {.text = Text::BackupFailed, .title = Text::BackupFailedTitle, .icon = BoxIcon::Stop},
    {.text = Text::BackupOwnFile, .title = Text::BackupFailedTitle},
    {.text = Text::BackupRefused, .title = Text::RestoreFailedTitle},
    YesOrNo(Text::AskRestore, Text::AskRestoreTitle, Text::AskRestoreTitle),
    YesOrNo(Text::AskRestoreSure, Text::AskRestoreSureTitle, Text::AskRestoreSureTitle),
    {.text = Text::RestoreDone, .title = Text::RestoreDoneTitle, .icon = BoxIcon::Information},
    {.text = Text::RestoreFailed, .title = Text::RestoreFailedTitle, .icon = BoxIcon::Stop},
    {.text = Text::AutomaticBackupFailed, .title = Text::BackupPlanTitle},
    {.text = Text::BackupPlanNotKept, .title = Text::BackupPlanTitle},
    {.text = Text::BackupPlanNoFolder, .title = Text::BackupPlanTitle},
    {.text = Text::ReportNothingSelected, .title = Text::ReportMessageTitle},
    {.text = Text::ReportNothingListed, .title = Text::ReportMessageTitle},
    {.text = Text::ReportNothingFound, .title = Text::ReportMessageTitle},
    {.text = Text::ReportLacksGroup, .title = Text::ReportMessageTitle},
    {.text = Text::ReportLacksSum, .title = Text::ReportMessageTitle},

    YesOrNo(Text::AskReplaceQuery, Text::DeleteDefaultTitle, Text::VerbReplace, BoxIcon::Question),
    YesOrNo(Text::AskReplaceQuery, Text::NewDefaultTitle, Text::VerbReplace, BoxIcon::Question),
    YesOrNo(Text::AskReplaceReport, Text::ReplaceReportTitle, Text::VerbReplace, BoxIcon::Question),
    YesOrNo(Text::AskDeleteReport, Text::DeleteReportTitle, Text::AskDeleteTitle, BoxIcon::Question),
    {.text = Text::ReportNameReserved, .title = Text::ReportMessageTitle},
    {.text = Text::ReportNeedsGroup, .title = Text::ReportMessageTitle},
    {.text = Text::ReportNeedsSum, .title = Text::ReportMessageTitle},
    {.text = Text::PeriodEndsSwapped, .title = Text::ReportMessageTitle},
    {.text = Text::DistancesCut, .title = Text::ReportMessageTitle},
    {.text = Text::QueryDateUnread, .title = Text::ReportMessageTitle},
    {.text = Text::QueryDateUnread, .title = Text::FilterTitleTime},
    {.text = Text::QueryDateUnread, .title = Text::FilterTitleExpenses},
    YesOrNo(Text::AskRunReport, Text::ReportMessageTitle, Text::ReportRun, BoxIcon::Question),
    YesOrNo(Text::PageLosesCharacters, Text::ReportSavePageTitle, Text::SheetSave),
    {.text = Text::QueryDamaged, .title = Text::FilterTitleTime},
    {.text = Text::QueryDamaged, .title = Text::FilterTitleExpenses},
    {.text = Text::ReportNotShown, .title = Text::ReportNotShownTitle},

};

}  // namespace

std::span<const BoxRow> BoxTable() {
    return kBoxes;
}

std::span<const BoxRow> BoxesOf(int textId) {
    const auto isOfText = [textId](const BoxRow& row) { return static_cast<int>(row.text) == textId; };
    const auto first = std::ranges::find_if(kBoxes, isOfText);
    const auto last = std::find_if_not(first, std::end(kBoxes), isOfText);
    return {first, last};
}
