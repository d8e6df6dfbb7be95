#pragma once

#include "viewmodel/work/CRecentWork.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

class CPulldownCatalogue;

/// What the parts of a typed line can be: the works and the items that were used before or stand in the pick
/// lists, and notes.
class CKnownWork {
 public:
    CKnownWork(const CPulldownCatalogue& catalogue, CRecentWork& recent);

    /// The works, the newest first.
    [[nodiscard]] const std::vector<Work>& Works() const { return m_works; }
    [[nodiscard]] const QStringList& Texts(std::size_t item) const { return m_items[item].texts; }
    [[nodiscard]] const QStringList& Notes() const { return m_notes; }
    /// An item as it is written, by what was typed: the very same text, else one that differs in upper and
    /// lower case only. Empty when there is none.
    [[nodiscard]] QString Find(std::size_t item, const QString& typed) const;

 private:
    struct Items {
        QStringList texts;
        QSet<QString> isKnown;
        QHash<QString, QString> byFolded;
    };
    void Add(std::size_t item, const QString& text);

    std::vector<Work> m_works;
    std::array<Items, Work::kItems> m_items;
    QStringList m_notes;
};

/// What a typed line means. A line that names a work that was done before is that work. Otherwise the parts
/// between separators ("·", comma, semicolon, "/", "|") that are an item fill it, the client's first, and the
/// rest is the notes as typed: a new word never becomes an item.
/// "acme · Design, the header": client Acme, activity Design, notes "the header".
[[nodiscard]] Work ReadWorkLine(const QString& line, const CKnownWork& known);

/// What could be typed on.
struct WorkProposal {
    QString line;
    bool isWhole = false;  ///< a work that was done before: nothing need be added
};
/// What has all words of the line: works, then items and notes for its last part. At most twelve, the works
/// before all others.
[[nodiscard]] std::vector<WorkProposal> ProposeWork(const QString& line, const CKnownWork& known);
