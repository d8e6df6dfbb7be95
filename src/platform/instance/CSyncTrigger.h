#pragma once

#include <QString>
#include <vector>

/// A registered trigger: at an event the platform starts a program with an argument text.
struct RegisteredTrigger {
    int handle = 0;
    QString application;
    QString arguments;
};

/// The platform's triggers for the end of a synchronisation: list, clear, register. On a desktop nothing
/// synchronises by itself: the console and the verb "-syncend" tell the running window through the instance
/// channel, so the registration has no counterpart and CNoSyncTrigger registers nothing.
class CSyncTrigger {
 public:
    virtual ~CSyncTrigger() = default;
    [[nodiscard]] virtual std::vector<RegisteredTrigger> List() const = 0;
    virtual bool Clear(int handle) = 0;
    /// The new trigger's handle, 0 when it could not be registered.
    [[nodiscard]] virtual int Register(const QString& application, const QString& arguments) = 0;
};

class CNoSyncTrigger final : public CSyncTrigger {
 public:
    [[nodiscard]] std::vector<RegisteredTrigger> List() const override { return {}; }
    bool Clear(int) override { return false; }
    [[nodiscard]] int Register(const QString&, const QString&) override { return 0; }
};
