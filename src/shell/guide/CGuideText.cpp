#include "shell/guide/CGuideText.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"

#include <QFile>
#include <QImage>
#include <QTextFrame>
#include <QTextTable>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kPictureWidth = 520;  ///< at 100 %

}  // namespace

CGuideText::CGuideText() {
    NameWidget(*this, u"guideText"_s, LoadText(Text::UserGuideText));
    setOpenLinks(false);
    document()->setDocumentMargin(2 * kFormSpace);
}

bool CGuideText::ShowGuide() {
    QFile file(u":/guide/user-guide.md"_s);
    if (!file.open(QIODevice::ReadOnly)) return false;
    document()->setBaseUrl(QUrl(u"qrc:/guide/"_s));
    setMarkdown(QString::fromUtf8(file.readAll()));
    FrameTables();
    moveCursor(QTextCursor::Start);
    return true;
}

/// Without lines the columns of a table run into one another.
void CGuideText::FrameTables() {
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderBrush(palette().color(QPalette::Mid));
        format.setCellPadding(kFormSpace / 2.0);
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

QVariant CGuideText::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    QImage picture(u":/guide/"_s + name.path().section(u"guide/"_s, -1));
    const qreal ratio = devicePixelRatioF();
    const int widest = qRound(kPictureWidth * ratio);
    if (picture.width() > widest) picture = picture.scaledToWidth(widest, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}
