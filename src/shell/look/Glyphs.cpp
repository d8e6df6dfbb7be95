#include "shell/look/Glyphs.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <array>

/// Linked from a static library, the pictures have to be called for.
static void CallForPictures() {
    Q_INIT_RESOURCE(shell);
}

namespace {

constexpr std::array kFiles = {"check-clear",    "check-set",     "record",       "expense",
                               "distance-entry", "timer-running", "timer-paused", "flag-clear",
                               "billable",       "billed",        "reimbursable", "reimbursed",
                               "personal",       "exported",      "notes",        "mode-time",
                               "mode-expense",   "sum-list",      "sum-selection"};

QByteArray Drawing(Glyph glyph, const QColor& ink, const QColor& paper) {
    CallForPictures();
    QFile file(
        QStringLiteral(":/velmarch/%1.svg").arg(QLatin1String(kFiles[static_cast<std::size_t>(glyph)])));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll()
        .replace("currentColor", ink.name().toLatin1())
        .replace("\"paper\"", '"' + paper.name().toLatin1() + '"');
}

}  // namespace

QIcon Glyphs::ProgramIcon() {
    CallForPictures();
    return QIcon(QStringLiteral(":/velmarch/program.svg"));
}

QPixmap Glyphs::Picture(Glyph glyph, int size, qreal devicePixelRatio, const QColor& ink,
                        const QColor& paper) {
    const QString key = QStringLiteral("velmarch/%1/%2/%3/%4/%5")
                            .arg(static_cast<int>(glyph))
                            .arg(size)
                            .arg(devicePixelRatio)
                            .arg(ink.rgba())
                            .arg(paper.rgba());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = QPixmap(QSizeF(size * devicePixelRatio, size * devicePixelRatio).toSize());
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QSvgRenderer renderer(Drawing(glyph, ink, paper));
    renderer.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
}

void Glyphs::Paint(QPainter& painter, const QRect& place, Glyph glyph, const QColor& ink,
                   const QColor& paper) {
    const int size = std::min(place.width(), place.height());
    QRect square(0, 0, size, size);
    square.moveCenter(place.center());
    painter.drawPixmap(square.topLeft(),
                       Picture(glyph, size, painter.device()->devicePixelRatioF(), ink, paper));
}
