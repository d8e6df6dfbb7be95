#pragma once

#include <QString>
#include <memory>

/// The named mutex that makes the window single: held by the kernel for a process, so a crash leaves nothing
/// behind. One per home folder.
class CInstance {
 public:
    CInstance();
    ~CInstance();
    CInstance(const CInstance&) = delete;
    CInstance& operator=(const CInstance&) = delete;

    enum class Outcome {
        Taken,
        AlreadyExists,
        ReadOnly,  ///< there is no lock, and this user can't make one: nothing can be changed in the home
        Failed
    };
    /// name: the mutex's name; home: the folder whose instance is meant (it must exist).
    [[nodiscard]] Outcome Take(const QString& name, const QString& home);
    void Release();
    /// Whether some process holds it, without taking it even for a moment.
    [[nodiscard]] static bool IsHeld(const QString& name, const QString& home);
    [[nodiscard]] const QString& Error() const { return m_error; }

 private:
    int m_handle = -1;
    QString m_error;
};
