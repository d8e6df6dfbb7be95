#pragma once

#include <QString>

/// A real file system of a few megabytes, mounted over an empty folder for as long as this lives: what a full
/// disk says is then said by the system itself. Only the administrator can make one.
class SmallDisk {
 public:
    explicit SmallDisk(const QString& folder);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    [[nodiscard]] bool IsThere() const { return m_isThere; }
    /// Fills it up but for so many pages. False when less than that is free.
    [[nodiscard]] bool LeaveFree(int pages);
    /// Takes away what filled it.
    void Empty();

 private:
    QString m_folder;
    bool m_isThere;
};
