#include "platform/host/CFileCalls.h"

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace {

CFileCalls& OfTheSystem() {
    static CFileCalls calls;
    return calls;
}

}  // namespace

CFileCalls* theFileCalls = &OfTheSystem();

int CFileCalls::OpenFolder(const char* path) {
    return ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int CFileCalls::Create(int folder, const char* name, mode_t mode) {
    return ::openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
}

ssize_t CFileCalls::Write(int file, const void* bytes, std::size_t size) {
    return ::write(file, bytes, size);
}

ssize_t CFileCalls::WriteAt(int file, const void* bytes, std::size_t size, off_t place) {
    return ::pwrite(file, bytes, size, place);
}

int CFileCalls::Sync(int handle) {
    return ::fsync(handle);
}

int CFileCalls::Close(int handle) {
    return ::close(handle);
}

int CFileCalls::Rename(int folder, const char* from, const char* to) {
    return ::renameat(folder, from, folder, to);
}

int CFileCalls::Unlink(int folder, const char* name) {
    return ::unlinkat(folder, name, 0);
}
