#include "Support/FaultyFileSystem.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cstdlib>
#include <stdexcept>

#include "Support/DiskCache.h"

namespace {

enum class Need { Nothing, Space, Flush };

struct Plan {
    bool isActive = false;
    FaultyFileSystem::Fault fault = FaultyFileSystem::Fault::Error;
    FaultyFileSystem::Duration duration = FaultyFileSystem::Duration::Once;
    qint64 first = 0;
    /// The file that cannot be read.
    ino_t file = 0;
    qint64 calls = 0;
    bool hasFailed = false;
    DiskCache cache = {};
};

/// Returns the number of the file `name` in its file system, or 0 if there is none.
ino_t numberOf(const char *name) {
    struct stat status {};
    return name && stat(name, &status) == 0 ? status.st_ino : 0;
}

Plan &plan() {
    static Plan onlyPlan;
    return onlyPlan;
}

sqlite3_vfs *systemFiles = nullptr;

struct File {
    sqlite3_file base;
    bool isTemporary;
    ino_t number;
    /// Null for temporary files.
    const char *name;
    /// Of the file system below; its object follows this one.
    sqlite3_file *below() { return reinterpret_cast<sqlite3_file *>(this + 1); }
};

File *own(sqlite3_file *file) {
    return reinterpret_cast<File *>(file);
}

sqlite3_file *below(sqlite3_file *file) {
    return own(file)->below();
}

bool isConcerned(Need need, bool isTemporary) {
    switch (plan().fault) {
        case FaultyFileSystem::Fault::Error:
        case FaultyFileSystem::Fault::End:
            return true;
        case FaultyFileSystem::Fault::Full:
            return need == Need::Space;
        case FaultyFileSystem::Fault::NoTemporaryFiles:
            return isTemporary;
        case FaultyFileSystem::Fault::Flush:
            return need == Need::Flush && !isTemporary;
        case FaultyFileSystem::Fault::Unreadable:
            break;
    }
    return false;
}

/// Counts the call, and returns whether it must fail.
bool fails(Need need, bool isTemporary) {
    Plan &current = plan();
    if (!current.isActive || !isConcerned(need, isTemporary)) {
        return false;
    }
    ++current.calls;
    const bool isDue = current.duration == FaultyFileSystem::Duration::Once
                           ? current.calls == current.first
                           : current.calls >= current.first;
    current.hasFailed = current.hasFailed || isDue;
    if (isDue && current.fault == FaultyFileSystem::Fault::End) {
        _exit(EXIT_FAILURE);
    }
    return isDue;
}

/// Counts the read of the file, and returns whether it must fail.
bool isUnreadable(const File &file) {
    Plan &current = plan();
    const bool isConcerned = current.isActive &&
                             current.fault == FaultyFileSystem::Fault::Unreadable &&
                             file.number == current.file;
    current.calls += isConcerned ? 1 : 0;
    const bool isDue = isConcerned && current.calls >= current.first;
    current.hasFailed = current.hasFailed || isDue;
    return isDue;
}

int failureOf(Need need, int error) {
    return need == Need::Space && plan().fault == FaultyFileSystem::Fault::Full ? SQLITE_FULL
                                                                                : error;
}

template <class Call>
int unlessFailing(sqlite3_file *file, Need need, int error, const Call &call) {
    return fails(need, own(file)->isTemporary) ? failureOf(need, error) : call();
}

/// Calls `change` with what the disk has not stored, and the path of the file, if that is needed.
template <class Change>
void changeCache(const File &file, const Change &change) {
    if (plan().isActive && plan().fault == FaultyFileSystem::Fault::Flush && file.name) {
        change(plan().cache, QFile::decodeName(file.name));
    }
}

int closeFile(sqlite3_file *file) {
    return below(file)->pMethods->xClose(below(file));
}

int readFile(sqlite3_file *file, void *buffer, int size, sqlite3_int64 offset) {
    if (isUnreadable(*own(file))) {
        return SQLITE_IOERR_READ;
    }
    return unlessFailing(file, Need::Nothing, SQLITE_IOERR_READ, [&] {
        return below(file)->pMethods->xRead(below(file), buffer, size, offset);
    });
}

int writeFile(sqlite3_file *file, const void *buffer, int size, sqlite3_int64 offset) {
    changeCache(*own(file), [&](DiskCache &cache, const QString &path) {
        cache.write(path, offset, {static_cast<const char *>(buffer), size});
    });
    return unlessFailing(file, Need::Space, SQLITE_IOERR_WRITE, [&] {
        return below(file)->pMethods->xWrite(below(file), buffer, size, offset);
    });
}

int truncateFile(sqlite3_file *file, sqlite3_int64 size) {
    changeCache(*own(file), [&](DiskCache &cache, const QString &path) { cache.cut(path, size); });
    return unlessFailing(file, Need::Nothing, SQLITE_IOERR_TRUNCATE,
                         [&] { return below(file)->pMethods->xTruncate(below(file), size); });
}

int syncFile(sqlite3_file *file, int flags) {
    const int result = unlessFailing(file, Need::Flush, SQLITE_IOERR_FSYNC, [&] {
        return below(file)->pMethods->xSync(below(file), flags);
    });
    changeCache(*own(file), [&](DiskCache &cache, const QString &path) {
        result == SQLITE_OK ? cache.flush(path) : cache.drop(path);
    });
    return result;
}

int sizeOfFile(sqlite3_file *file, sqlite3_int64 *size) {
    return unlessFailing(file, Need::Nothing, SQLITE_IOERR_FSTAT,
                         [&] { return below(file)->pMethods->xFileSize(below(file), size); });
}

int lockFile(sqlite3_file *file, int lock) {
    return unlessFailing(file, Need::Nothing, SQLITE_IOERR_LOCK,
                         [&] { return below(file)->pMethods->xLock(below(file), lock); });
}

int unlockFile(sqlite3_file *file, int lock) {
    return below(file)->pMethods->xUnlock(below(file), lock);
}

int checkReservedLock(sqlite3_file *file, int *result) {
    return below(file)->pMethods->xCheckReservedLock(below(file), result);
}

int controlFile(sqlite3_file *file, int operation, void *argument) {
    const auto control = [&] {
        return below(file)->pMethods->xFileControl(below(file), operation, argument);
    };
    return operation == SQLITE_FCNTL_SIZE_HINT
               ? unlessFailing(file, Need::Space, SQLITE_IOERR_TRUNCATE, control)
               : control();
}

int sectorSize(sqlite3_file *file) {
    return below(file)->pMethods->xSectorSize(below(file));
}

int deviceCharacteristics(sqlite3_file *file) {
    return below(file)->pMethods->xDeviceCharacteristics(below(file));
}

int mapSharedMemory(sqlite3_file *file, int page, int size, int isExtending,
                    volatile void **memory) {
    return unlessFailing(
        file, isExtending ? Need::Space : Need::Nothing, SQLITE_IOERR_SHMSIZE, [&] {
            return below(file)->pMethods->xShmMap(below(file), page, size, isExtending, memory);
        });
}

int lockSharedMemory(sqlite3_file *file, int offset, int count, int flags) {
    return below(file)->pMethods->xShmLock(below(file), offset, count, flags);
}

void barrierOfSharedMemory(sqlite3_file *file) {
    below(file)->pMethods->xShmBarrier(below(file));
}

int unmapSharedMemory(sqlite3_file *file, int isDeleting) {
    return below(file)->pMethods->xShmUnmap(below(file), isDeleting);
}

const sqlite3_io_methods Methods = {2,
                                    closeFile,
                                    readFile,
                                    writeFile,
                                    truncateFile,
                                    syncFile,
                                    sizeOfFile,
                                    lockFile,
                                    unlockFile,
                                    checkReservedLock,
                                    controlFile,
                                    sectorSize,
                                    deviceCharacteristics,
                                    mapSharedMemory,
                                    lockSharedMemory,
                                    barrierOfSharedMemory,
                                    unmapSharedMemory,
                                    nullptr,
                                    nullptr};

int openFile(sqlite3_vfs * /*files*/, sqlite3_filename name, sqlite3_file *file, int flags,
             int *flagsFound) {
    constexpr int temporary = SQLITE_OPEN_TEMP_DB | SQLITE_OPEN_TEMP_JOURNAL |
                              SQLITE_OPEN_TRANSIENT_DB | SQLITE_OPEN_SUBJOURNAL;
    File *opened = own(file);
    opened->base.pMethods = nullptr;
    opened->isTemporary = (flags & temporary) != 0 || !name;
    opened->name = opened->isTemporary ? nullptr : name;
    if (fails(Need::Nothing, opened->isTemporary)) {
        return SQLITE_CANTOPEN;
    }
    const int result = systemFiles->xOpen(systemFiles, name, below(file), flags, flagsFound);
    if (below(file)->pMethods) {
        opened->base.pMethods = &Methods;
    }
    opened->number = numberOf(name);
    return result;
}

int deleteFile(sqlite3_vfs * /*files*/, const char *name, int isSyncing) {
    if (fails(Need::Nothing, false)) {
        return SQLITE_IOERR_DELETE;
    }
    plan().cache.remove(QFile::decodeName(name));
    return systemFiles->xDelete(systemFiles, name, isSyncing);
}

int accessFile(sqlite3_vfs * /*files*/, const char *name, int flags, int *result) {
    return fails(Need::Nothing, false) ? SQLITE_IOERR_ACCESS
                                       : systemFiles->xAccess(systemFiles, name, flags, result);
}

}  // namespace

