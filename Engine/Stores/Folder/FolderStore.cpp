#include "Engine/Stores/Folder/FolderStore.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <QtCore/QByteArrayList>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>
#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Folder/FolderGrants.h"
#include "Engine/Stores/Folder/MountedVolumes.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
constexpr mode_t FolderPermissions = S_ISGID | S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t FilePermissions = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// A larger file counts as one of this size, so that the sum of all does not overflow. No record is
/// as large.
constexpr qint64 LargestSize = 1LL << 30;

/// The start of the name of a file that is being written.
const QByteArray UnfinishedPrefix = QByteArrayLiteral(".new-");
/// No process takes longer to write a file.
constexpr time_t SecondsUntilLeftOver = time_t(24) * 60 * 60;

/// The result of a call of the system: its value, or the errno value.
template <class Value>
using SystemResult = tl::expected<Value, int>;

/// Returns the error of the last call of the system.
tl::unexpected<int> systemFailure() {
    return tl::unexpected<int>(errno);
}

SystemResult<void> resultOf(bool hasSucceeded) {
    return hasSucceeded ? SystemResult<void>() : systemFailure();
}

QString lastPart(const QString &name) {
    return name.section(u'/', -1);
}

bool isMissing(const Error &error) {
    return isEngineError(error, EngineErrorCode::BlobMissing);
}

/// Reads to the end of a file of about `size` bytes, but no more than one byte beyond `limit`.
SystemResult<QByteArray> readAll(int file, qint64 size, qint64 limit) {
    // No more memory is allocated than the file has, unless it grows meanwhile.
    QByteArray contents(std::min(std::max<qint64>(size, 4096), limit) + 1, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < contents.size()) {
        const ssize_t count =
            ::read(file, contents.data() + done, static_cast<size_t>(contents.size() - done));
        if (count < 0 && errno != EINTR) {
            return systemFailure();
        }
        if (count == 0) {
            break;
        }
        done += std::max<ssize_t>(count, 0);
        if (done == contents.size() && done <= limit) {
            contents.resize(std::min(2 * done, limit + 1));
        }
    }
    contents.truncate(done);
    return contents;
}

SystemResult<void> writeAll(int file, const QByteArray &contents) {
    qsizetype written = 0;
    while (written < contents.size()) {
        const ssize_t count = ::write(file, contents.constData() + written,
                                      static_cast<size_t>(contents.size() - written));
        if (count < 0 && errno != EINTR) {
            return systemFailure();
        }
        written += std::max<ssize_t>(count, 0);
    }
    return resultOf(fdatasync(file) == 0);
}

/// Makes the entries of an open folder durable.
SystemResult<void> synchronizeFolder(int folder) {
    // Some file systems cannot synchronize a folder, and need not.
    return resultOf(fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP);
}

/// Gives a new item the permissions of the folder that contains it, as far as `mask` allows. If the
/// file system has no such permissions, the item remains accessible to its owner only.
SystemResult<void> inheritPermissions(int item, int folder, mode_t mask) {
    struct stat status = {};
    return resultOf(fstat(folder, &status) == 0 &&
                    (fchmod(item, status.st_mode & mask) == 0 || errno == EPERM ||
                     errno == EACCES || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS));
}

SystemResult<FileDescriptor> openFolder(int parent, const QByteArray &name) {
    FileDescriptor folder(openat(parent, name.constData(), FolderFlags | O_NOFOLLOW));
    return folder.isValid() ? SystemResult<FileDescriptor>(std::move(folder)) : systemFailure();
}

/// Creates the folder `name` unless it exists, and makes it durable.
SystemResult<void> makeFolder(int parent, const QByteArray &name) {
    if (mkdirat(parent, name.constData(), S_IRWXU) == 0) {
        const SystemResult<void> done =
            openFolder(parent, name).and_then([&](const FileDescriptor &made) {
                return inheritPermissions(made.number(), parent, FolderPermissions);
            });
        if (!done) {
            // Others who use the package could never read what is in it.
            unlinkat(parent, name.constData(), AT_REMOVEDIR);
            return done;
        }
    } else if (errno != EEXIST) {
        return systemFailure();
    }
    return synchronizeFolder(parent);
}

/// Returns the next entry of a folder; null at its end with errno 0, or after an error.
const dirent *nextEntry(DIR *entries) {
    errno = 0;
    return readdir(entries);
}

/// Returns the approximate memory in bytes for a name in a list.
template <class Name>
qsizetype memoryOf(const Name &name) {
    constexpr qsizetype overhead = 2 * sizeof(Name);
    return overhead + name.size() * qsizetype(sizeof *name.constData());
}

