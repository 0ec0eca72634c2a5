#include "Support/FaultyFolder.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>

using Fault = FaultyFolder::Fault;

struct FaultyFolder::Plan {
    QByteArray folder;
    Fault fault;
    Duration duration;
    qint64 first;
    Renaming renaming;
    QStringList calls;
    bool hasFailed = false;
};

namespace {

enum class Need { Nothing, Space, Bytes, BytesAndSpace };

// Constant, since functions below are called before and after any other object exists.
thread_local FaultyFolder::Plan *plan = nullptr;

bool isConcerned(Need need) {
    switch (plan->fault) {
        case Fault::Error:
            return true;
        case Fault::Full:
            return need == Need::Space || need == Need::BytesAndSpace;
        case Fault::Interrupted:
        case Fault::Short:
            return need == Need::Bytes || need == Need::BytesAndSpace;
    }
    return false;
}

QByteArray pathOf(int file) {
    std::array<char, PATH_MAX> path{};
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file);
    const ssize_t size = readlink(link.constData(), path.data(), path.size());
    return {path.data(), std::max<ssize_t>(size, 0)};
}

bool isInside(int file, const char *name) {
    const bool isAbsolute = name && *name == '/';
    const QByteArray path = isAbsolute ? QByteArray(name) : pathOf(file);
    return path == plan->folder || path.startsWith(plan->folder + '/');
}

/// Counts the call, and returns whether it must fail. `name` is relative to `file`, if there is
/// one. Leaves errno as it is.
bool fails(const char *call, Need need, int file, const char *name = nullptr) {
    if (!plan) {
        return false;
    }
    const int before = errno;
    bool isDue = false;
    if (isConcerned(need) && isInside(file, name)) {
        plan->calls.append(QString::fromLatin1(call));
        isDue = plan->duration == FaultyFolder::Duration::Once ? plan->calls.size() == plan->first
                                                               : plan->calls.size() >= plan->first;
        plan->hasFailed = plan->hasFailed || isDue;
    }
    errno = before;
    return isDue;
}

int errorOfPlan() {
    switch (plan->fault) {
        case Fault::Full:
            return ENOSPC;
        case Fault::Interrupted:
            return EINTR;
        default:
            return EIO;
    }
}

template <class Result>
Result failed(Result result) {
    errno = errorOfPlan();
    return result;
}

/// Returns the function that the one below hides.
template <class Function>
Function *hidden(Function * /*function*/, const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// Calls `transfer` with how much of `size` may be read or written.
template <class Transfer>
ssize_t transferUnlessFailing(const char *call, Need need, int file, size_t size,
                              const Transfer &transfer) {
    if (!fails(call, need, file)) {
        return transfer(size);
    }
    return plan->fault == Fault::Short ? transfer((size + 1) / 2) : failed<ssize_t>(-1);
}

}  // namespace

