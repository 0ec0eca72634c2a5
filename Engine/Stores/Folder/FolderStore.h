#pragma once

#include "Engine/Stores/BlobStore.h"
#include "Platform/Foundation/FileDescriptor.h"

class FolderGrants;

/// A package on a local or mounted volume: a folder with the extension "qvSyncStore" that holds the
/// folders "databases" and "transactions". Within the package no symbolic link is followed, and
/// nothing but plain files is read.
///
/// Where the profile is sandboxed, whatever is done in a package that really, all symbolic links
/// followed, is in no granted folder fails with an error of the code AccessDenied.
class FolderStore : public BlobStore {
public:
    /// `grants` must not be null.
    FolderStore(const std::shared_ptr<QVSyncLocation> &location,
                std::shared_ptr<const FolderGrants> grants);

    Expected<void> open(const EngineFuture &future) override;
    QString place(const QString &name) const override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    enum class Folders { Existing, Made };

    /// Why the package cannot be there; empty if nothing is known against it.
    std::optional<Error> unreachable() const;
    Expected<FileDescriptor> package() const;
    /// The folder at `name` in the package, the package itself where that is empty.
    Expected<FileDescriptor> folder(const QString &name, Folders folders) const;
    Expected<FileDescriptor> folderOf(const QString &name, Folders folders) const;
    Error notGranted() const;
    /// The error of a system call on the blob `name` that failed with `number`.
    Error systemError(int number, const QString &name) const;

    const std::shared_ptr<const FolderGrants> m_grants;
};
