#include "shell/frame/WindowMemory.h"

#include "lang/LoadText.h"
#include "platform/settings/CProfile.h"

namespace {
constexpr int kIconStyle = 0;
constexpr int kRowStyle = 1;
constexpr int kListStyle = 3;
constexpr int kListView = 0;

QString SizesEntry() {
    return QStringLiteral("Sizes");
}
}  // namespace

bool WindowMemory::IsShown(Text section) const {
    return m_profile.GetInt(LoadText(section), LoadText(Text::EntryVisible), 1) != 0;
}

void WindowMemory::PersistShown(Text section, bool isShown) {
    PersistInt(section, Text::EntryVisible, isShown ? 1 : 0);
}

void WindowMemory::PersistInt(Text section, Text entry, int value) {
    // No value of the window is below 0.
    if (m_profile.GetInt(LoadText(section), LoadText(entry), -1) != value)
        m_profile.WriteInt(LoadText(section), LoadText(entry), value);
}

QByteArray WindowMemory::Binary(Text entry) const {
    return m_profile.GetBinary(LoadText(Text::SectionWindow), LoadText(entry)).value_or(QByteArray());
}

void WindowMemory::PersistBinary(Text entry, const QByteArray& value) {
    if (!value.isEmpty() && value != Binary(entry))
        m_profile.WriteBinary(LoadText(Text::SectionWindow), LoadText(entry), value);
}

void WindowMemory::PersistListStyle(ListLayout layout) {
    const int style = layout == ListLayout::Icons  ? kIconStyle
                      : layout == ListLayout::List ? kListStyle
                                                   : kRowStyle;
    PersistInt(Text::SectionList, Text::EntryListStyle, style);
}

void WindowMemory::PersistView() {
    PersistInt(Text::SectionPanes, Text::EntryView, kListView);
}

QByteArray WindowMemory::Panes() const {
    return m_profile.GetBinary(LoadText(Text::SectionPanes), SizesEntry()).value_or(QByteArray());
}

bool WindowMemory::ArePanesStacked() const {
    return m_profile.GetInt(LoadText(Text::SectionPanes), LoadText(Text::EntryOrientation), 0) != 0;
}

void WindowMemory::PersistPanes(const QByteArray& sizes, bool areStacked) {
    if (sizes != Panes()) m_profile.WriteBinary(LoadText(Text::SectionPanes), SizesEntry(), sizes);
    PersistInt(Text::SectionPanes, Text::EntryOrientation, areStacked ? 1 : 0);
}
