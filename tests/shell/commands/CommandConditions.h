#pragma once

#include "viewmodel/commands/CommandTable.h"

#include <QString>
#include <QStringList>

/// When a command is offered, in words, as found by asking it in one situation after the other: beginning
/// with a window that has everything, one thing is taken away at a time.
class CommandConditions {
 public:
    explicit CommandConditions(const CommandRow& row) : m_row(row) {}

    /// "always", or what there must be; empty when there is no situation in which it is offered.
    [[nodiscard]] QString InWords() {
        for (const bool listInFront : {true, false})
            for (const bool timeMode : {true, false})
                if (IsOffered(m_row, Everything(listInFront, timeMode))) Note(listInFront, timeMode);
        if (!m_isOffered) return {};
        Words words;
        AddFrontAndMode(words);
        AddSelection(words);
        for (const Thing& thing : kThings) {
            CommandState state = m_base;
            state.*thing.flag = false;
            if (!IsOffered(m_row, state)) words << QString::fromLatin1(thing.words);
        }
        AddLayout(words);
        AddHistory(words);
        return words.isEmpty() ? QStringLiteral("always") : words.join(QStringLiteral(", "));
    }

 private:
    using Words = QStringList;
    static constexpr int kColumns = 3;
    struct Thing {
        bool CommandState::*flag;
        const char* words;
    };
    static constexpr Thing kThings[] = {
        {&CommandState::isFinding, "search in the list shown"},
        {&CommandState::hasGroups, "list with groups"},
        {&CommandState::treeShown, "data tree shown"},
        {&CommandState::treeHasNode, "entry of the data tree selected"},
        {&CommandState::treeCanExpand, "selected entry with entries below it"},
        {&CommandState::anyTimer, "a timer"},
        {&CommandState::anyRunning, "a running timer"},
        {&CommandState::selectedHasTimer, "one of them with a timer"},
        {&CommandState::selectedRuns, "one of them with a running timer"},
        {&CommandState::canStep, "period that can step"},
        {&CommandState::hasRegionalSettings, "desktop with a program for them"},
        {&CommandState::canRunAgain, "report of the present kind of records"},
        {&CommandState::reportHasSelection, "text of the report selected"},
        {&CommandState::reportHasChart, "report that can have a chart"},
        {&CommandState::chartShown, "chart shown"},
        {&CommandState::chartHasNextSum, "chart with a further sum"},
    };

    static CommandState Everything(bool listInFront, bool timeMode) {
        CommandState state;
        state.timeMode = timeMode;
        state.listIsActive = listInFront;
        state.reportIsActive = !listInFront;
        state.reportHasTable = true;
        state.selected = listInFront ? 1 : 0;
        state.listed = listInFront ? 3 : 0;
        for (const Thing& thing : kThings) state.*thing.flag = true;
        state.listLayout = kColumns;
        state.undo = state.redo = QStringLiteral("a change");
        return state;
    }
    void Note(bool listInFront, bool timeMode) {
        if (!m_isOffered) m_base = Everything(listInFront, timeMode);
        m_isOffered = true;
        (listInFront ? m_withList : m_withReport) = true;
        (timeMode ? m_inTimeMode : m_inExpenseMode) = true;
    }
    void AddFrontAndMode(Words& words) const {
        if (!m_withList) words << QStringLiteral("report in front");
        if (!m_withReport && !NeedsSelection()) words << QStringLiteral("record list in front");
        if (!m_inExpenseMode) words << QStringLiteral("time records");
        if (!m_inTimeMode) words << QStringLiteral("expenses");
    }
    [[nodiscard]] bool IsOfferedWith(int selected) const {
        CommandState state = m_base;
        state.selected = selected;
        return IsOffered(m_row, state);
    }
    [[nodiscard]] bool NeedsSelection() const { return m_base.selected == 1 && !IsOfferedWith(0); }
    void AddSelection(Words& words) const {
        if (NeedsSelection())
            words << (IsOfferedWith(2) ? QStringLiteral("records selected")
                                       : QStringLiteral("one record selected"));
        CommandState empty = m_base;
        empty.listed = 0;
        if (!IsOffered(m_row, empty)) words << QStringLiteral("records listed");
    }

    void AddLayout(Words& words) const {
        CommandState inLines = m_base;
        inLines.listLayout = kColumns + 1;
        if (!IsOffered(m_row, inLines)) words << QStringLiteral("layout of columns");
    }
    void AddHistory(Words& words) const {
        CommandState nothingDone = m_base, nothingUndone = m_base;
        nothingDone.undo.clear();
        nothingUndone.redo.clear();
        if (!IsOffered(m_row, nothingDone)) words << QStringLiteral("a change to take back");
        if (!IsOffered(m_row, nothingUndone)) words << QStringLiteral("a change that was taken back");
    }

    const CommandRow& m_row;
    CommandState m_base;
    bool m_isOffered = false;
    bool m_withList = false, m_withReport = false;
    bool m_inTimeMode = false, m_inExpenseMode = false;
};
