#pragma once

#include <algorithm>
#include <cerrno>

#include "platform/host/CFileCalls.h"
#include "torture/CFaultInjector.h"

/// The system's calls, of which one fails, or all from one on. In use while it lives.
class CFaultyCalls final : public CFileCalls {
 public:
    CFaultyCalls(int error, Lasting lasting, int failing)
        : m_error(error), m_lasting(lasting), m_failing(failing), m_former(theFileCalls) {
        theFileCalls = this;
    }
    ~CFaultyCalls() override { theFileCalls = m_former; }
    CFaultyCalls(const CFaultyCalls&) = delete;
    CFaultyCalls& operator=(const CFaultyCalls&) = delete;

    int OpenFolder(const char* path) override { return Fails() ? -1 : CFileCalls::OpenFolder(path); }
    int Create(int folder, const char* name, mode_t mode) override {
        return Fails() ? -1 : CFileCalls::Create(folder, name, mode);
    }
    ssize_t Write(int file, const void* bytes, std::size_t size) override {
        return Fails() ? -1 : CFileCalls::Write(file, bytes, std::min<std::size_t>(size, kPiece));
    }
    ssize_t WriteAt(int file, const void* bytes, std::size_t size, off_t place) override {
        return Fails() ? -1 : CFileCalls::WriteAt(file, bytes, size, place);
    }
    int Sync(int handle) override { return Fails() ? -1 : CFileCalls::Sync(handle); }
    /// What close reports is a late failure: the file is closed all the same.
    int Close(int handle) override {
        const bool fails = Fails();
        const int result = CFileCalls::Close(handle);
        if (fails) errno = m_error;
        return fails ? -1 : result;
    }
    int Rename(int folder, const char* from, const char* to) override {
        return Fails() ? -1 : CFileCalls::Rename(folder, from, to);
    }
    int Unlink(int folder, const char* name) override {
        return Fails() ? -1 : CFileCalls::Unlink(folder, name);
    }

    int calls = 0;

 private:
    static constexpr std::size_t kPiece = 4096;  ///< a write may take less than it was given

    bool Fails() {
        ++calls;
        const bool fails =
            m_lasting == Lasting::OneCall ? calls == m_failing : m_failing > 0 && calls >= m_failing;
        if (fails) errno = m_error;
        return fails;
    }
    int m_error;
    Lasting m_lasting;
    int m_failing;
    CFileCalls* m_former;
};
