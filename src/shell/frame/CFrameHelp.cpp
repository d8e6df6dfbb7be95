#include "shell/frame/CFrameHelp.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "shell/commands/CKeysDialog.h"
#include "shell/frame/CFrameControl.h"
#include "shell/frame/FrameContext.h"
#include "shell/guide/CUserGuide.h"

#include <QPointer>
#include <functional>

namespace {

/// Shows the page of this kind that the window has open, or a new one.
template <class Page>
void ComeForward(QWidget& window, const std::function<Page*()>& make) {
    auto* page = window.findChild<Page*>(QString(), Qt::FindDirectChildrenOnly);
    if (!page) {
        page = make();
        page->setAttribute(Qt::WA_DeleteOnClose);
        page->setModal(false);
        page->show();
    }
    page->raise();
    page->activateWindow();
}

}  // namespace

void CFrameHelp::UserGuide() {
    QWidget& window = m_context.control.Window();
    ComeForward<CUserGuide>(window, [&] { return new CUserGuide(m_context.settings.Profile(), &window); });
}

/// Made anew each time, as the user may call fields otherwise by now.
void CFrameHelp::AllKeys() {
    QWidget& window = m_context.control.Window();
    const bool timeMode = theRecordMode == RecordMode::Time;
    ComeForward<CKeysDialog>(window, [&] {
        return new CKeysDialog(KeyedCommands(timeMode, m_context.catalogue.Labels()),
                               m_context.settings.Profile(), &window);
    });
}
