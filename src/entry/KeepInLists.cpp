#include "entry/KeepInLists.h"

#include "config/Settings.h"
#include "entry/CItemKeeper.h"
#include "entry/TypedFields.h"

void KeepInLists::Keep(bool Settings::*setting, int list, const QString& text) const {
    if (m_lists && m_settings->*setting) m_lists->Keep(list, CutItem(text));
}
