#pragma once

#include "app/RecordMode.h"

#include <QString>
#include <QStringList>
#include <span>

class CPulldownCatalogue;
struct Settings;

/// The lists whose items hang under one another, from the first depth down: five in each mode.
[[nodiscard]] std::span<const int> DependencyChain(RecordMode mode);
/// The depth of a list in the chain, from 1; 0 for a list outside it.
[[nodiscard]] int ChainDepth(RecordMode mode, int list);
/// The list that hangs under one at this depth (0: the root); -1 below the last.
[[nodiscard]] int NextList(RecordMode mode, int depth);
/// What a list is called where dependencies are edited: the user's name of its heading, else the default; the
/// list of distances by the unit of distance. Empty for a list outside the chains.
[[nodiscard]] QString ListHeading(const CPulldownCatalogue& catalogue, int list, const Settings& settings);

/// The heading of a list without a name of the user; empty for a number that heads none of these lists.
[[nodiscard]] QString DefaultHeading(int field);

/// What a pulldown offers. path: what the pulldowns above it in the chain hold, from the first down.
/// With useDependencies and a list of the chain: the items that hang under that path, none when a text of it
/// is empty or isn't there. Otherwise all items of the list. Numbers of a path count as their items show
/// them: 0.50 leads where 0.5 leads.
[[nodiscard]] QStringList PulldownTexts(const CPulldownCatalogue& catalogue, RecordMode mode, int list,
                                        const QStringList& path, const Settings& settings);
