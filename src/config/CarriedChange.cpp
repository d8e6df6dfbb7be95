#include "config/CarriedChange.h"

#include "config/CCfgStore.h"
#include "config/CEntryJournal.h"

CarriedChange::CarriedChange(const CCfgStore& settings) : m_journal(settings.EntryJournal()) {
    if (m_journal) m_journal->SetCarrying(true);
}

CarriedChange::~CarriedChange() {
    if (m_journal) m_journal->SetCarrying(false);
}
