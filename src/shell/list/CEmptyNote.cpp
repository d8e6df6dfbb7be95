#include "shell/list/CEmptyNote.h"

#include "lang/FormatText.h"
#include "shell/look/FormRows.h"
#include "shell/look/Glyphs.h"
#include "viewmodel/commands/CommandTable.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPicture = 64;

struct Offer {
    int command;
    Text button;
    const char* icon;
};

Offer OfferFor(EmptyReason reason, RecordMode mode) {
    switch (reason) {
        case EmptyReason::InPeriod:
            return {Command::kPeriodAll, Text::ButtonShowAll, "view-calendar"};
        case EmptyReason::Filtered:
            return {Command::kClearFilter, Text::ButtonClearFilter, "edit-clear-all"};
        case EmptyReason::NotFound:
            return {Command::kFindEverywhere, Text::ButtonFindEverywhere, "edit-find"};
        default:
            return {Command::kNew, mode == RecordMode::Time ? Text::ButtonNew : Text::ButtonNewExpense,
                    "document-new"};
    }
}

bool HasOffer(EmptyReason reason) {
    return reason != EmptyReason::Loading && reason != EmptyReason::Unreadable &&
           reason != EmptyReason::NotAnywhere;
}

QString SentenceFor(EmptyReason reason, RecordMode mode, const QString& what) {
    const bool isTime = mode == RecordMode::Time;
    switch (reason) {
        case EmptyReason::Loading:
            return LoadText(Text::EmptyLoading);
        case EmptyReason::Unreadable:
            return LoadText(Text::EmptyUnreadable);
        case EmptyReason::InPeriod:
            return isTime ? FormatText<Text::EmptyInPeriod>(what)
                          : FormatText<Text::EmptyInPeriodExpenses>(what);
        case EmptyReason::Filtered:
            return what;
        case EmptyReason::NotFound:
            return isTime ? FormatText<Text::EmptyFound>(what) : FormatText<Text::EmptyFoundExpenses>(what);
        case EmptyReason::NotAnywhere:
            return isTime ? FormatText<Text::EmptyFoundAnywhere>(what)
                          : FormatText<Text::EmptyFoundNoExpenses>(what);
        default:
            return LoadText(isTime ? Text::EmptyNoRecords : Text::EmptyNoExpenses);
    }
}

}  // namespace

CEmptyNote::CEmptyNote(QWidget* parent)
    : QWidget(parent),
      m_picture(new QLabel(this)),
      m_sentence(new QLabel(this)),
      m_button(new QPushButton(this)),
      m_guide(new QPushButton(LoadText(Text::EmptyOfferGuide), this)) {
    setObjectName(u"emptyNote"_s);
    m_picture->setObjectName(u"emptyPicture"_s);
    m_sentence->setObjectName(u"emptySentence"_s);
    m_button->setObjectName(u"emptyButton"_s);
    NameWidget(*m_guide, u"emptyGuide"_s, LoadText(Text::EmptyOfferGuide));
    m_guide->setFlat(true);
    m_picture->setAlignment(Qt::AlignCenter);
    m_sentence->setAlignment(Qt::AlignCenter);
    m_sentence->setWordWrap(true);
    m_sentence->setTextFormat(Qt::PlainText);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(16);
    layout->addStretch(2);
    layout->addWidget(m_picture);
    layout->addWidget(m_sentence);
    layout->addWidget(m_button, 0, Qt::AlignHCenter);
    layout->addWidget(m_guide, 0, Qt::AlignHCenter);
    layout->addStretch(3);
    connect(m_button, &QPushButton::clicked, this, [this] { Q_EMIT CommandWanted(m_command); });
    connect(m_guide, &QPushButton::clicked, this, [this] { Q_EMIT CommandWanted(Command::kGuide); });
    ApplyLook();
}

void CEmptyNote::Show(EmptyReason reason, RecordMode mode, const QString& what) {
    const Offer offer = OfferFor(reason, mode);
    m_mode = mode;
    ApplyLook();
    m_command = offer.command;
    m_sentence->setText(SentenceFor(reason, mode, what));
    m_button->setVisible(HasOffer(reason));
    m_button->setText(LoadText(offer.button));
    m_button->setAccessibleName(LoadText(offer.button));
    m_button->setIcon(QIcon::fromTheme(QString::fromLatin1(offer.icon)));
    m_guide->setVisible(reason == EmptyReason::NoRecords);
    m_guide->setIcon(QIcon::fromTheme(u"help-hint"_s));
    setFocusProxy(m_button);
}

void CEmptyNote::ApplyLook() {
    const QColor ink = palette().color(QPalette::Disabled, QPalette::Text);
    const Glyph glyph = m_mode == RecordMode::Time ? Glyph::ModeTime : Glyph::ModeExpense;
    m_picture->setPixmap(
        Glyphs::Picture(glyph, kPicture, devicePixelRatioF(), ink, palette().color(QPalette::Base)));
}

void CEmptyNote::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ApplyLook();
}
