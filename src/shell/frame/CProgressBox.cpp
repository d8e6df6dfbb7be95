#include "shell/frame/CProgressBox.h"

#include "lang/LoadText.h"

#include <QProgressDialog>
#include <limits>

namespace {
constexpr int kPatienceMs = 500;
}

CProgressBox::CProgressBox(QWidget& parent) : m_parent(parent) {}
CProgressBox::~CProgressBox() = default;

void CProgressBox::Begin(const QString& what, int steps) {
    m_box = std::make_unique<QProgressDialog>(what, LoadText(Text::ActionCancel), 0, steps, &m_parent);
    m_box->setObjectName(QStringLiteral("progress"));
    m_box->setWindowTitle(LoadText(Text::ProgramTitle));
    m_box->setWindowModality(Qt::WindowModal);
    // Until a step has begun late enough: Qt's own timer would bring it up over a message that a step shows.
    m_box->setMinimumDuration(std::numeric_limits<int>::max());
    m_box->setAutoReset(false);
    m_box->setValue(0);
    m_begun.start();
}

bool CProgressBox::Advance() {
    if (m_begun.hasExpired(kPatienceMs)) m_box->setMinimumDuration(0);
    m_box->setValue(m_box->value() + 1);
    return !m_box->wasCanceled();
}

void CProgressBox::End() {
    m_box.reset();
}
