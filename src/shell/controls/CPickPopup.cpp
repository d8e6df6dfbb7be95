#include "shell/controls/CPickPopup.h"

#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CPickPopup::CPickPopup(QWidget* parent) : QFrame(parent, Qt::Popup), m_column(new QVBoxLayout(this)) {
    setObjectName(QStringLiteral("pickPopup"));
    setFrameStyle(QFrame::StyledPanel);
    m_column->setSpacing(kFormSpace / 2);
    m_column->setContentsMargins(kFormSpace, kFormSpace, kFormSpace, kFormSpace);
}

QLabel* CPickPopup::MakeLabel(const QString& caption, QWidget& part, const QString& name,
                              CMnemonics& mnemonics) {
    auto* label = new QLabel(mnemonics.Give(caption));
    label->setBuddy(&part);
    NameWidget(part, name, caption);
    return label;
}

QPushButton* CPickPopup::MakeButton(const Button& button, CMnemonics& mnemonics) {
    auto* widget = new QPushButton(mnemonics.Give(button.caption));
    widget->setAutoDefault(false);
    NameWidget(*widget, QString::fromLatin1(button.name), button.caption);
    connect(widget, &QPushButton::clicked, this, [this, id = button.id] { Run(id); });
    return widget;
}

void CPickPopup::AddButtons(std::initializer_list<Button> buttons, CMnemonics& mnemonics) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kFormSpace);
    for (const Button& button : buttons) {
        if (&button == buttons.end() - 1) row->addStretch();
        row->addWidget(MakeButton(button, mnemonics));
    }
    m_column->addSpacing(kFormSpace / 2);
    m_column->addLayout(row);
}

void CPickPopup::Run(int id) {
    const PadState state = Press(id);
    if (state == PadState::Accepted) Q_EMIT Accepted();
    if (state != PadState::Open) close();
}

void CPickPopup::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    switch (event->key()) {
        case Qt::Key_Escape:
            return Run(kPadCancel);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (button)
                button->click();
            else
                Run(kPadAccept);
            return;
        default:
            QFrame::keyPressEvent(event);
    }
}