/// What a folder contains, as far as it was read.
struct Listing {
    QStringList names;
    /// Files that are not finished yet.
    QByteArrayList unfinished;
    qsizetype count = 0;
    qsizetype memory = 0;

    void add(const QByteArray &encoded) {
        ++count;
        if (encoded.startsWith(UnfinishedPrefix)) {
            unfinished.append(encoded);
            memory += memoryOf(unfinished.last());
        }
        const QString decoded = QFile::decodeName(encoded);
        if (QFile::encodeName(decoded) == encoded) {
            names.append(decoded);
            memory += memoryOf(names.last());
        }
    }
    bool isTooLong() const {
        return count > FolderStore::MostNames || memory > FolderStore::ListingLimit;
    }
};

/// Returns the name of a new file that is not finished yet.
QByteArray unfinishedName() {
    return UnfinishedPrefix + QUuid::createUuid().toByteArray(QUuid::Id128);
}

/// Creates a file that is not finished yet.
SystemResult<FileDescriptor> createUnfinished(int folder, const QByteArray &name) {
    FileDescriptor file(openat(folder, name.constData(),
                               O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
    return file.isValid() ? SystemResult<FileDescriptor>(std::move(file)) : systemFailure();
}

/// Returns the time by the clock of the file system, which may be that of a server. Fails if the
/// folder is not writable.
SystemResult<time_t> currentTime(int folder) {
    const QByteArray name = unfinishedName();
    return createUnfinished(folder, name).and_then([&](const FileDescriptor &file) {
        struct stat status = {};
        const SystemResult<void> done =
            resultOf(::write(file.number(), "", 1) == 1 && fstat(file.number(), &status) == 0);
        unlinkat(folder, name.constData(), 0);
        return done.map([&] { return status.st_mtime; });
    });
}

/// Removes those of the unfinished files `names` that a process left when it ended. The clocks of
/// this computer and of the one that writes a file may differ. Files that cannot be removed stay
/// until the folder is listed again.
void removeLeftOvers(int folder, const QByteArrayList &names) {
    if (names.isEmpty()) {
        return;
    }
    const SystemResult<time_t> now = currentTime(folder);
    for (const QByteArray &name : now ? names : QByteArrayList()) {
        struct stat status = {};
        if (fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(status.st_mode) && status.st_mtime < *now - SecondsUntilLeftOver) {
            unlinkat(folder, name.constData(), 0);
        }
    }
}

/// Fails with EEXIST if `to` exists.
SystemResult<void> renameIfAbsent(int folder, const QByteArray &from, const QByteArray &to) {
    if (renameat2(folder, from.constData(), folder, to.constData(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    // Network file systems without this flag support links.
    if ((errno != EINVAL && errno != ENOSYS) ||
        linkat(folder, from.constData(), folder, to.constData(), 0) != 0) {
        return systemFailure();
    }
    unlinkat(folder, from.constData(), 0);
    return {};
}

/// Writes a file that does not exist yet. Fails with EEXIST if it exists.
SystemResult<void> writeNew(int folder, const QByteArray &name, const QByteArray &contents) {
    const QByteArray temporaryName = unfinishedName();
    return createUnfinished(folder, temporaryName).and_then([&](const FileDescriptor &file) {
        return inheritPermissions(file.number(), folder, FilePermissions)
            .and_then([&] { return writeAll(file.number(), contents); })
            .and_then([&] { return renameIfAbsent(folder, temporaryName, name); })
            .map_error([&](int number) {
                unlinkat(folder, temporaryName.constData(), 0);
                return number;
            });
    });
}

/// Returns the path of an open folder, which no other folder can replace any more.
QString realPath(int folder) {
    return QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(folder));
}

}  // namespace

QString FolderStore::place(const QString &name) const {
    return name.isEmpty() ? URL().path() : URL().path() + u'/' + name;
}

Expected<void> FolderStore::checkPackage() const {
    const QString path = URL().path();
    const QString host = URL().host();
    if (!host.isEmpty() && host != QStringLiteral("localhost")) {
        return failure(
            engineError(EngineErrorCode::StoreUnreachable,
                        "“%1” is a folder on another computer. Choose a folder on this computer.",
                        URL().absoluteString()));
    }
    if (!path.startsWith(u'/')) {
        return failure(doesNotExist());
    }
    const Expected<bool> isMounted = MountedVolumes::contain(path, MountedVolumes::mountPoints);
    if (!isMounted) {
        return failure(isMounted.error());
    }
    if (!*isMounted) {
        return failure(engineError(EngineErrorCode::StoreUnreachable,
                                   "The volume that contains the sync store “%1” is not mounted. "
                                   "Connect it and try again.",
                                   path));
    }
    return {};
}

FolderStore::FolderStore(const std::shared_ptr<QVSyncLocation> &location,
                         std::shared_ptr<StoreOperations> operations,
                         std::shared_ptr<const FolderGrants> grants)
    : BlobStore(location, std::move(operations)), m_grants(std::move(grants)) {}

Expected<void> FolderStore::open(const EngineFuture & /*future*/) {
    if (Expected<void> checked = checkPackage(); !checked) {
        return checked;
    }
    const Expected<FileDescriptor> opened = package();
    if (!opened) {
        return failure(opened.error());
    }
    const QString path = URL().path();
    const Error notPackage = notSyncStore(path);
    if (QFileInfo(path).suffix() != SyncStoreLayout::Extension) {
        return failure(notPackage);
    }
    for (const QString &name :
         {SyncStoreLayout::DatabasesFolder, SyncStoreLayout::TransactionsFolder}) {
        const Expected<FileDescriptor> inner = folder(name, Folders::Existing);
        if (!inner) {
            const bool isNoFolder = isMissing(inner.error()) ||
                                    isEngineError(inner.error(), EngineErrorCode::BlobRefused);
            return failure(isNoFolder ? notPackage : inner.error());
        }
    }
    return {};
}

Expected<FileDescriptor> FolderStore::package() const {
    FileDescriptor package(::open(QFile::encodeName(URL().path()).constData(), FolderFlags));
    const int number = errno;
    if (package.isValid()) {
        return m_grants->permit(realPath(package.number()))
                   ? Expected<FileDescriptor>(std::move(package))
                   : failure(notGranted());
    }
    const Expected<void> checked = checkPackage();
    if (!checked) {
        return failure(checked.error());
    }
    return failure(number == ENOENT ? doesNotExist() : systemError(number, {}));
}

Expected<FileDescriptor> FolderStore::folder(const QString &name, Folders folders) const {
    Expected<FileDescriptor> current = package();
    for (const QString &part : name.split(u'/', Qt::SkipEmptyParts)) {
        if (!current) {
            break;
        }
        const int parent = current->number();
        const QByteArray partName = QFile::encodeName(part);
        SystemResult<FileDescriptor> child = openFolder(parent, partName);
        if (!child && child.error() == ENOENT && folders == Folders::Made) {
            child =
                makeFolder(parent, partName).and_then([&] { return openFolder(parent, partName); });
        }
        current = child ? Expected<FileDescriptor>(std::move(*child))
                        : failure(systemError(child.error(), name));
    }
    return current;
}

Expected<FileDescriptor> FolderStore::folderOf(const QString &name, Folders folders) const {
    return folder(name.section(u'/', 0, -2), folders);
}

Expected<QStringList> FolderStore::listFolder(const QString &name, const EngineFuture &future) {
    Expected<FileDescriptor> opened = folder(name, Folders::Existing);
    if (!opened) {
        return isMissing(opened.error()) ? Expected<QStringList>(QStringList())
                                         : failure(opened.error());
    }
    const int descriptor = opened->number();
    DIR *const entries = fdopendir(descriptor);
    if (!entries) {
        return failure(systemError(errno, name));
    }
    // It is closed with the entries.
    opened->take();
    Listing listing;
    while (const dirent *entry = nextEntry(entries)) {
        listing.add(static_cast<const char *>(entry->d_name));
        if (future.isCancelled() || listing.isTooLong()) {
            break;
        }
    }
    const int number = listing.isTooLong() ? 0 : errno;
    removeLeftOvers(descriptor, listing.unfinished);
    closedir(entries);
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    if (listing.isTooLong()) {
        return failure(tooManyNames(name));
    }
    return number == 0 ? Expected<QStringList>(listing.names) : failure(systemError(number, name));
}

Expected<QByteArray> FolderStore::readBlob(const QString &name, qint64 limit,
                                           const EngineFuture & /*future*/) {
    const Expected<FileDescriptor> folder = folderOf(name, Folders::Existing);
    if (!folder) {
        return failure(isMissing(folder.error()) ? missing(name) : folder.error());
    }
    // Opening or reading anything but a plain file could block forever.
    const FileDescriptor descriptor(
        openat(folder->number(), QFile::encodeName(lastPart(name)).constData(),
               O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (!descriptor.isValid() || fstat(descriptor.number(), &status) != 0) {
        return failure(systemError(errno, name));
    }
    if (!S_ISREG(status.st_mode)) {
        return failure(refused(name));
    }
    if (status.st_size > limit) {
        return failure(tooLong(name));
    }
    const auto contents = readAll(descriptor.number(), status.st_size, limit);
    if (!contents) {
        return failure(systemError(contents.error(), name));
    }
    return contents->size() <= limit ? Expected<QByteArray>(*contents) : failure(tooLong(name));
}

Expected<BlobStore::Written> FolderStore::writeBlob(const QString &name, const QByteArray &contents,
                                                    const EngineFuture & /*future*/) {
    const Expected<FileDescriptor> parent = folderOf(name, Folders::Made);
    if (!parent) {
        return failure(parent.error());
    }
    const int folder = parent->number();
    const QByteArray finalName = QFile::encodeName(lastPart(name));
    struct stat status = {};
    const bool isPresent =
        fstatat(folder, finalName.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (!isPresent && errno != ENOENT) {
        return failure(systemError(errno, name));
    }
    const SystemResult<void> written =
        isPresent ? tl::unexpected(EEXIST) : writeNew(folder, finalName, contents);
    const bool isThere = !written && written.error() == EEXIST;
    // Also if it exists: synchronizing the folder may have failed when it was written.
    return (isThere ? SystemResult<void>() : written)
        .and_then([&] { return synchronizeFolder(folder); })
        .map([&] { return isThere ? Written::AlreadyThere : Written::New; })
        .map_error([&](int number) { return systemError(number, name); });
}

Expected<void> FolderStore::removeBlob(const QString &name, const EngineFuture & /*future*/) {
    const Expected<FileDescriptor> folder = folderOf(name, Folders::Existing);
    if (!folder) {
        return isMissing(folder.error()) ? Expected<void>() : failure(folder.error());
    }
    const bool isGone =
        unlinkat(folder->number(), QFile::encodeName(lastPart(name)).constData(), 0) == 0 ||
        errno == ENOENT;
    return isGone ? Expected<void>() : failure(systemError(errno, name));
}

Expected<std::optional<qint64>> FolderStore::sizeOfFolder(const QString &name,
                                                          const EngineFuture &future) {
    const Expected<QStringList> names = listFolder(name, future);
    const Expected<FileDescriptor> opened = folder(name, Folders::Existing);
    if (!names || !opened) {
        return isMissing(names ? opened.error() : names.error())
                   ? Expected<std::optional<qint64>>(0)
                   : failure(names ? opened.error() : names.error());
    }
    qint64 size = 0;
    for (const QString &each : *names) {
        struct stat status = {};
        // It may have been removed meanwhile.
        if (fstatat(opened->number(), QFile::encodeName(each).constData(), &status,
                    AT_SYMLINK_NOFOLLOW) != 0 &&
            errno != ENOENT) {
            return failure(systemError(errno, name + u'/' + each));
        }
        size += S_ISREG(status.st_mode) ? std::min(qint64(status.st_size), LargestSize) : 0;
    }
    return size;
}

Error FolderStore::doesNotExist() const {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The sync store “%1” does not exist. Check whether it was moved or renamed.",
                       URL().path());
}

Error FolderStore::notGranted() const {
    return engineError(EngineErrorCode::AccessDenied,
                       "Velmora has no access to the folder “%1”. Grant it under “Folder Access…”.",
                       URL().path());
}

Error FolderStore::systemError(int number, const QString &name) const {
    Error error = errorInWords(number, name);
    error.details = QStringLiteral("%1: %2").arg(place(name), qt_error_string(number));
    return error;
}

Error FolderStore::errorInWords(int number, const QString &name) const {
    switch (number) {
        case ENOENT:
            return missing(name);
        case ELOOP:
        case ENOTDIR:
        case EISDIR:
        case ENXIO:
            return refused(name);
        case ENOSPC:
        case EDQUOT:
            return engineError(
                EngineErrorCode::StoreFull,
                "The volume that contains the sync store “%1” is full. Free some space on it.",
                URL().path());
        case EROFS:
            return engineError(
                EngineErrorCode::ReadOnly,
                "The sync store “%1” is read-only. Change its permissions or choose another one.",
                URL().path());
        case EACCES:
        case EPERM:
            return engineError(EngineErrorCode::AccessDenied,
                               "You do not have permission to use “%1”. Change its permissions or "
                               "choose another sync store.",
                               place(name));
        default:
            return engineError(EngineErrorCode::StoreUnreachable,
                               localizedSyncString("“%1” cannot be read or written: %2. Check its "
                                                   "disk and its permissions, then try again.")
                                   .arg(place(name), qt_error_string(number)));
    }
}
