#include "shell/frame/CWaitBox.h"

#include "lang/FormatText.h"
#include "shell/controls/CBoxPrompt.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QProgressDialog>
#include <limits>

using namespace std::chrono_literals;

namespace {

/// A wait of less than this is nobody's business.
constexpr auto kPatience = 2s;
/// So often the window is drawn meanwhile, and the end of a wait is looked for.
constexpr auto kEvery = 50ms;

}  // namespace

CWaitBox::CWaitBox(CWaitBudget& budget) : m_budget(budget) {
    m_budget.SetListener(this);
    m_over.setInterval(kEvery);
    QObject::connect(&m_over, &QTimer::timeout, &m_over, [this] { CloseWhenOver(); });
    // What comes after the program has been idle is an operation of its own.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &m_over,
                     [this] { m_budget.Renew(); });
}

CWaitBox::~CWaitBox() {
    m_budget.SetListener(nullptr);
}

CWaitListener::Choice CWaitBox::OnWaiting(const QString& what, std::chrono::milliseconds waited) {
    if (waited < kPatience) return Choice::GoOn;
    if (!m_box) Show(what);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    return m_box->wasCanceled() ? Choice::GiveUp : Choice::GoOn;
}

void CWaitBox::Show(const QString& what) {
    QWidget* modal = QApplication::activeModalWidget();
    m_box =
        std::make_unique<QProgressDialog>(FormatText<Text::WaitingFor>(what), LoadText(Text::ActionCancel), 0,
                                          0, modal ? modal : QApplication::activeWindow());
    m_box->setObjectName(QStringLiteral("waiting"));
    m_box->setProperty(kGoesByItself, true);
    m_box->setWindowTitle(LoadText(Text::ProgramTitle));
    m_box->setWindowModality(Qt::ApplicationModal);
    m_box->setMinimumDuration(std::numeric_limits<int>::max());
    m_box->show();
    m_over.start();
}

void CWaitBox::CloseWhenOver() {
    if (m_budget.IsWaiting()) return;
    m_over.stop();
    m_box.release()->deleteLater();
}
