#pragma once

#include <QString>

class CItemKeeper;
struct Settings;

/// Where an entered text is kept for the next time: the setting that says whether, the list, and the text's
/// place in the page.
template <class Page>
struct KeepRow {
    bool Settings::*setting;
    int list;
    QString Page::*text;
};

/// Whether entered texts go into the pick lists, and how.
class KeepInLists {
 public:
    /// Nothing is kept.
    KeepInLists() = default;
    KeepInLists(const Settings& settings, CItemKeeper& lists) : m_settings(&settings), m_lists(&lists) {}

    /// What a column holds of the text goes into the list, if the setting is on and the list takes it.
    template <class Page>
    void Keep(const KeepRow<Page>& row, const Page& page) const {
        Keep(row.setting, row.list, page.*row.text);
    }

 private:
    void Keep(bool Settings::*setting, int list, const QString& text) const;

    const Settings* m_settings = nullptr;
    CItemKeeper* m_lists = nullptr;
};
