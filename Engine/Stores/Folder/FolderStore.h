#pragma once

#include "Engine/Stores/BlobStore.h"
#include "Platform/Foundation/FileDescriptor.h"

class FolderGrants;

/// A package on a local or mounted volume: a folder with the extension "qvSyncStore" that contains
/// the folders "databases" and "transactions". Inside the package, symbolic links are not followed
/// and only plain files are read.
///
/// New files and folders in the package have the permissions of the folder that contains them,
/// regardless of the umask, so that they are as private as the package. A file that is being
/// written has a name that starts with ".new-"; one that is older than a day by the clock of the
/// file system is removed when its folder is listed.
///
/// If the profile is sandboxed, every operation on a package whose real path (with all symbolic
/// links resolved) is in no granted folder fails with the code AccessDenied. A call of the system
/// to a volume that does not respond cannot be cancelled: the operation then hangs, on its own
/// thread, until the volume responds. Operations check the package anew each time, so a volume may
/// be removed and connected between them.
class FolderStore : public BlobStore {
public:
    /// `grants` must not be null. Does not access the file system.
    FolderStore(const std::shared_ptr<QVSyncLocation> &location,
                std::shared_ptr<StoreOperations> operations,
                std::shared_ptr<const FolderGrants> grants);

    /// Maximum memory in bytes for the names of one folder; a longer listing is refused.
    static constexpr qsizetype ListingLimit = 48 << 20;

    /// Fails if the volume is not mounted, or the package or one of its folders does not exist or
    /// is not accessible. Creates nothing.
    Expected<void> open(const EngineFuture &future) override;
    /// Returns the path of the file.
    QString place(const QString &name) const override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;
    Expected<std::optional<qint64>> sizeOfFolder(const QString &folder,
                                                 const EngineFuture &future) override;

private:
    /// Whether folders that do not exist are created.
    enum class Folders { Existing, Made };

    /// Returns the reason why the package cannot exist, if one is known.
    Expected<void> checkPackage() const;
    /// Opens the package's folder and checks the grants.
    Expected<FileDescriptor> package() const;
    /// Open the folder `name` in the package (the package itself if it is empty), or the folder
    /// that contains the blob `name`.
    Expected<FileDescriptor> folder(const QString &name, Folders folders) const;
    Expected<FileDescriptor> folderOf(const QString &name, Folders folders) const;
    Error doesNotExist() const;
    Error notGranted() const;
    /// Returns the error for a system call on the blob `name` that failed with the errno value
    /// `number`.
    Error systemError(int number, const QString &name) const;
    /// Returns the same without details.
    Error errorInWords(int number, const QString &name) const;

    const std::shared_ptr<const FolderGrants> m_grants;
};
