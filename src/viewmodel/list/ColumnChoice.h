#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

/// Columns of a half by their captions, as they are handed in and given back.
struct ChosenColumns {
    QStringList hidden;
    QStringList shown;                 ///< in their order
    std::vector<std::int32_t> breaks;  ///< how many shown columns stand before each line break
    bool operator==(const ChosenColumns&) const = default;
};

/// Which columns are shown, in which order and where a new line begins, chosen in two lists: the available
/// columns and the shown ones. A line break is a line of its own, a separator, of which the first line of the
/// available ones gives as many as are wanted.
class ColumnChoice {
 public:
    static constexpr int kNone = -1;

    /// hasSeparators: the list has a layout of several lines. Otherwise the breaks stay as they are.
    void Open(const ChosenColumns& columns, bool hasSeparators);
    [[nodiscard]] QStringList Available() const { return Captions(m_available); }
    [[nodiscard]] QStringList Shown() const { return Captions(m_shown); }

    // Each answers the line that is to be selected in the list where it went, kNone for none; a line that
    // doesn't exist moves nothing.
    /// Behind the shown ones. The separator stays among the available ones.
    int Take(int line);
    /// Behind the available ones; a separator just goes.
    int GiveBack(int line);
    int MoveUp(int line) { return Exchange(line, line - 1); }
    int MoveDown(int line) { return Exchange(line, line + 1); }

    [[nodiscard]] ChosenColumns Close() const;

 private:
    /// A column may be called like the separator, so the words don't tell.
    struct Line {
        QString caption;
        bool isSeparator = false;
    };
    using Lines = std::vector<Line>;

    [[nodiscard]] static QStringList Captions(const Lines& lines);
    [[nodiscard]] static Line Separator();
    [[nodiscard]] static bool Has(const Lines& lines, int line);
    int Exchange(int line, int neighbour);

    Lines m_available;
    Lines m_shown;
    std::vector<std::int32_t> m_breaks;  ///< as they were
    bool m_hasSeparators = false;
};
