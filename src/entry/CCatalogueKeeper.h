#pragma once

#include "entry/CItemKeeper.h"

class CPulldownCatalogue;

/// Keeps texts in the lists of the catalogue.
class CCatalogueKeeper final : public CItemKeeper {
 public:
    explicit CCatalogueKeeper(CPulldownCatalogue& catalogue) : m_catalogue(catalogue) {}
    bool Keep(int list, const QString& text) override;

 private:
    CPulldownCatalogue& m_catalogue;
};
