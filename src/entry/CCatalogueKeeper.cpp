#include "entry/CCatalogueKeeper.h"

#include "app/CPulldownCatalogue.h"

bool CCatalogueKeeper::Keep(int list, const QString& text) {
    return m_catalogue.CheckNewItem(list, text) != NewItem::Refused && m_catalogue.AddItem(list, text, false);
}
