#pragma once

#include "entry/CListItemService.h"

class CPulldownCatalogue;

/// Puts new texts into the lists of the catalogue.
class CCatalogueItems final : public CListItemService {
 public:
    explicit CCatalogueItems(CPulldownCatalogue& catalogue) : m_catalogue(catalogue) {}
    bool Add(int list, const QString& text) override;

 private:
    CPulldownCatalogue& m_catalogue;
};
