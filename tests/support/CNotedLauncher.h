#pragma once

#include "platform/host/CLauncher.h"

/// Notes what is started, and ends it with what the test says.
class CNotedLauncher final : public CLauncher {
 public:
    void RunInBackground(const QString& program, const QStringList& arguments, const Heard& heard) override {
        started = program + u' ' + arguments.join(u' ');
        m_heard = heard;
    }
    bool IsThere(const QString& program) const override { return programs.contains(program); }
    bool Start(const QString& program, const QStringList& arguments) override {
        started = program + u' ' + arguments.join(u' ');
        return starts;
    }
    void End(const QByteArray& output) { m_heard(output); }

    QString started;
    QStringList programs;
    bool starts = true;

 private:
    Heard m_heard;
};
