#include "viewmodel/work/WorkLine.h"

#include "app/CPulldownCatalogue.h"
#include "fields/WordMatcher.h"
#include "lang/LoadText.h"

#include <algorithm>

namespace {

constexpr QStringView kSeparators = u"·,;/|";
/// What stands behind so many separators is one part.
constexpr std::size_t kMostParts = 32;
constexpr std::size_t kMostWorks = 6;
constexpr std::size_t kMostOfEach = 4;
constexpr std::size_t kMostProposals = 12;

bool IsSeparator(QChar c) {
    return kSeparators.contains(c);
}

/// A stretch of the line.
struct Part {
    qsizetype begin = 0;
    qsizetype end = 0;
};

std::vector<Part> PartsOf(const QString& line) {
    std::vector<Part> parts{{}};
    for (qsizetype i = 0; i < line.size(); ++i) {
        parts.back().end = i;
        if (IsSeparator(line[i]) && parts.size() < kMostParts) parts.push_back({i + 1, i + 1});
    }
    parts.back().end = line.size();
    return parts;
}

/// Reads parts from the first to the last, each time as many as make an item.
class CLineReader {
 public:
    CLineReader(const QString& line, const CKnownWork& known)
        : m_line(line), m_known(known), m_parts(PartsOf(line)) {}

    [[nodiscard]] Work Read() {
        for (std::size_t first = 0; first < m_parts.size();)
            if (const std::size_t taken = TakeItem(first); taken > 0) {
                EndNotes(first);
                first += taken;
                m_notesBegin = first;
            } else {
                ++first;
            }
        EndNotes(m_parts.size());
        m_work.notes = m_notes.join(LoadText(Text::WorkBetween));
        return m_work;
    }

 private:
    /// Items may hold separators: the longest that can be made wins. How many parts it has; 0 for none.
    [[nodiscard]] std::size_t TakeItem(std::size_t first) {
        for (std::size_t end = m_parts.size(); end > first; --end)
            if (FillItem(Between(first, end))) return end - first;
        return 0;
    }
    [[nodiscard]] bool FillItem(const QString& typed) {
        if (typed.isEmpty()) return false;
        for (std::size_t item = 0; item < Work::kItems; ++item) {
            if (!m_work.items[item].isEmpty()) continue;
            m_work.items[item] = m_known.Find(item, typed);
            if (!m_work.items[item].isEmpty()) return true;
        }
        return false;
    }
    /// What lies before an item and behind the former one goes to the notes as it is typed.
    void EndNotes(std::size_t end) {
        if (m_notesBegin >= end) return;
        const QString words = Between(m_notesBegin, end);
        const bool saysSomething =
            std::ranges::any_of(words, [](QChar c) { return !IsSeparator(c) && !c.isSpace(); });
        if (saysSomething) m_notes << words;
    }
    [[nodiscard]] QString Between(std::size_t first, std::size_t end) const {
        const qsizetype begin = m_parts[first].begin;
        return m_line.mid(begin, m_parts[end - 1].end - begin).trimmed();
    }

    const QString& m_line;
    const CKnownWork& m_known;
    std::vector<Part> m_parts;
    std::size_t m_notesBegin = 0;
    QStringList m_notes;
    Work m_work;
};

/// Proposals for the last part of a line.
class CProposer {
 public:
    CProposer(const QString& line, const CKnownWork& known)
        : m_line(line),
          m_known(known),
          m_before(line.left(PartsOf(line).back().begin)),
          m_last(line.mid(m_before.size())) {
        if (!m_before.isEmpty()) m_before = m_before.trimmed() + u' ';
    }

    [[nodiscard]] std::vector<WorkProposal> Propose() {
        ProposeWorks();
        if (!m_last.IsEmpty()) {
            for (std::size_t item = 0; item < Work::kItems; ++item) ProposeFrom(m_known.Texts(item));
            ProposeFrom(m_known.Notes());
        }
        return std::move(m_proposals);
    }

 private:
    void ProposeWorks() {
        QString words = m_line;
        std::ranges::replace_if(words, IsSeparator, u' ');
        const WordMatcher matcher(words);
        if (matcher.IsEmpty()) return;
        std::size_t count = 0;
        for (const Work& work : m_known.Works()) {
            if (count == kMostWorks) return;
            const QString text = WorkWords(work);
            if (matcher.HasAll(text)) count += Add(text, true) ? 1 : 0;
        }
    }
    void ProposeFrom(const QStringList& texts) {
        std::size_t count = 0;
        for (const QString& text : texts) {
            if (count == kMostOfEach) return;
            if (m_last.HasAll(text)) count += Add(m_before + text, false) ? 1 : 0;
        }
    }
    bool Add(const QString& line, bool isWhole) {
        const bool isThere =
            line == m_line || std::ranges::find(m_proposals, line, &WorkProposal::line) != m_proposals.end();
        if (isThere || m_proposals.size() == kMostProposals) return false;
        m_proposals.push_back({line, isWhole});
        return true;
    }

    const QString& m_line;
    const CKnownWork& m_known;
    QString m_before;  ///< the parts before the last, with what separates it
    WordMatcher m_last;
    std::vector<WorkProposal> m_proposals;
};

}  // namespace

CKnownWork::CKnownWork(const CPulldownCatalogue& catalogue, CRecentWork& recent) : m_notes(recent.Notes()) {
    for (const CRecentWork::Entry& entry : recent.Entries()) {
        m_works.push_back(entry.work);
        for (std::size_t item = 0; item < Work::kItems; ++item) Add(item, entry.work.items[item]);
    }
    for (std::size_t item = 0; item < Work::kItems; ++item)
        for (const QString& text : catalogue.Texts(ListOfWorkItem(item))) Add(item, text);
}

/// Each text as it is written, and the first of those that differ in case only by its folded form.
void CKnownWork::Add(std::size_t item, const QString& text) {
    Items& items = m_items[item];
    if (text.isEmpty() || items.isKnown.contains(text)) return;
    items.isKnown.insert(text);
    items.texts << text;
    const QString folded = text.toCaseFolded();
    if (!items.byFolded.contains(folded)) items.byFolded.insert(folded, text);
}

QString CKnownWork::Find(std::size_t item, const QString& typed) const {
    const Items& items = m_items[item];
    return items.isKnown.contains(typed) ? typed : items.byFolded.value(typed.toCaseFolded());
}

Work ReadWorkLine(const QString& line, const CKnownWork& known) {
    const QString typed = line.trimmed();
    const auto& works = known.Works();
    const auto same = std::ranges::find_if(works, [&](const Work& work) { return WorkWords(work) == typed; });
    return same != works.end() ? *same : CLineReader(typed, known).Read();
}

std::vector<WorkProposal> ProposeWork(const QString& line, const CKnownWork& known) {
    return CProposer(line, known).Propose();
}
