#pragma once

#include <QString>
#include <cstdint>
#include <vector>

/// How a text is looked for.
struct FindWay {
    bool backwards = false;
    bool matchCase = false;
};

/// What a search came to.
struct FoundText {
    int number = 0;  ///< of the place that is selected, from 1; 0: nothing was found
    int count = 0;
};

/// Looks for a text in a long one: all its places at once, then one after the other.
class TextSearch {
 public:
    /// The place to go to from a selection, from the end to the beginning and the other way about at the
    /// page's ends. A text that is looked for anew may be found at the selection's beginning.
    FoundText Next(const QString& in, const QString& text, const FindWay& way, std::uint32_t selectionBegin,
                   std::uint32_t selectionEnd);
    void Clear();

    /// Where the places begin, ascending.
    [[nodiscard]] const std::vector<std::uint32_t>& Places() const { return m_places; }
    [[nodiscard]] std::uint32_t Length() const { return static_cast<std::uint32_t>(m_text.size()); }

 private:
    void FindAll(const QString& in);
    [[nodiscard]] std::size_t IndexFrom(std::uint32_t position, bool backwards) const;

    QString m_text;
    bool m_matchCase = false;
    bool m_hasLooked = false;
    std::vector<std::uint32_t> m_places;
};