// These hide the functions of the C library from the program, but not from other libraries.
extern "C" {

// Except these, which the platform's library calls.
[[gnu::visibility("default")]] int rename(const char *oldName, const char *newName) noexcept {
    static const auto next = hidden(&rename, "rename");
    return fails("rename", Need::Space, AT_FDCWD, newName) ? failed(-1) : next(oldName, newName);
}

[[gnu::visibility("default")]] int unlinkat(int folder, const char *name, int flags) noexcept {
    static const auto next = hidden(&unlinkat, "unlinkat");
    return fails("unlinkat", Need::Nothing, folder, name) ? failed(-1) : next(folder, name, flags);
}

[[gnu::visibility("default")]] int fstatat(int folder, const char *name, struct stat *status,
                                           int flags) noexcept {
    static const auto next = hidden(&fstatat, "fstatat");
    return fails("fstatat", Need::Nothing, folder, name) ? failed(-1)
                                                         : next(folder, name, status, flags);
}

int open(const char *name, int flags, ...) {
    static const auto next = hidden(&open, "open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const Need need = (flags & O_CREAT) != 0 ? Need::Space : Need::Nothing;
    return fails("open", need, AT_FDCWD, name) ? failed(-1) : next(name, flags, mode);
}

int openat(int folder, const char *name, int flags, ...) {
    static const auto next = hidden(&openat, "openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const Need need = (flags & O_CREAT) != 0 ? Need::Space : Need::Nothing;
    return fails("openat", need, folder, name) ? failed(-1) : next(folder, name, flags, mode);
}

ssize_t read(int file, void *buffer, size_t size) {
    static const auto next = hidden(&read, "read");
    return transferUnlessFailing("read", Need::Bytes, file, size,
                                 [&](size_t part) { return next(file, buffer, part); });
}

ssize_t write(int file, const void *buffer, size_t size) {
    static const auto next = hidden(&write, "write");
    return transferUnlessFailing("write", Need::BytesAndSpace, file, size,
                                 [&](size_t part) { return next(file, buffer, part); });
}

int fsync(int file) {
    static const auto next = hidden(&fsync, "fsync");
    return fails("fsync", Need::Space, file) ? failed(-1) : next(file);
}

int fdatasync(int file) {
    static const auto next = hidden(&fdatasync, "fdatasync");
    return fails("fdatasync", Need::Space, file) ? failed(-1) : next(file);
}

int renameat2(int oldFolder, const char *oldName, int newFolder, const char *newName,
              unsigned flags) noexcept {
    static const auto next = hidden(&renameat2, "renameat2");
    if (plan && plan->renaming == FaultyFolder::Renaming::WithoutFlags && flags != 0 &&
        isInside(newFolder, newName)) {
        errno = EINVAL;
        return -1;
    }
    return fails("renameat2", Need::Space, newFolder, newName)
               ? failed(-1)
               : next(oldFolder, oldName, newFolder, newName, flags);
}

int linkat(int oldFolder, const char *oldName, int newFolder, const char *newName,
           int flags) noexcept {
    static const auto next = hidden(&linkat, "linkat");
    return fails("linkat", Need::Space, newFolder, newName)
               ? failed(-1)
               : next(oldFolder, oldName, newFolder, newName, flags);
}

int mkdirat(int folder, const char *name, mode_t mode) noexcept {
    static const auto next = hidden(&mkdirat, "mkdirat");
    return fails("mkdirat", Need::Space, folder, name) ? failed(-1) : next(folder, name, mode);
}

DIR *fdopendir(int folder) {
    static const auto next = hidden(&fdopendir, "fdopendir");
    return fails("fdopendir", Need::Nothing, folder) ? failed<DIR *>(nullptr) : next(folder);
}

dirent *readdir(DIR *entries) {
    static const auto next = hidden(&readdir, "readdir");
    return fails("readdir", Need::Nothing, dirfd(entries)) ? failed<dirent *>(nullptr)
                                                           : next(entries);
}

int fstat(int file, struct stat *status) noexcept {
    static const auto next = hidden(&fstat, "fstat");
    return fails("fstat", Need::Nothing, file) ? failed(-1) : next(file, status);
}

int fchmod(int file, mode_t mode) noexcept {
    static const auto next = hidden(&fchmod, "fchmod");
    return fails("fchmod", Need::Nothing, file) ? failed(-1) : next(file, mode);
}

}  // extern "C"

FaultyFolder::FaultyFolder(const QString &path, Fault fault, qint64 first, Duration duration,
                           Renaming renaming)
    : m_plan(std::make_unique<Plan>()) {
    if (plan) {
        throw std::logic_error("have one at a time");
    }
    *m_plan = {QFile::encodeName(path), fault, duration, first, renaming, {}};
    plan = m_plan.get();
}

FaultyFolder::~FaultyFolder() {
    plan = nullptr;
}

bool FaultyFolder::hasFailed() const {
    return m_plan->hasFailed;
}

const QStringList &FaultyFolder::calls() const {
    return m_plan->calls;
}
