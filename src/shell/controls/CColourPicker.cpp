#include "shell/controls/CColourPicker.h"

#include "lang/FormatText.h"
#include "shell/controls/CColourPopup.h"
#include "shell/look/FormRows.h"
#include "shell/look/ListColours.h"
#include "shell/look/PopupPlace.h"
#include "viewmodel/list/ColourTable.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionToolButton>

CColourPicker::CColourPicker(QWidget* parent)
    : QToolButton(parent),
      m_automaticLabel(LoadText(Text::ColourAutomatic)),
      m_standsFor(kAutomaticColour),
      m_automaticLook(Qt::transparent) {
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    const int height = fontMetrics().ascent();
    setIconSize({2 * height, height});
    connect(this, &QToolButton::clicked, this, &CColourPicker::OpenPopup);
    ShowColour();
}

void CColourPicker::SetPurpose(const QString& purpose) {
    m_purpose = purpose;
    ShowColour();
}

void CColourPicker::SetAutomatic(const QString& label, std::uint32_t standsFor, const QColor& look) {
    m_automaticLabel = label;
    m_standsFor = standsFor;
    m_automaticLook = look;
    ShowColour();
}

void CColourPicker::SetColour(std::uint32_t colour) {
    m_colour = colour;
    ShowColour();
}

bool CColourPicker::IsAutomatic() const {
    return m_colour == kAutomaticColour || m_colour == m_standsFor;
}

/// A colour that has no name is told by its red, green and blue: "#6F7091".
QString CColourPicker::NameOf(std::uint32_t colour) const {
    const NamedColour* named = FindColour(colour);
    return named ? LoadText(named->name).trimmed() : ColourOfSetting(colour).name().toUpper();
}

void CColourPicker::ShowColour() {
    setText(IsAutomatic() ? m_automaticLabel : NameOf(m_colour));
    setIcon(Swatch(IsAutomatic() ? m_automaticLook : ColourOfSetting(m_colour)));
    setAccessibleName(m_purpose.isEmpty() ? text() : FormatText<Text::ColourNamed>(m_purpose, text()));
}

QIcon CColourPicker::Swatch(const QColor& colour) const {
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(iconSize() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(colour);
    QPainter painter(&picture);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawRect(QRect(QPoint(), iconSize()).adjusted(0, 0, -1, -1));
    return picture;
}

QSize CColourPicker::sizeHint() const {
    int width = fontMetrics().horizontalAdvance(m_automaticLabel);
    for (const NamedColour& colour : ColourTable())
        width = qMax(width, fontMetrics().horizontalAdvance(LoadText(colour.name)));
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QSize content(width + iconSize().width() + 3 * kFormSpace, iconSize().height());
    return style()->sizeFromContents(QStyle::CT_ToolButton, &option, content, this);
}

/// The arrow of a button that opens something.
void CColourPicker::initStyleOption(QStyleOptionToolButton* option) const {
    QToolButton::initStyleOption(option);
    option->features |= QStyleOptionToolButton::HasMenu;
}

void CColourPicker::keyPressEvent(QKeyEvent* event) {
    if (OpensPopup(*event))
        OpenPopup();
    else
        QToolButton::keyPressEvent(event);
}

void CColourPicker::OpenPopup() {
    auto* popup = new CColourPopup(IsAutomatic() ? kAutomaticColour : m_colour, m_automaticLabel,
                                   Swatch(m_automaticLook), this);
    connect(popup, &CPickPopup::Accepted, this, [this, popup] {
        if (popup->Colour() == m_colour) return;
        SetColour(popup->Colour());
        Q_EMIT ColourChanged(m_colour);
    });
    ShowPopup(*popup, *this);
}
