// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/history/watched_disk.h"

#include <sqlite3.h>

#include <cstring>
#include <new>

namespace history::test {

namespace watched {

std::function<int(const DiskStep&)> onStep;
sqlite3_vfs vfs;
sqlite3_vfs* usual = nullptr;

struct File {
    sqlite3_file base;
    sqlite3_file* real;
    const char* path;
};

sqlite3_file* realOf(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->real;
}

std::string pathOf(sqlite3_file* file) {
    const char* path = reinterpret_cast<File*>(file)->path;
    return path ? path : "";
}

int pass(const DiskStep& step) {
    return onStep ? onStep(step) : SQLITE_OK;
}

int close(sqlite3_file* file) {
    return realOf(file)->pMethods ? realOf(file)->pMethods->xClose(realOf(file)) : SQLITE_OK;
}
int read(sqlite3_file* file, void* to, int size, sqlite3_int64 at) {
    return realOf(file)->pMethods->xRead(realOf(file), to, size, at);
}
int write(sqlite3_file* file, const void* from, int size, sqlite3_int64 at) {
    const std::string bytes(static_cast<const char*>(from), static_cast<std::size_t>(size));
    const int code = pass({DiskStep::What::Write, pathOf(file), at, bytes});
    return code ? code : realOf(file)->pMethods->xWrite(realOf(file), from, size, at);
}
int truncate(sqlite3_file* file, sqlite3_int64 size) {
    const int code = pass({DiskStep::What::Truncate, pathOf(file), size, ""});
    return code ? code : realOf(file)->pMethods->xTruncate(realOf(file), size);
}
int sync(sqlite3_file* file, int flags) {
    const int code = pass({DiskStep::What::Flush, pathOf(file), 0, ""});
    static_cast<void>(flags);
    return code;  // not handed on: no test cuts the machine's own power
}
int fileSize(sqlite3_file* file, sqlite3_int64* size) {
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}
int lock(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xLock(realOf(file), level);
}
int unlock(sqlite3_file* file, int level) {
    return realOf(file)->pMethods->xUnlock(realOf(file), level);
}
int isReserved(sqlite3_file* file, int* answer) {
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), answer);
}
int control(sqlite3_file* file, int what, void* with) {
    return realOf(file)->pMethods->xFileControl(realOf(file), what, with);
}
int sectorSize(sqlite3_file* file) {
    return realOf(file)->pMethods->xSectorSize(realOf(file));
}
int traits(sqlite3_file* file) {
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}
int shmMap(sqlite3_file* file, int page, int size, int extend, void volatile** to) {
    return realOf(file)->pMethods->xShmMap(realOf(file), page, size, extend, to);
}
int shmLock(sqlite3_file* file, int offset, int n, int flags) {
    return realOf(file)->pMethods->xShmLock(realOf(file), offset, n, flags);
}
void shmBarrier(sqlite3_file* file) {
    realOf(file)->pMethods->xShmBarrier(realOf(file));
}
int shmUnmap(sqlite3_file* file, int remove) {
    return realOf(file)->pMethods->xShmUnmap(realOf(file), remove);
}

const sqlite3_io_methods methods = {2,          close,      read,    write,  truncate,
                                    sync,       fileSize,   lock,    unlock, isReserved,
                                    control,    sectorSize, traits,  shmMap, shmLock,
                                    shmBarrier, shmUnmap,   nullptr, nullptr};

int open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    const int code = pass({DiskStep::What::Open, path ? path : "", 0, ""});
    auto* wrapped = new (file) File{{nullptr}, nullptr, path};
    wrapped->real = reinterpret_cast<sqlite3_file*>(wrapped + 1);
    std::memset(wrapped->real, 0, static_cast<std::size_t>(usual->szOsFile));
    if (code) return code;
    const int opened = usual->xOpen(usual, path, wrapped->real, flags, outFlags);
    if (opened == SQLITE_OK) wrapped->base.pMethods = &methods;
    return opened;
}

int remove(sqlite3_vfs*, const char* path, int flushFolder) {
    const int code = pass({DiskStep::What::Delete, path, 0, ""});
    return code ? code : usual->xDelete(usual, path, flushFolder);
}

}  // namespace watched

WatchedDisk::WatchedDisk(std::function<int(const DiskStep&)> onStep) {
    watched::onStep = std::move(onStep);
    watched::usual = sqlite3_vfs_find(nullptr);
    watched::vfs = *watched::usual;
    watched::vfs.zName = kName;
    watched::vfs.pNext = nullptr;
    watched::vfs.szOsFile = static_cast<int>(sizeof(watched::File)) + watched::usual->szOsFile;
    watched::vfs.xOpen = watched::open;
    watched::vfs.xDelete = watched::remove;
    sqlite3_vfs_register(&watched::vfs, 0);
}

WatchedDisk::~WatchedDisk() {
    sqlite3_vfs_unregister(&watched::vfs);
    watched::onStep = nullptr;
}

}  // namespace history::test
