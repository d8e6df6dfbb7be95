#include "config/CCfgValue.h"

void CCfgValue::NoteKnown(bool isStored) {
    m_known = Content();
    m_isStored = isStored;
}

SettingContent CCfgValue::Content() const {
    return std::visit([](auto* setting) { return SettingContent(*setting); }, Location());
}
