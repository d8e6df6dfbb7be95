#pragma once

#include <sys/types.h>
#include <cstddef>

/// The calls to the system by which a whole file is written. Results and errno are the system's. A test puts
/// others in their place, so that each of them fails once.
class CFileCalls {
 public:
    virtual ~CFileCalls() = default;
    [[nodiscard]] virtual int OpenFolder(const char* path);
    /// Makes a file that isn't there yet, to be written and read back.
    [[nodiscard]] virtual int Create(int folder, const char* name, mode_t mode);
    [[nodiscard]] virtual ssize_t Write(int file, const void* bytes, std::size_t size);
    /// Over what was written before; the place of the next Write stays.
    [[nodiscard]] virtual ssize_t WriteAt(int file, const void* bytes, std::size_t size, off_t place);
    [[nodiscard]] virtual int Sync(int handle);
    [[nodiscard]] virtual int Close(int handle);
    [[nodiscard]] virtual int Rename(int folder, const char* from, const char* to);
    virtual int Unlink(int folder, const char* name);
};

/// The ones in use.
extern CFileCalls* theFileCalls;
