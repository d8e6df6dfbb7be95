#include "shell/guide/CUserGuide.h"

#include "lang/LoadText.h"
#include "shell/guide/CGuideText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

QString SizeSection() {
    return u"UserGuide"_s;
}
constexpr QSize kUsualSize{860, 600};
constexpr int kDeepestChapter = 2;
constexpr int kBlockRole = Qt::UserRole;

}  // namespace

CUserGuide::CUserGuide(CProfile& profile, QWidget* parent)
    : QDialog(parent), m_profile(profile), m_text(new CGuideText) {
    setObjectName(u"userGuide"_s);
    setWindowTitle(LoadText(Text::UserGuideTitle));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    column->addLayout(MakeSearch());
    auto* pages = new QHBoxLayout;
    pages->addWidget(MakeContents(), 1);
    pages->addWidget(m_text, 3);
    column->addLayout(pages, 1);
    RestoreDialogSize(*this, m_profile, SizeSection(), kUsualSize);
    ShowGuide();
    if (parent) parent->installEventFilter(this);
    m_text->setFocus();
}

QListWidget* CUserGuide::MakeContents() {
    m_contents = new QListWidget;
    NameWidget(*m_contents, u"guideContents"_s, LoadText(Text::UserGuideContents));
    m_contents->setTextElideMode(Qt::ElideRight);
    m_contents->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(m_contents, &QListWidget::currentRowChanged, this, &CUserGuide::GoTo);
    connect(m_contents, &QListWidget::itemClicked, this, [this] { GoTo(m_contents->currentRow()); });
    return m_contents;
}

/// Return in the field finds the next place; no button takes it away.
QHBoxLayout* CUserGuide::MakeSearch() {
    CMnemonics mnemonics;
    auto* row = new QHBoxLayout;
    m_words = new QLineEdit;
    NameWidget(*m_words, u"guideWords"_s, LoadText(Text::UserGuideFind));
    m_words->setPlaceholderText(LoadText(Text::UserGuideFind));
    m_words->setClearButtonEnabled(true);
    auto* next = new QPushButton(mnemonics.Take(LoadText(Text::UserGuideFindNext)));
    NameWidget(*next, u"guideFindNext"_s, CMnemonics::Plain(LoadText(Text::UserGuideFindNext)));
    next->setDefault(true);
    m_notFound = new QLabel;
    NameWidget(*m_notFound, u"guideNotFound"_s, LoadText(Text::UserGuideFind));
    row->addWidget(m_words);
    row->addWidget(next);
    row->addWidget(m_notFound, 1);
    connect(next, &QPushButton::clicked, this, &CUserGuide::Find);
    connect(m_words, &QLineEdit::textEdited, m_notFound, &QLabel::clear);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_words,
            [this] { m_words->setFocus(Qt::ShortcutFocusReason); });
    return row;
}

void CUserGuide::ShowGuide() {
    if (m_text->ShowGuide())
        FillContents();
    else
        m_text->setPlainText(LoadText(Text::UserGuideMissing));
}

void CUserGuide::FillContents() {
    const QTextDocument& guide = *m_text->document();
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < 1 || level > kDeepestChapter) continue;
        auto* chapter = new QListWidgetItem(block.text(), m_contents);
        chapter->setData(kBlockRole, block.blockNumber());
        chapter->setToolTip(block.text());
    }
}

/// The chapter's head comes to the top.
void CUserGuide::GoTo(int chapter) {
    const QListWidgetItem* item = m_contents->item(chapter);
    if (!item) return;
    const QTextBlock block = m_text->document()->findBlockByNumber(item->data(kBlockRole).toInt());
    m_text->setTextCursor(QTextCursor(block));
    const qreal top = m_text->document()->documentLayout()->blockBoundingRect(block).top();
    m_text->verticalScrollBar()->setValue(qRound(top));
}

/// Behind the last place it begins anew.
void CUserGuide::Find() {
    const QString words = m_words->text();
    if (words.isEmpty()) return m_words->setFocus();
    bool isFound = m_text->find(words);
    if (!isFound) {
        const QTextCursor before = m_text->textCursor();
        m_text->moveCursor(QTextCursor::Start);
        isFound = m_text->find(words);
        if (!isFound) m_text->setTextCursor(before);
    }
    ShowValue(*m_notFound, LoadText(Text::UserGuideFind),
              isFound ? QString() : LoadText(Text::UserGuideNotFound));
}

/// The window that it belongs to has gone, and the program ends with its last window.
bool CUserGuide::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Hide) reject();
    return QDialog::eventFilter(watched, event);
}

void CUserGuide::done(int result) {
    PersistDialogSize(*this, m_profile, SizeSection());
    QDialog::done(result);
}
