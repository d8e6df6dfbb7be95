#pragma once

#include <QString>

class CListItemService;
struct Settings;

/// Where an entered text is offered the next time: the setting that says whether, the list, and the text's
/// place in the page.
template <class Page>
struct ListItemRow {
    bool Settings::*setting;
    int list;
    QString Page::*text;
};

/// The texts of a page that go into the pick lists, and whether they do.
class NewListItems {
 public:
    /// None does.
    NewListItems() = default;
    NewListItems(const Settings& settings, CListItemService& lists)
        : m_settings(&settings), m_lists(&lists) {}

    /// What a column holds of the text goes into the list, if the setting is on and the list takes it.
    template <class Page>
    void Add(const ListItemRow<Page>& row, const Page& page) const {
        Add(row.setting, row.list, page.*row.text);
    }

 private:
    void Add(bool Settings::*setting, int list, const QString& text) const;

    const Settings* m_settings = nullptr;
    CListItemService* m_lists = nullptr;
};
