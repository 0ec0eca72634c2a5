#pragma once

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/Http/HttpClient.h"

class CertificateTrust;

/// A package on a WebDAV server (RFC 4918), laid out as a FolderStore is. Opening makes a package
/// that is not there yet, since nothing else does, but not the folder that holds it.
///
/// The server's challenge is answered with the credential that is stored for the location's URL:
/// that of its user under the protection space of HTTP Basic, else the default one there. A Digest
/// challenge is answered with one under HTTP Digest if there is none under HTTP Basic; such a
/// credential is never sent with Basic. A server whose certificate is not trusted fails, and the
/// person is asked whether to trust it from the next try on.
///
/// A blob is written by one PUT on the condition that there is none (RFC 9110, 13.1.2). Whether a
/// name holds a folder is not looked at before it is removed.
class WebDAVStore : public BlobStore {
public:
    /// `locationIdentifier`: what trusted certificates are kept for. `trust` must not be null.
    WebDAVStore(const std::shared_ptr<QVSyncLocation> &location, const QString &locationIdentifier,
                std::shared_ptr<CertificateTrust> trust,
                HttpClient::Timeouts timeouts = HttpClient::Timeouts());

    /// Bytes of the answer that lists a folder; enough for some hundred thousand blobs.
    static constexpr qint64 ListingLimit = 64 << 20;

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

    HttpClient::Options clientOptions(const QString &locationIdentifier,
                                      std::shared_ptr<CertificateTrust> trust,
                                      HttpClient::Timeouts timeouts);
    std::optional<UrlCredential> credential(HttpAuthentication::Scheme scheme);
    QUrl blobURL(const QString &name) const;
    QUrl folderURL(const QString &name) const;
    Expected<QStringList> namesInPackage(const EngineFuture &future);
    Expected<Response> propertiesOfAll(const QString &folder, const EngineFuture &future);
    Expected<QStringList> names(const QString &folder, const Expected<Response> &answer,
                                const EngineFuture &future) const;
    Expected<Response> put(const QString &name, const QByteArray &contents,
                           const EngineFuture &future);
    Expected<void> makeFoldersAbove(const QString &name, const EngineFuture &future);
    Expected<void> makeFolder(const QString &name, const EngineFuture &future);
    /// The error of a request for `name` that `response` answers.
    Error httpError(const Response &response, const QString &name) const;
    Error unexpected(const Response &response) const;
    Error credentialRefused(const Response &response) const;
    Error folderMissing(const QUrl &URL) const;
    Error notUnderstood() const;

    const QUrl m_package;
    std::atomic<bool> m_hasCredential = false;
    HttpClient m_client;
};
