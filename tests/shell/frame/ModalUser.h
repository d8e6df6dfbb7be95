#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>
#include <utility>

/// Waits for the next modal dialog and acts on it as a user would: runs a function on it, which must end it.
/// Tells at the end whether there was one.
class ModalUser {
 public:
    explicit ModalUser(std::function<void(QDialog& dialog)> act) : m_act(std::move(act)) {
        m_timer.setInterval(5);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible()) return;
            m_timer.stop();
            m_met = true;
            m_act(*dialog);
        });
        m_timer.start();
    }
    [[nodiscard]] bool Met() const { return m_met; }

 private:
    std::function<void(QDialog& dialog)> m_act;
    QTimer m_timer;
    bool m_met = false;
};
