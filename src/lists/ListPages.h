#pragma once

#include <QString>
#include <span>

class CPulldownCatalogue;
struct Settings;

/// The eleven pick lists in the order in which the user edits them.
[[nodiscard]] std::span<const int> ListPages();
/// What a list is called there: the user's name of its field, else the default; the list of distances by the
/// unit of distance. Empty for a list that isn't among them.
[[nodiscard]] QString ListPageCaption(const CPulldownCatalogue& catalogue, int list,
                                      const Settings& settings);
