#include "entry/CCatalogueItems.h"

#include "app/CPulldownCatalogue.h"

bool CCatalogueItems::Add(int list, const QString& text) {
    return m_catalogue.CheckNewItem(list, text) != NewItem::Refused && m_catalogue.AddItem(list, text, false);
}
