#include "shell/list/CConditionStrip.h"

#include "lang/FormatText.h"
#include "shell/controls/CFlowLayout.h"
#include "shell/look/FormRows.h"
#include "shell/look/PlainTip.h"

#include <QIcon>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A condition says the most with its first words; all of them are in the tip.
constexpr int kMostCharacters = 30;

}  // namespace

CConditionStrip::CConditionStrip(QWidget* parent) : QWidget(parent), m_row(new CFlowLayout(this)) {
    setObjectName(u"conditionStrip"_s);
    setAccessibleName(LoadText(Text::ConditionsName));
    m_row->setContentsMargins(kFormSpace, kFormSpace / 2, kFormSpace, kFormSpace / 2);
    m_row->setSpacing(kFormSpace);
    hide();
}

/// The buttons stay while the conditions do, so that the keyboard keeps its place.
void CConditionStrip::ShowConditions(const QStringList& words) {
    setVisible(!words.isEmpty());
    if (words == m_words) return;
    m_words = words;
    while (QLayoutItem* former = m_row->takeAt(0)) {
        former->widget()->hide();
        former->widget()->deleteLater();
        delete former;
    }
    for (int place = 0; place < words.size(); ++place) Add(words[place], place);
}

void CConditionStrip::Add(const QString& words, int place) {
    auto* button = new QToolButton(this);
    const QString end = FormatText<Text::ConditionEnd>(words);
    NameWidget(*button, u"condition%1"_s.arg(place), end);
    QString shown = fontMetrics().elidedText(words.simplified(), Qt::ElideRight,
                                             fontMetrics().averageCharWidth() * kMostCharacters);
    button->setText(shown.replace(u'&', u"&&"_s));
    button->setIcon(QIcon::fromTheme(u"window-close"_s));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setToolTip(PlainTip(end));
    button->setFocusPolicy(Qt::TabFocus);
    m_row->addWidget(button);
    button->show();
    connect(button, &QToolButton::clicked, this, [this, place] { Q_EMIT EndWanted(place); });
}
