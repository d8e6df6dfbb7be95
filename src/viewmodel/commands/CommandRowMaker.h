#pragma once

#include "viewmodel/commands/CommandRow.h"

/// A row of the table in the making: what all commands have is handed to its constructor, the rest is said
/// by name.
class CommandRowMaker {
 public:
    struct Words {
        Text caption;
        Text tip;
        const char* icon;
        const char* keys = "";
    };
    struct Action {
        Run run;
        int argument = 0;
    };
    constexpr CommandRowMaker(int id, const char* name, const Words& words, Menu menu, const Action& action)
        : m_row{.id = id,
                .name = name,
                .caption = words.caption,
                .tip = words.tip,
                .icon = words.icon,
                .keys = words.keys,
                .menu = menu,
                .run = action.run,
                .argument = action.argument} {}

    constexpr CommandRowMaker& BeginsGroup() {
        m_row.beginsGroup = true;
        return *this;
    }
    constexpr CommandRowMaker& OfView() {
        m_row.receiver = Receiver::View;
        return *this;
    }
    constexpr CommandRowMaker& When(Condition offered) {
        m_row.offered = offered;
        return *this;
    }
    constexpr CommandRowMaker& Toggle(Condition checked) { return Checked(CheckStyle::Toggle, checked); }
    constexpr CommandRowMaker& Radio(Condition checked) { return Checked(CheckStyle::Radio, checked); }
    // NOLINTNEXTLINE(google-explicit-constructor): the table is an array of the finished rows
    constexpr operator CommandRow() const { return m_row; }

 private:
    constexpr CommandRowMaker& Checked(CheckStyle check, Condition checked) {
        m_row.check = check;
        m_row.checked = checked;
        return *this;
    }

    CommandRow m_row;
};
