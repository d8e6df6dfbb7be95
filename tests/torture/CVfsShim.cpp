#include "torture/CVfsShim.h"

#include <memory>

namespace {

/// An open file: SQLite's head first, the real file behind it in the same block.
struct ShimFile {
    sqlite3_file head;
    CVfsShim* shim;
    QString* path;
    bool isJournal;
    bool wasSynced;

    [[nodiscard]] sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

ShimFile& Of(sqlite3_file* file) {
    return *reinterpret_cast<ShimFile*>(file);
}
CVfsShim& ShimOf(sqlite3_vfs* vfs) {
    return *static_cast<CVfsShim*>(vfs->pAppData);
}

int Close(sqlite3_file* file) {
    ShimFile& own = Of(file);
    const int result = own.Real()->pMethods->xClose(own.Real());
    delete own.path;
    return result;
}

int Read(sqlite3_file* file, void* out, int bytes, sqlite3_int64 offset) {
    ShimFile& own = Of(file);
    const int refused = own.shim->OnRead(*own.path, offset);
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xRead(own.Real(), out, bytes, offset);
}

int Write(sqlite3_file* file, const void* data, int bytes, sqlite3_int64 offset) {
    ShimFile& own = Of(file);
    const int refused =
        own.shim->OnWrite(*own.path, offset, QByteArray(static_cast<const char*>(data), bytes));
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xWrite(own.Real(), data, bytes, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    ShimFile& own = Of(file);
    const int refused = own.shim->OnTruncate(*own.path, size);
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xTruncate(own.Real(), size);
}

int Sync(sqlite3_file* file, int flags) {
    ShimFile& own = Of(file);
    const int refused = own.shim->OnSync(*own.path, own.isJournal && !own.wasSynced);
    own.wasSynced = true;
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xSync(own.Real(), flags);
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return Of(file).Real()->pMethods->xFileSize(Of(file).Real(), size);
}

int Lock(sqlite3_file* file, int level) {
    ShimFile& own = Of(file);
    const int refused = own.shim->OnLock(*own.path, level);
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xLock(own.Real(), level);
}

int Unlock(sqlite3_file* file, int level) {
    ShimFile& own = Of(file);
    const int refused = own.shim->OnUnlock(*own.path, level);
    return refused != SQLITE_OK ? refused : own.Real()->pMethods->xUnlock(own.Real(), level);
}

int CheckReservedLock(sqlite3_file* file, int* isLocked) {
    return Of(file).Real()->pMethods->xCheckReservedLock(Of(file).Real(), isLocked);
}

int FileControl(sqlite3_file* file, int operation, void* argument) {
    if (const int error = Of(file).shim->SystemError(); error != 0 && operation == SQLITE_FCNTL_LAST_ERRNO) {
        *static_cast<int*>(argument) = error;
        return SQLITE_OK;
    }
    return Of(file).Real()->pMethods->xFileControl(Of(file).Real(), operation, argument);
}

int SectorSize(sqlite3_file* file) {
    return Of(file).Real()->pMethods->xSectorSize(Of(file).Real());
}

int DeviceCharacteristics(sqlite3_file* file) {
    return Of(file).Real()->pMethods->xDeviceCharacteristics(Of(file).Real());
}

/// Version 1: no shared memory and no memory map, so nothing gets past the shim.
constexpr sqlite3_io_methods kMethods = {
    1,
    Close,
    Read,
    Write,
    Truncate,
    Sync,
    FileSize,
    Lock,
    Unlock,
    CheckReservedLock,
    FileControl,
    SectorSize,
    DeviceCharacteristics,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

int Open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    CVfsShim& shim = ShimOf(vfs);
    ShimFile& own = Of(file);
    own.head.pMethods = nullptr;
    if (const int refused = shim.OnOpen(QString::fromUtf8(name)); refused != SQLITE_OK) return refused;
    int exists = 0;
    if (name) shim.Real()->xAccess(shim.Real(), name, SQLITE_ACCESS_EXISTS, &exists);
    const int result = shim.Real()->xOpen(shim.Real(), name, own.Real(), flags, outFlags);
    if (result != SQLITE_OK) return result;
    own.head.pMethods = &kMethods;
    own.shim = &shim;
    own.path = std::make_unique<QString>(QString::fromUtf8(name)).release();
    own.isJournal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    own.wasSynced = false;
    shim.OnOpened(*own.path, exists == 0);
    return SQLITE_OK;
}

int Delete(sqlite3_vfs* vfs, const char* name, int syncsFolder) {
    CVfsShim& shim = ShimOf(vfs);
    const int refused = shim.OnDelete(QString::fromUtf8(name), syncsFolder != 0);
    return refused != SQLITE_OK ? refused : shim.Real()->xDelete(shim.Real(), name, syncsFolder);
}

int Access(sqlite3_vfs* vfs, const char* name, int flags, int* out) {
    return ShimOf(vfs).Real()->xAccess(ShimOf(vfs).Real(), name, flags, out);
}

int FullPathname(sqlite3_vfs* vfs, const char* name, int size, char* out) {
    return ShimOf(vfs).Real()->xFullPathname(ShimOf(vfs).Real(), name, size, out);
}

int Randomness(sqlite3_vfs* vfs, int bytes, char* out) {
    return ShimOf(vfs).Real()->xRandomness(ShimOf(vfs).Real(), bytes, out);
}

int Sleep(sqlite3_vfs* vfs, int microseconds) {
    return ShimOf(vfs).Real()->xSleep(ShimOf(vfs).Real(), microseconds);
}

int CurrentTime(sqlite3_vfs* vfs, double* out) {
    return ShimOf(vfs).Real()->xCurrentTime(ShimOf(vfs).Real(), out);
}

int GetLastError(sqlite3_vfs* vfs, int size, char* out) {
    if (const int error = ShimOf(vfs).SystemError(); error != 0) return error;
    return ShimOf(vfs).Real()->xGetLastError(ShimOf(vfs).Real(), size, out);
}

}  // namespace

CVfsShim::CVfsShim() : m_real(sqlite3_vfs_find(nullptr)), m_own{} {
    m_own.iVersion = 1;
    m_own.szOsFile = static_cast<int>(sizeof(ShimFile)) + m_real->szOsFile;
    m_own.mxPathname = m_real->mxPathname;
    m_own.zName = "velmarch-test";
    m_own.pAppData = this;
    m_own.xOpen = Open;
    m_own.xDelete = Delete;
    m_own.xAccess = Access;
    m_own.xFullPathname = FullPathname;
    m_own.xRandomness = Randomness;
    m_own.xSleep = Sleep;
    m_own.xCurrentTime = CurrentTime;
    m_own.xGetLastError = GetLastError;
    sqlite3_vfs_register(&m_own, 1);
}

CVfsShim::~CVfsShim() {
    sqlite3_vfs_unregister(&m_own);
    sqlite3_vfs_register(m_real, 1);
}
