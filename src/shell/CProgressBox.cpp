#include "shell/CProgressBox.h"

#include "lang/LoadText.h"

#include <QProgressDialog>

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
    m_box->setMinimumDuration(kPatienceMs);
    m_box->setAutoReset(false);
    m_box->setValue(0);
}

bool CProgressBox::Advance() {
    m_box->setValue(m_box->value() + 1);
    return !m_box->wasCanceled();
}

void CProgressBox::End() {
    m_box.reset();
}
