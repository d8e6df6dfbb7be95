#pragma once

#include <QString>
#include <QStringList>

/// Pages as reports write them.
namespace PageSamples {

inline QString Font(const QString& text, const QString& more = {}) {
    return QStringLiteral("<font face=\"Tahoma, Verdana, Arial\" color=\"#000\" size=\"2\">") + more + text +
           QStringLiteral("</font>");
}
inline QString Strong(const QString& text) {
    return Font(QStringLiteral("<strong>") + text + QStringLiteral("</strong>"));
}
inline QString Cell(const QString& content, const QString& align = QStringLiteral("left")) {
    return QStringLiteral("<td align=\"") + align + QStringLiteral("\" bgcolor=\"#F7F7F7\">") + content +
           QStringLiteral("</td>");
}
inline QString Row(const QStringList& cells) {
    return QStringLiteral("<tr bgcolor=\"#FFFFFF\">") + cells.join(QString()) + QStringLiteral("</tr>\n");
}
inline QString Table(const QStringList& rows, int border = 1, int padding = 3) {
    return QStringLiteral(
               "<table width=\"100%\" cellSpacing=0 cellPadding=%1 border=%2 bgcolor=\"#FFFFFF\" "
               "bordercolor=\"#CCCCCC\">")
               .arg(padding)
               .arg(border) +
           rows.join(QString()) + QStringLiteral("</table>\n");
}
inline QString Page(const QString& body) {
    return QStringLiteral(
               "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title></title>\n</head>\n"
               "<body style=\"margin: 5px 5px 5px 5px; padding: 0px 0px\">\n") +
           body + QStringLiteral("</body>\n</html>\n");
}
/// A table with a head and rows of so many cells, "r0c0" and on.
inline QString Listing(int rows, int columns) {
    QStringList lines, cells;
    for (int column = 0; column < columns; ++column)
        cells.append(Cell(Strong(QStringLiteral("Head%1").arg(column))));
    lines.append(Row(cells));
    for (int row = 0; row < rows; ++row) {
        cells.clear();
        for (int column = 0; column < columns; ++column)
            cells.append(Cell(Font(QStringLiteral("r%1c%2").arg(row).arg(column))));
        lines.append(Row(cells));
    }
    return Table(lines);
}

}  // namespace PageSamples
