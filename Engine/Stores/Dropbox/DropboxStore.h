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
    static constexpr qint64 PageLimit = 16 << 20;
    /// Of one folder; a list that goes on is not understood.
    static constexpr int MostPages = 10000;
    /// Bytes; Dropbox takes no longer blob in one piece.
    static constexpr qint64 ContentsLimit = 150 << 20;

    std::optional<Error> open(const EngineFuture &future) override;
    QString place(const QString &name) const override;

protected:
    Result<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Result<QByteArray> readBlob(const QString &name, qint64 limit,
                                const EngineFuture &future) override;
    Result<Written> writeBlob(const QString &name, const QByteArray &contents,
                              const EngineFuture &future) override;
    std::optional<Error> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    using Response = HttpClient::Response;

    Result<Response> firstPage(const QString &folder, const EngineFuture &future);
    Result<Response> nextPage(const QString &cursor, const EngineFuture &future);
    Error failure(const Response &response, const QString &name) const;
    Error failureOfPath(const Response &response, const QString &name) const;

    const QString m_accountAddress;
    DropboxAccount m_account;
};
