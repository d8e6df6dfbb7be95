#pragma once

#include "lang/Text.h"
#include "viewmodel/commands/CommandTable.h"

#include <QList>
#include <optional>

class CProfile;

/// In place of a command's number: a dividing line between buttons.
inline constexpr int kDivider = 0;

/// Which buttons a bar has at first, in their order. Commands that this program doesn't know are left out.
[[nodiscard]] QList<int> FactoryButtons(Bar bar);
/// The few buttons that a new window has: all else is in the menus.
[[nodiscard]] QList<int> FewButtons(Bar bar);
/// What a main button says beside its picture; nothing for one that shows its picture alone.
[[nodiscard]] std::optional<Text> WordOnBar(int command);
/// All commands that can have a button on a bar, in the order of the menus: those of period and filter on
/// their bar, all others on that of the records. Filter dialog and search can stand on both.
[[nodiscard]] QList<int> PossibleButtons(Bar bar);

/// The buttons as the user has chosen them, else the factory's. What is no button of the bar is left out.
[[nodiscard]] QList<int> LoadButtons(const CProfile& profile, Bar bar);
/// False when they could not be kept.
bool PersistButtons(CProfile& profile, Bar bar, const QList<int>& buttons);

/// Which buttons a bar has and in which order, chosen in two lists: the available ones, whose first line is a
/// dividing line of which there are as many as are wanted, and those on the bar.
class ButtonChoice {
 public:
    static constexpr int kNone = -1;

    ButtonChoice(Bar bar, QList<int> buttons);
    [[nodiscard]] const QList<int>& Available() const { return m_available; }
    [[nodiscard]] const QList<int>& OnBar() const { return m_onBar; }

    // Each answers the line that is to be selected in the list where it went, kNone for none; a line that
    // doesn't exist moves nothing.
    /// Behind those on the bar.
    int Take(int line);
    /// Back to its place among the available ones; a dividing line just goes.
    int GiveBack(int line);
    int MoveUp(int line) { return Exchange(line, line - 1); }
    int MoveDown(int line) { return Exchange(line, line + 1); }
    /// The factory's buttons.
    void Reset();
    /// The few of a new window.
    void TakeFew();

 private:
    int Exchange(int line, int neighbour);
    void FindAvailable();

    Bar m_bar;
    QList<int> m_onBar;
    QList<int> m_available;
};
