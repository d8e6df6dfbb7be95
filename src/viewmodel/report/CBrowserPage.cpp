#include "viewmodel/report/CBrowserPage.h"

#include "lang/LoadText.h"
#include "platform/host/CLauncher.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Opens a file in the program that the desktop has for it.
const QString kOpener = u"xdg-open"_s;

}  // namespace

FileOutcome CBrowserPage::Open(QByteArrayView page) {
    const QString path = m_folder.filePath(u"report-%1.html"_s.arg(++m_count));
    FileOutcome outcome = WriteWholeFile(path, page, FileAudience::OwnerOnly);
    if (!outcome.written) return outcome;
    const bool isOpened = m_launcher.IsThere(kOpener) && m_launcher.Start(kOpener, {path});
    return isOpened ? outcome : FileOutcome{.written = false, .error = LoadText(Text::ReportNoBrowser)};
}
