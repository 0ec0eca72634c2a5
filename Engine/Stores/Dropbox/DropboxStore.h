#pragma once

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/Dropbox/DropboxAccount.h"

/// A package in a Dropbox account, which is named by the location's URL: "dropbox://" and the
/// account's e-mail address. There is one package in an account, the folder "/Velmora.qvSyncStore",
/// laid out as a FolderStore is; Dropbox makes it and the folders in it when something is written
/// there, so that one which is not there is as good as an empty one.
///
/// A blob is written with the mode "add" and strict about conflicts, so that a name which is taken
/// stays as it is. Dropbox does not tell names apart by their case. Whether a name holds a folder
/// is not looked at before it is removed. The interface is that of
/// https://www.dropbox.com/developers/documentation/http, version 2.
class DropboxStore : public BlobStore {
public:
    explicit DropboxStore(const std::shared_ptr<QVSyncLocation> &location,
                          HttpClient::Timeouts timeouts = HttpClient::Timeouts());

    /// Bytes of one page of the answer that lists a folder.
    static constexpr qint64 PageLimit = 4 << 20;
    /// Bytes of memory for the names of one folder; a longer listing is refused.
    static constexpr qsizetype ListingLimit = 64 << 20;
    /// Of one folder; a list that goes on is not understood.
    static constexpr int MostPages = 10000;
    /// Bytes; Dropbox takes no longer blob in one piece.
    static constexpr qint64 ContentsLimit = 150 << 20;

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
    using Response = HttpClient::Response;

    Expected<Response> firstPage(const QString &folder, const EngineFuture &future);
    Expected<Response> nextPage(const QString &cursor, const EngineFuture &future);
    Error routeError(const Response &response, const QString &name) const;
    Error pathError(const Response &response, const QString &name) const;

    const QString m_accountAddress;
    DropboxAccount m_account;
};
