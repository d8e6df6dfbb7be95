#include "shell/report/CSumChooser.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::Literals::StringLiterals;

CSumChooser::CSumChooser(QWidget* parent) : QWidget(parent), m_sums(new QComboBox) {
    setObjectName(u"sumChooser"_s);
    m_sums->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* words = new QLabel(LoadText(Text::ChartOf));
    words->setBuddy(m_sums);
    NameWidget(*m_sums, u"chartSum"_s, QString(LoadText(Text::ChartOf)).remove(u'&'));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kFormSpace, kFormSpace / 2, kFormSpace, kFormSpace / 2);
    row->addWidget(words);
    row->addWidget(m_sums);
    row->addStretch();
    connect(m_sums, &QComboBox::activated, this,
            [this](int sum) { Q_EMIT SumChosen(static_cast<std::size_t>(sum)); });
    hide();
}

void CSumChooser::ShowSums(const QStringList& sums, std::size_t chosen) {
    m_sums->clear();
    m_sums->addItems(sums);
    m_sums->setCurrentIndex(static_cast<int>(chosen));
    setVisible(sums.size() > 1);
}
