#include "shell/list/GroupHeadLine.h"

#include "shell/list/CRecordDelegate.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

namespace {

constexpr int kMargin = CRecordDelegate::kMargin;
/// Between two texts of a head.
constexpr int kBetween = 16;
/// What the title keeps of the line when the sums are long: this part of it.
constexpr int kTitleShare = 3;

QFont TitleFont(const GroupHeadLine& line) {
    QFont font = line.font;
    font.setBold(true);
    return font;
}

/// A text's width is a fraction more than its whole pixels; in those alone it would be elided.
int WidthOf(const QFont& font, const QString& text) {
    return text.isEmpty() ? 0 : QFontMetrics(font).horizontalAdvance(text) + 2;
}

QRect EndingAt(const QRect& line, int right, int width) {
    return {right - width, line.top(), width, line.height()};
}

/// Below their captions, the left one further left where the other needs its room; false when they have none.
bool PlaceInColumns(const GroupHeadLine& line, GroupHeadPlaces& places) {
    const int hours = WidthOf(line.font, line.head.hours), money = WidthOf(line.font, line.head.money);
    places.hours = EndingAt(line.line, line.hoursRight - kMargin, hours);
    places.money = EndingAt(line.line, line.moneyRight - kMargin, money);
    const bool areHoursFirst = places.hours.right() <= places.money.right();
    QRect& first = areHoursFirst ? places.hours : places.money;
    const QRect& last = areHoursFirst ? places.money : places.hours;
    const bool areBoth = hours > 0 && money > 0;
    if (areBoth && first.right() + kMargin >= last.left()) first.moveRight(last.left() - kBetween);
    const int left = areBoth ? first.left() : hours > 0 ? places.hours.left() : places.money.left();
    const int count = places.count.isEmpty() ? 0 : places.count.width() + kBetween;
    const int title = places.title.left() + WidthOf(TitleFont(line), line.head.title) + kBetween;
    return left >= title + count && last.right() <= line.line.right();
}

void PlaceAtEnd(const GroupHeadLine& line, GroupHeadPlaces& places) {
    const int right = line.line.right() + 1 - kMargin;
    const int room = line.line.width() - line.line.width() / kTitleShare - places.title.left();
    const int money = std::min(WidthOf(line.font, line.head.money), std::max(0, room));
    places.money = EndingAt(line.line, right, money);
    const int hoursRight = money > 0 ? places.money.left() - kBetween : right;
    const int hours = std::min(WidthOf(line.font, line.head.hours), std::max(0, room - money));
    places.hours = EndingAt(line.line, hoursRight, hours);
}

void DrawText(QPainter& painter, const QFont& font, const QRect& place, const QString& text,
              Qt::Alignment alignment) {
    if (text.isEmpty() || place.width() <= 0) return;
    painter.setFont(font);
    painter.drawText(place, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

void DrawArrow(QPainter& painter, const GroupHeadLine& line, const QRect& place) {
    QStyleOption option;
    option.rect = place;
    option.state = QStyle::State_Enabled;
    option.palette.setColor(QPalette::WindowText, line.colours.headText);
    option.palette.setColor(QPalette::ButtonText, line.colours.headText);
    option.palette.setColor(QPalette::Text, line.colours.headText);
    line.style.drawPrimitive(
        line.head.isFolded ? QStyle::PE_IndicatorArrowRight : QStyle::PE_IndicatorArrowDown, &option,
        &painter);
}

}  // namespace

GroupHeadPlaces PlaceGroupHead(const GroupHeadLine& line) {
    GroupHeadPlaces places;
    const QRect& all = line.line;
    constexpr int kArrow = CRecordDelegate::kImage;
    places.arrow = {all.left() + 2, all.center().y() - kArrow / 2 + 1, kArrow, kArrow};
    places.title = all.adjusted(places.arrow.right() + kMargin, 0, 0, 0);
    const bool needsCount = line.head.isFolded || (line.head.hours.isEmpty() && line.head.money.isEmpty());
    places.count.setSize({needsCount ? WidthOf(line.font, line.head.count) : 0, all.height()});
    places.areInColumns = PlaceInColumns(line, places);
    if (!places.areInColumns) PlaceAtEnd(line, places);
    int end = all.right() + 1 - kMargin;
    for (const QRect& sum : {places.hours, places.money})
        if (sum.width() > 0) end = std::min(end, sum.left() - kBetween);
    const int title = WidthOf(TitleFont(line), line.head.title);
    places.title.setWidth(std::clamp(end - places.title.left(), 0, title));
    places.count.moveTopLeft({places.title.right() + kBetween, all.top()});
    places.count.setWidth(std::clamp(end - places.count.left(), 0, places.count.width()));
    return places;
}

void PaintGroupHead(QPainter& painter, const GroupHeadLine& line) {
    const GroupHeadPlaces places = PlaceGroupHead(line);
    painter.fillRect(line.line.adjusted(0, 0, 0, -1), line.colours.head);  // two heads stay two lines
    painter.setPen(line.colours.headText);
    DrawArrow(painter, line, places.arrow);
    DrawText(painter, TitleFont(line), places.title, line.head.title, Qt::AlignLeft);
    DrawText(painter, line.font, places.count, line.head.count, Qt::AlignLeft);
    DrawText(painter, line.font, places.hours, line.head.hours, Qt::AlignRight);
    DrawText(painter, line.font, places.money, line.head.money, Qt::AlignRight);
    if (!line.hasKeyboard) return;
    painter.setPen(QPen(line.colours.highlight, 2));
    painter.drawRect(line.line.adjusted(1, 1, -1, -1));
}
