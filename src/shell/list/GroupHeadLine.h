#pragma once

#include "viewmodel/list/CGroupedRows.h"

#include <QFont>
#include <QRect>

class QPainter;
class QStyle;
struct ListColours;

/// What the line of a group's head is drawn from.
struct GroupHeadLine {
    GroupHead head;
    QRect line;
    int hoursRight = 0;  ///< where the columns of hours and of amounts end, the end of the line without one
    int moneyRight = 0;
    QFont font;
    bool hasKeyboard = false;
    const ListColours& colours;
    const QStyle& style;
};

/// Where the texts of a head stand.
struct GroupHeadPlaces {
    QRect arrow;
    QRect title;
    QRect count;  ///< empty where it isn't shown: the records themselves are below
    QRect hours;
    QRect money;
    bool areInColumns = false;  ///< hours and amounts stand below their captions
};

/// Hours and amounts end with their columns as long as both have room there; otherwise they stand side by
/// side at the end of the line. The title takes what they leave.
[[nodiscard]] GroupHeadPlaces PlaceGroupHead(const GroupHeadLine& line);
void PaintGroupHead(QPainter& painter, const GroupHeadLine& line);
