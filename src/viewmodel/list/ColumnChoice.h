#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

/// A column as it stands in a list. The number says which one it is: two may be called alike.
struct ChosenColumn {
    int column = 0;
    QString caption;
    bool operator==(const ChosenColumn&) const = default;
};

/// Columns of a half, as they are handed in and given back.
struct ChosenColumns {
    std::vector<ChosenColumn> hidden;
    std::vector<ChosenColumn> shown;   ///< in their order
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
    /// A column, or a separator; a column may be called like one, so the words don't say it.
    struct Line {
        ChosenColumn column;
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
