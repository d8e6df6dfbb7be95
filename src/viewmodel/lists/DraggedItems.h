#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QMimeData;

// What goes from one list to the other by drag and drop where dependencies are edited. It names items and
// points to none: a drag may end long after it began.

/// Items that can be put under a node.
struct DraggedCandidates {
    int list;
    QStringList texts;

    [[nodiscard]] static QString Type();
    [[nodiscard]] QMimeData* ToMime() const;
    /// Nothing when the data is something else.
    [[nodiscard]] static std::optional<DraggedCandidates> FromMime(const QMimeData& data);
};

/// A line of the tree: the identities of the items on the way to it.
struct DraggedLine {
    QStringList path;

    [[nodiscard]] static QString Type();
    [[nodiscard]] QMimeData* ToMime() const;
    [[nodiscard]] static std::optional<DraggedLine> FromMime(const QMimeData& data);
};