FaultyFileSystem::FaultyFileSystem(Fault fault, qint64 first, Duration duration) {
    if (!systemFiles || plan().isActive) {
        throw std::logic_error("install() first, and have one at a time");
    }
    plan() = {.isActive = true, .fault = fault, .duration = duration, .first = first};
}

FaultyFileSystem::FaultyFileSystem(const QString &path, qint64 first)
    : FaultyFileSystem(Fault::Unreadable, first, Duration::FromThenOn) {
    plan().file = numberOf(QFile::encodeName(path).constData());
}

FaultyFileSystem::~FaultyFileSystem() {
    plan() = {};
}

bool FaultyFileSystem::hasFailed() const {
    return plan().hasFailed;
}

qint64 FaultyFileSystem::calls() const {
    return plan().calls;
}

void FaultyFileSystem::losePower(const QString &folder) const {
    plan().cache.losePower(folder);
}

void FaultyFileSystem::install() {
    if (systemFiles) {
        return;
    }
    systemFiles = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs files = *systemFiles;
    files.zName = "velmora-faulty";
    files.szOsFile = static_cast<int>(sizeof(File)) + systemFiles->szOsFile;
    files.xOpen = openFile;
    files.xDelete = deleteFile;
    files.xAccess = accessFile;
    if (sqlite3_vfs_register(&files, 1) != SQLITE_OK) {
        throw std::runtime_error("SQLite does not accept the file system");
    }
}
