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
    m_profile.WriteInt(LoadText(section), LoadText(Text::EntryVisible), isShown ? 1 : 0);
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
    m_profile.WriteInt(LoadText(Text::SectionList), LoadText(Text::EntryListStyle), style);
}

void WindowMemory::PersistView() {
    m_profile.WriteInt(LoadText(Text::SectionPanes), LoadText(Text::EntryView), kListView);
}

QByteArray WindowMemory::Panes() const {
    return m_profile.GetBinary(LoadText(Text::SectionPanes), SizesEntry()).value_or(QByteArray());
}

bool WindowMemory::ArePanesStacked() const {
    return m_profile.GetInt(LoadText(Text::SectionPanes), LoadText(Text::EntryOrientation), 0) != 0;
}

void WindowMemory::PersistPanes(const QByteArray& sizes, bool areStacked) {
    if (sizes != Panes()) m_profile.WriteBinary(LoadText(Text::SectionPanes), SizesEntry(), sizes);
    m_profile.WriteInt(LoadText(Text::SectionPanes), LoadText(Text::EntryOrientation), areStacked ? 1 : 0);
}
