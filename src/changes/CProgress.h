#pragma once

#include <QString>

/// How far long work is, and whether the user wants it to end.
class CProgress {
 public:
    virtual ~CProgress() = default;
    /// Begins work of so many steps; what: in words.
    virtual void Begin(const QString& what, int steps) = 0;
    /// One step is about to be done. False when the user cancelled: the caller ends before it.
    [[nodiscard]] virtual bool Advance() = 0;
    virtual void End() = 0;
};

/// For programs that show none.
class CNoProgress final : public CProgress {
 public:
    void Begin(const QString&, int) override {}
    [[nodiscard]] bool Advance() override { return true; }
    void End() override {}
};
