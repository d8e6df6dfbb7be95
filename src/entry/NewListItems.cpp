#include "entry/NewListItems.h"

#include "config/Settings.h"
#include "entry/CListItemService.h"
#include "entry/TypedFields.h"

void NewListItems::Add(bool Settings::*setting, int list, const QString& text) const {
    if (m_lists && m_settings->*setting) m_lists->Add(list, CutItem(text));
}
