#pragma once

#include "viewmodel/commands/CommandTable.h"

#include <span>

/// A menu of the menu bar or a submenu.
struct MenuRow {
    Menu menu;
    Text caption;
    const char* icon = "";     ///< of a submenu
    Menu parent;               ///< the menu itself for one of the menu bar
    int afterCommand = 0;      ///< the command behind which a submenu stands
    bool beginsGroup = false;  ///< a separator stands before the submenu
};

/// The menu bar, then the submenus.
[[nodiscard]] std::span<const MenuRow> MenuTable();
/// The submenu that opens under a command's button; the menu Help for a button without one.
[[nodiscard]] Menu MenuUnderButton(int command);
