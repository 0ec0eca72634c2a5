#pragma once

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/Dropbox/DropboxAccount.h"

/// A package in a Dropbox account, identified by the location's URL: "dropbox://" followed by the
/// account's e-mail address. An account contains one package, the folder "/Velmora.qvSyncStore",
/// with the same layout as a FolderStore. Dropbox creates it and its folders when a blob is
/// written, so a package that does not exist is equivalent to an empty one.
///
/// A blob is written with the mode "add" and strict conflicts, so an existing blob is never
/// overwritten. Dropbox does not distinguish names by case. Removing does not check whether a name
/// is a folder. Uses version 2 of https://www.dropbox.com/developers/documentation/http.
class DropboxStore : public BlobStore {
public:
    /// `refreshTurn`, which must not be null, is that of all stores of the account. `timeouts`
    /// apply to each request, and the total one also to all requests for a listing together. Does
    /// not access Dropbox; a URL without an account, or a configuration that is not valid, makes
    /// every operation fail.
    DropboxStore(const std::shared_ptr<QVSyncLocation> &location,
                 std::shared_ptr<StoreOperations> operations, std::shared_ptr<Turn> refreshTurn,
                 HttpClient::Timeouts timeouts = HttpClient::Timeouts());

    /// Maximum size in bytes of one page of a folder listing.
    static constexpr qint64 PageLimit = 4 << 20;
    /// Maximum memory in bytes for the names of one folder; a longer listing is refused.
    static constexpr qsizetype ListingLimit = 48 << 20;
    /// Maximum number of pages of a folder; a longer listing is an error.
    static constexpr int MostPages = 10000;
    /// Maximum size of a blob in bytes; Dropbox accepts no larger single upload.
    static constexpr qint64 ContentsLimit = 150 << 20;

    /// Lists the folder of the package, so an account that has not signed in, or has lost its
    /// permission, is reported. Succeeds if the folder does not exist. Creates nothing.
    Expected<void> open(const EngineFuture &future) override;
    /// Returns the URL of the location with the path in the account, which contains no secret.
    QString place(const QString &name) const override;
    int operationsAtOnce() const override { return 8; }

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    using Response = HttpClient::Response;

    /// Request a page of a folder's listing. A cursor that the server has reset begins anew.
    Expected<Response> firstPage(const QString &folder, const EngineFuture &future);
    Expected<Response> nextPage(const QString &cursor, const EngineFuture &future);
    /// Return the error for the response to a request for `name`.
    Error routeError(const Response &response, const QString &name) const;
    Error pathError(const Response &response, const QString &name) const;

    const QString m_accountAddress;
    const std::chrono::milliseconds m_listingTime;
    DropboxAccount m_account;
};
