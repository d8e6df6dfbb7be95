#pragma once

#include "viewmodel/commands/CommandRowMaker.h"
#include "viewmodel/list/ListGroups.h"

/// The commands of the submenus of the menu View: groups of the list, data tree, tool bars.
namespace ViewRows {

using Row = CommandRowMaker;

template <ListGroups Groups>
inline bool GroupsAre(const CommandState& s) {
    return s.listGroups == static_cast<int>(Groups);
}
inline bool HasGroups(const CommandState& s) {
    return s.listIsActive && s.hasGroups;
}
inline bool TreeShown(const CommandState& s) {
    return s.treeShown;
}
inline bool TreeBeside(const CommandState& s) {
    return TreeShown(s) && !s.treeStacked;
}
inline bool TreeAbove(const CommandState& s) {
    return TreeShown(s) && s.treeStacked;
}
inline bool CanExpand(const CommandState& s) {
    return TreeShown(s) && s.treeCanExpand;
}
inline bool WorkBarShown(const CommandState& s) {
    return s.workBarShown;
}
inline bool Bar1Shown(const CommandState& s) {
    return s.bar1Shown;
}
inline bool Bar2Shown(const CommandState& s) {
    return s.bar2Shown;
}
inline bool StatusBarShown(const CommandState& s) {
    return s.statusBarShown;
}

inline constexpr CommandRow kRows[] = {
    Row(Command::kGroupNone, "CmdGroupList", {Text::CmdGroupNone, Text::TipGroupNone, "object-ungroup"},
        Menu::ListGroups, {Run::GroupList, static_cast<int>(ListGroups::None)})
        .OfView()
        .Radio(GroupsAre<ListGroups::None>),
    Row(Command::kGroupDays, "CmdGroupList", {Text::CmdGroupDays, Text::TipGroupDays, "view-calendar-day"},
        Menu::ListGroups, {Run::GroupList, static_cast<int>(ListGroups::Days)})
        .OfView()
        .Radio(GroupsAre<ListGroups::Days>),
    Row(Command::kGroupWeeks, "CmdGroupList",
        {Text::CmdGroupWeeks, Text::TipGroupWeeks, "view-calendar-week"}, Menu::ListGroups,
        {Run::GroupList, static_cast<int>(ListGroups::Weeks)})
        .OfView()
        .Radio(GroupsAre<ListGroups::Weeks>),
    Row(Command::kGroupMonths, "CmdGroupList",
        {Text::CmdGroupMonths, Text::TipGroupMonths, "view-calendar-month"}, Menu::ListGroups,
        {Run::GroupList, static_cast<int>(ListGroups::Months)})
        .OfView()
        .Radio(GroupsAre<ListGroups::Months>),
    Row(Command::kFoldGroups, "CmdFoldGroups", {Text::CmdFoldGroups, Text::TipFoldGroups, "collapse-all"},
        Menu::ListGroups, {Run::FoldGroups})
        .OfView()
        .BeginsGroup()
        .When(HasGroups),
    Row(Command::kToggleTree, "CmdToggleTree", {Text::CmdToggleTree, Text::TipToggleTree, "view-sidetree"},
        Menu::DataTree, {Run::ToggleTree})
        .Toggle(TreeShown),
    Row(Command::kPanesSideBySide, "CmdPanesSideBySide",
        {Text::CmdPanesSideBySide, Text::TipPanesSideBySide, "view-split-left-right"}, Menu::DataTree,
        {Run::StackPanes, 0})
        .BeginsGroup()
        .When(TreeShown)
        .Radio(TreeBeside),
    Row(Command::kPanesStacked, "CmdPanesStacked",
        {Text::CmdPanesStacked, Text::TipPanesStacked, "view-split-top-bottom"}, Menu::DataTree,
        {Run::StackPanes, 1})
        .When(TreeShown)
        .Radio(TreeAbove),
    Row(Command::kTreeExpandAll, "CmdTreeExpandAll",
        {Text::CmdTreeExpandAll, Text::TipTreeExpandAll, "expand-all"}, Menu::DataTree, {Run::ExpandTree})
        .BeginsGroup()
        .When(CanExpand),
    Row(Command::kTreeColumns, "CmdTreeColumns",
        {Text::CmdTreeColumns, Text::TipTreeColumns, "format-list-unordered"}, Menu::DataTree,
        {Run::TreeColumns})
        .BeginsGroup(),
    Row(Command::kToggleWorkBar, "CmdToggleWorkBar",
        {Text::CmdToggleWorkBar, Text::TipToggleWorkBar, "configure-toolbars"}, Menu::Bars,
        {Run::ToggleWorkBar})
        .Toggle(WorkBarShown),
    Row(Command::kToggleBar1, "CmdToggleBar1",
        {Text::CmdToggleBar1, Text::TipToggleBar1, "configure-toolbars"}, Menu::Bars, {Run::ToggleBar1})
        .Toggle(Bar1Shown),
    Row(Command::kToggleBar2, "CmdToggleBar2",
        {Text::CmdToggleBar2, Text::TipToggleBar2, "configure-toolbars"}, Menu::Bars, {Run::ToggleBar2})
        .Toggle(Bar2Shown),
    Row(Command::kToggleStatusBar, "CmdToggleStatusBar",
        {Text::CmdToggleStatusBar, Text::TipToggleStatusBar, "kt-show-statusbar"}, Menu::Bars,
        {Run::ToggleStatusBar})
        .Toggle(StatusBarShown),
    Row(Command::kCustomizeBar1, "CmdCustomizeBar1",
        {Text::CmdCustomizeBar1, Text::TipCustomizeBar1, "configure-toolbars"}, Menu::Bars,
        {Run::CustomizeBar, static_cast<int>(Bar::Records)})
        .BeginsGroup(),
    Row(Command::kCustomizeBar2, "CmdCustomizeBar2",
        {Text::CmdCustomizeBar2, Text::TipCustomizeBar2, "configure-toolbars"}, Menu::Bars,
        {Run::CustomizeBar, static_cast<int>(Bar::Filters)}),
};

}  // namespace ViewRows
