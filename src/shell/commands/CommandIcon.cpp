#include "shell/commands/CommandIcon.h"

#include "fields/Column.h"
#include "shell/look/FlagGlyphs.h"
#include "viewmodel/commands/CommandRow.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <iterator>

namespace {

/// Commands on flags, and the column of the flag.
struct FlagCommand {
    int command;
    int column;
};
constexpr FlagCommand kFlagCommands[] = {
    {Command::kMarkFirst, Column::kBillable},
    {Command::kMarkFirstAndSecond, Column::kBilled},
    {32839, Column::kFlag3},
    {40058, Column::kFlag4},
    {32840, Column::kFlag5},
    {32841, Column::kExported},
    {32832, Column::kBillable},
    {32833, Column::kBilled},
    {32834, Column::kFlag3},
    {32835, Column::kFlag4},
    {32836, Column::kFlag5},
    {32837, Column::kExported},
};

/// Draws a picture in the colours that the desktop has at that moment.
class CGlyphEngine final : public QIconEngine {
 public:
    explicit CGlyphEngine(Glyph glyph) : m_glyph(glyph) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool isSelected = mode == QIcon::Selected;
        Glyphs::Paint(*painter, place, m_glyph,
                      palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::WindowText),
                      palette.color(group, isSelected ? QPalette::Highlight : QPalette::Window));
    }
    [[nodiscard]] QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new CGlyphEngine(m_glyph); }

 private:
    Glyph m_glyph;
};

}  // namespace

QIcon CommandIcon(const CommandRow& row) {
    const auto* flag = std::ranges::find(kFlagCommands, row.id, &FlagCommand::command);
    if (flag == std::end(kFlagCommands)) return QIcon::fromTheme(QString::fromLatin1(row.icon));
    return QIcon(new CGlyphEngine(FlagGlyph(flag->column)));
}
