#include "cli/arguments/ColumnArguments.h"

#include "cli/arguments/CArguments.h"
#include "cli/arguments/EnteredValues.h"
#include "config/CColSet.h"
#include "config/ColumnCommand.h"
#include "lang/FormatText.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The columns of one half that can be chosen.
class CChoice {
 public:
    CChoice(const CColSet& columns, ColumnHalf half) : m_columns(columns) {
        for (int column = FirstColumn(half); column < EndOfColumns(half); ++column)
            if (!columns.IsExcluded(column)) m_choice.push_back(column);
    }

    /// A column by its number or caption; capitals and small letters count only where two captions differ in
    /// nothing else. The sentence that refuses it, empty when it was found.
    QString Find(const QString& typed, int& column) const {
        if (const auto number = EnteredValues::ReadCount(typed))
            if (std::ranges::find(m_choice, *number) != m_choice.end()) {
                column = *number;
                return {};
            }
        std::vector<int> found = Called(typed, Qt::CaseSensitive);
        if (found.empty()) found = Called(typed, Qt::CaseInsensitive);
        if (found.empty()) return FormatText<Text::CliNoSuchColumn>(typed, Captions());
        if (found.size() > 1) return FormatText<Text::CliAmbiguousColumn>(typed, Numbers(found));
        column = found.front();
        return {};
    }

    [[nodiscard]] QString Caption(int column) const { return m_columns.EntryAt(column).caption; }

 private:
    [[nodiscard]] std::vector<int> Called(const QString& caption, Qt::CaseSensitivity sensitivity) const {
        std::vector<int> found;
        for (const int column : m_choice)
            if (Caption(column).compare(caption, sensitivity) == 0) found.push_back(column);
        return found;
    }
    [[nodiscard]] QString Captions() const {
        QStringList captions;
        for (const int column : m_choice) captions.append(u"%1 %2"_s.arg(column).arg(Caption(column)));
        return captions.join(u", "_s);
    }
    [[nodiscard]] static QString Numbers(const std::vector<int>& columns) {
        QStringList numbers;
        for (const int column : columns) numbers.append(QString::number(column));
        return numbers.join(u", "_s);
    }

    const CColSet& m_columns;
    std::vector<int> m_choice;
};

QString ReadShown(const QStringList& names, const CChoice& choice, ColumnRequest& request) {
    std::vector<int> shown;
    for (const QString& name : names) {
        int column = 0;
        if (QString problem = choice.Find(name, column); !problem.isEmpty()) return problem;
        if (std::ranges::find(shown, column) != shown.end())
            return FormatText<Text::CliColumnTwice>(choice.Caption(column));
        shown.push_back(column);
    }
    if (!shown.empty()) request.shown = shown;
    return {};
}

/// "Client=80"; a caption may hold an equals sign.
QString ReadWidths(const QStringList& typed, const CChoice& choice, ColumnRequest& request) {
    for (const QString& width : typed) {
        const qsizetype equals = width.lastIndexOf(u'=');
        const auto pixels = EnteredValues::ReadCount(width.mid(equals + 1));
        if (equals < 1 || !pixels || *pixels < 1 || *pixels > kWidestColumn)
            return FormatText<Text::CliNoWidth>(width);
        int column = 0;
        if (QString problem = choice.Find(width.left(equals), column); !problem.isEmpty()) return problem;
        request.widths[column] = *pixels;
    }
    return {};
}

QString ReadBreaks(const std::optional<QString>& typed, ColumnRequest& request) {
    if (!typed) return {};
    std::vector<int> breaks;
    int last = 0;
    if (*typed != u"none")
        for (const QString& place : typed->split(u',')) {
            const auto number = EnteredValues::ReadCount(place.trimmed());
            if (!number || *number <= last) return FormatText<Text::CliNoBreaks>(*typed);
            breaks.push_back(last = *number);
        }
    request.breaks = breaks;
    return {};
}

}  // namespace

QString ReadColumnChange(const CArguments& arguments, const CColSet& columns, ColumnHalf half,
                         ColumnRequest& request) {
    const QStringList names = arguments.Words().mid(1);  // the mode stands first
    if (names.isEmpty() && !arguments.Has("width") && !arguments.Has("breaks"))
        return LoadText(Text::CliNothingToSet);
    const CChoice choice(columns, half);
    QString problem = ReadShown(names, choice, request);
    if (problem.isEmpty()) problem = ReadWidths(arguments.Values("width"), choice, request);
    return problem.isEmpty() ? ReadBreaks(arguments.Value("breaks"), request) : problem;
}
