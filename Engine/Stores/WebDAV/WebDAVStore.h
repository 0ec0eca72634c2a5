#pragma once

#include <optional>
#include <stop_token>

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/Http/HttpClient.h"
#include "Engine/Stores/WebDAV/WebDAVMultiStatus.h"

class CertificateTrust;

/// A package on a WebDAV server (RFC 4918), with the same layout as a FolderStore. Opening creates
/// the package if it does not exist, but not the folder that contains it.
///
/// A challenge of the server is answered with the credential that is stored for the location's URL:
/// that of its user in the protection space of HTTP Basic, otherwise the default one there. A
/// Digest challenge is answered with one of HTTP Digest if there is none of HTTP Basic; such a
/// credential is never sent with Basic. If the server's certificate is not trusted, the operation
/// fails and the user is asked whether to trust it from the next attempt on.
///
/// A blob is written by a single PUT on the condition that none exists (RFC 9110, section 13.1.2).
/// Removing does not check whether a name is a folder.
class WebDAVStore : public BlobStore {
public:
    /// `locationIdentifier` identifies the location for which `trust`, which must not be null,
    /// stores certificates. `timeouts` apply to each request. `session`, which must not be null, is
    /// that of the location. Sends nothing yet.
    WebDAVStore(const std::shared_ptr<QVSyncLocation> &location,
                std::shared_ptr<StoreOperations> operations, const QString &locationIdentifier,
                std::shared_ptr<CertificateTrust> trust,
                HttpClient::Timeouts timeouts = HttpClient::Timeouts(),
                std::shared_ptr<HttpSession> session = std::make_shared<HttpSession>());

    /// Maximum size in bytes of a response that lists a folder; enough for about 100,000 blobs.
    static constexpr qint64 ListingLimit = 32 << 20;

    /// Checks that the server can be reached with the stored credential, and creates the package
    /// and its folders as needed. Fails if the folder at the URL has contents but is not a package.
    Expected<void> open(const EngineFuture &future) override;
    /// Returns the URL, decoded, without user and password.
    QString place(const QString &name) const override;
    int operationsAtOnce() const override { return 8; }

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;
    /// As the server reports it.
    Expected<std::optional<qint64>> sizeOfFolder(const QString &folder,
                                                 const EngineFuture &future) override;

private:
    using Response = HttpClient::Response;

    /// Returns the client's settings, whose callbacks use this object.
    HttpClient::Options clientOptions(const QString &locationIdentifier,
                                      std::shared_ptr<CertificateTrust> trust,
                                      HttpClient::Timeouts timeouts);
    /// Looks up the stored credential. Blocks.
    Expected<std::optional<UrlCredential>> credential(HttpAuthentication::Scheme scheme,
                                                      const std::stop_token &cancellation);
    /// Return the URL of a blob, and of a folder (with a slash at the end).
    QUrl blobURL(const QString &name) const;
    QUrl folderURL(const QString &name) const;
    /// Lists the package's own folder, which is created if it does not exist.
    Expected<QStringList> namesInPackage(const EngineFuture &future);
    /// Sends the PROPFIND request for `properties`, empty XML elements.
    Expected<Response> propertiesOfAll(const QString &folder, const EngineFuture &future,
                                       const QByteArray &properties = "<resourcetype/>");
    /// Returns the names in the response, which must describe the folder itself, too.
    Expected<QStringList> names(const QString &folder, Expected<Response> response,
                                const EngineFuture &future) const;
    Expected<Response> put(const QString &name, const QByteArray &contents,
                           const EngineFuture &future);
    /// Creates the folders that contain the blob `name`.
    Expected<void> makeFoldersAbove(const QString &name, const EngineFuture &future);
    /// Creates one folder. Succeeds if it exists.
    Expected<void> makeFolder(const QString &name, const EngineFuture &future);
    /// Returns the error for a request for `name` with the response `response`.
    Error httpError(const Response &response, const QString &name) const;
    /// Returns the same without details.
    Error refusal(const Response &response, const QString &name) const;
    /// Returns the error for a response with status 401, which depends on the reason.
    Error credentialRefused(const Response &response) const;
    Error folderMissing(const QUrl &URL) const;
    Error notParsed(WebDAVMultiStatus::Failure reason) const;

    /// The URL of the package without slash, user information, query and fragment.
    const QUrl m_package;
    /// Whether a credential was found, for the error message.
    std::atomic<bool> m_hasCredential = false;
    HttpClient m_client;
};
