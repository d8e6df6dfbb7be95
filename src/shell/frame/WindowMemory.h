#pragma once

#include "lang/Text.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QByteArray>

class CProfile;

/// What the window keeps in the profile from one start to the next. What hasn't changed isn't written again.
class WindowMemory {
 public:
    explicit WindowMemory(CProfile& profile) : m_profile(profile) {}

    /// Whether a bar was shown; yes when nothing is known.
    [[nodiscard]] bool IsShown(Text section) const;
    void PersistShown(Text section, bool isShown);
    /// A value of the window's own section; empty when nothing is known.
    [[nodiscard]] QByteArray Binary(Text entry) const;
    void PersistBinary(Text entry, const QByteArray& value);
    /// The sizes of the panes; empty when nothing is known.
    [[nodiscard]] QByteArray Panes() const;
    [[nodiscard]] bool ArePanesStacked() const;
    void PersistPanes(const QByteArray& sizes, bool areStacked);
    /// The layout as the kind of list that draws it: 0 icons, 1 rows, 3 plain list.
    void PersistListStyle(ListLayout layout);
    /// That the list was the view in front: 0.
    void PersistView();

 private:
    void PersistInt(Text section, Text entry, int value);

    CProfile& m_profile;
};
