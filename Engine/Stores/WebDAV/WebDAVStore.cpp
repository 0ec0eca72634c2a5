#include "Engine/Stores/WebDAV/WebDAVStore.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/FoundSecret.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Engine/Stores/Http/HttpError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/LocationSchemes.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Foundation/PercentEscapes.h"
#include "Platform/Security/UrlCredentialStorage.h"

namespace {

/// Returns the URL of the package without a slash at the end and without the parts that are not
/// sent.
QUrl packageURL(const Url &URL) {
    QUrl result = QUrl::fromEncoded(URL.absoluteString().toUtf8(), QUrl::StrictMode);
    return result.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment |
                           QUrl::StripTrailingSlash);
}

/// Returns the URL as text for the user.
QString plainText(const QUrl &URL) {
    return URL.scheme() + QStringLiteral("://") + URL.authority() + URL.path(QUrl::FullyDecoded);
}

QStringList decodedParts(const QUrl &URL) {
    QStringList parts;
    for (const QString &part : URL.path(QUrl::FullyEncoded).split(u'/', Qt::SkipEmptyParts)) {
        parts.append(PercentEscapes::decoding(part));
    }
    return parts;
}

/// Returns whether a server may respond with `status` to PUT because the folder does not exist.
/// RFC 4918 asks for 409, but SabreDAV and rclone respond with 404, and nginx with 500.
bool mayLackFolder(int status) {
    return status == HttpStatus::Conflict || status == HttpStatus::NotFound ||
           status == HttpStatus::InternalServerError;
}

/// A credential stored for Basic may be used with Digest, which does not disclose it, but not vice
/// versa.
Expected<std::optional<UrlCredential>> storedCredential(const Url &URL,
                                                        HttpAuthentication::Scheme scheme,
                                                        const std::stop_token &cancellation) {
    const UrlCredentialStorage &storage = UrlCredentialStorage::shared();
    return scheme == HttpAuthentication::Scheme::Basic
               ? storage.credentialForURL(URL, UrlAuthenticationMethodHttpBasic, cancellation)
               : storage.credentialForURL(URL, cancellation);
}

}  // namespace

WebDAVStore::WebDAVStore(const std::shared_ptr<QVSyncLocation> &location,
                         std::shared_ptr<StoreOperations> operations,
                         const QString &locationIdentifier, std::shared_ptr<CertificateTrust> trust,
                         HttpClient::Timeouts timeouts, std::shared_ptr<HttpSession> session)
    : BlobStore(location, std::move(operations)),
      m_package(packageURL(URL())),
      m_client(clientOptions(locationIdentifier, std::move(trust), timeouts), std::move(session)) {}

HttpClient::Options WebDAVStore::clientOptions(const QString &locationIdentifier,
                                               std::shared_ptr<CertificateTrust> trust,
                                               HttpClient::Timeouts timeouts) {
    const auto trusts = [locationIdentifier, trust = std::move(trust),
                         server = m_package.authority()](const QSslCertificate &certificate,
                                                         const QStringList &reasons) {
        const bool isTrusted = trust->contains(locationIdentifier, certificate);
        if (!isTrusted) {
            trust->ask(locationIdentifier, server, certificate, reasons);
        }
        return isTrusted;
    };
    const auto credentials = [this](HttpAuthentication::Scheme scheme,
                                    const std::stop_token &cancellation) {
        return credential(scheme, cancellation);
    };
    return {timeouts, credentials, trusts};
}

Expected<std::optional<UrlCredential>> WebDAVStore::credential(
    HttpAuthentication::Scheme scheme, const std::stop_token &cancellation) {
    Expected<std::optional<UrlCredential>> credential =
        foundSecret(storedCredential(URL(), scheme, cancellation));
    m_hasCredential = credential && credential->has_value();
    const bool isReadable =
        scheme == HttpAuthentication::Scheme::Basic && URL().scheme() == LocationSchemes::Http;
    if (!m_hasCredential || !isReadable) {
        return credential;
    }
    const Expected<bool> isAccepted = UnencryptedPasswords::areAccepted(URL());
    if (!isAccepted) {
        return failure(
            engineError(EngineErrorCode::AccessDenied, isAccepted.error().localizedDescription));
    }
    if (!*isAccepted) {
        return failure(engineError(
            EngineErrorCode::AccessDenied,
            "The password for “%1” was not sent, because others on the network could read it. Edit "
            "the location: choose HTTPS, or accept that.",
            m_package.authority()));
    }
    return credential;
}

QString WebDAVStore::place(const QString &name) const {
    return plainText(blobURL(name));
}

QUrl WebDAVStore::blobURL(const QString &name) const {
    QUrl result = m_package;
    if (!name.isEmpty()) {
        const QByteArray encoded = PercentEscapes::encoding(name, "/");
        result.setPath(m_package.path(QUrl::FullyEncoded) + u'/' + QString::fromLatin1(encoded),
                       QUrl::TolerantMode);
    }
    return result;
}

QUrl WebDAVStore::folderURL(const QString &name) const {
    QUrl result = blobURL(name);
    result.setPath(result.path(QUrl::FullyEncoded) + u'/', QUrl::TolerantMode);
    return result;
}

Expected<void> WebDAVStore::open(const EngineFuture &future) {
    if (!m_package.isValid() || !m_package.path().endsWith(u'.' + SyncStoreLayout::Extension)) {
        return failure(notSyncStore(URL().stringWithoutPassword()));
    }
    const Expected<QStringList> names = namesInPackage(future);
    if (!names) {
        return failure(names.error());
    }
    const QStringList needed = {SyncStoreLayout::DatabasesFolder,
                                SyncStoreLayout::TransactionsFolder};
    const auto &present = *names;
    if (!present.isEmpty() && !present.contains(needed.first()) &&
        !present.contains(needed.last())) {
        return failure(notSyncStore(place({})));
    }
    for (const QString &folder : needed) {
        Expected<void> made;
        if (!present.contains(folder)) {
            made = makeFolder(folder, future);
        }
        if (!made) {
            return made;
        }
    }
    return {};
}

Expected<QStringList> WebDAVStore::namesInPackage(const EngineFuture &future) {
    Expected<Response> response = propertiesOfAll({}, future);
    if (response && response->status == HttpStatus::NotFound) {
        const Expected<void> made = makeFolder({}, future);
        return made ? Expected<QStringList>(QStringList()) : failure(made.error());
    }
    return names({}, std::move(response), future);
}

Expected<QStringList> WebDAVStore::listFolder(const QString &folder, const EngineFuture &future) {
    Expected<Response> response = propertiesOfAll(folder, future);
    if (response && response->status == HttpStatus::NotFound) {
        return QStringList();
    }
    return names(folder, std::move(response), future);
}

Expected<std::optional<qint64>> WebDAVStore::sizeOfFolder(const QString &folder,
                                                          const EngineFuture &future) {
    const Expected<Response> response =
        propertiesOfAll(folder, future, "<resourcetype/><getcontentlength/>");
    if (!response) {
        return failure(response.error());
    }
    if (response->status == HttpStatus::NotFound) {
        return 0;
    }
    if (response->status != HttpStatus::MultiStatus) {
        return failure(httpError(*response, folder));
    }
    const auto listing = WebDAVMultiStatus::parse(response->body, future);
    if (!listing) {
        return failure(notParsed(listing.error()));
    }
    qint64 size = 0;
    for (const WebDAVMultiStatus::Resource &resource : listing->resources) {
        size += resource.isFolder ? 0 : resource.size;
    }
    return size;
}

Expected<HttpClient::Response> WebDAVStore::propertiesOfAll(const QString &folder,
                                                            const EngineFuture &future,
                                                            const QByteArray &properties) {
    return m_client.send({.method = "PROPFIND",
                          .URL = folderURL(folder),
                          .headers = {{"Depth", "1"}, {"Content-Type", "application/xml"}},
                          .body = "<?xml version=\"1.0\"?><propfind xmlns=\"DAV:\"><prop>" +
                                  properties + "</prop></propfind>",
                          .limit = ListingLimit},
                         future);
}

Expected<QStringList> WebDAVStore::names(const QString &folder, Expected<Response> response,
                                         const EngineFuture &future) const {
    if (!response) {
        return failure(response.error());
    }
    if (response->status != HttpStatus::MultiStatus) {
        return failure(httpError(*response, folder));
    }
    auto listing = WebDAVMultiStatus::parse(response->body, future);
    // Each is large, and is not needed any more when the next one is made.
    response->body.clear();
    if (!listing) {
        return failure(notParsed(listing.error()));
    }
    const QUrl folderItself = folderURL(folder);
    const QStringList above = decodedParts(folderItself);
    QStringList names;
    names.reserve(listing->resources.size());
    bool hasFolderItself = false;
    for (WebDAVMultiStatus::Resource &resource : listing->resources) {
        if (future.isCancelled()) {
            return failure(operationCancelled());
        }
        const QStringList parts = decodedParts(
            folderItself.resolved(QUrl::fromEncoded(std::exchange(resource.href, {}))));
        const bool isBelow =
            parts.size() <= above.size() + 1 && parts.mid(0, above.size()) == above;
        if (!isBelow || (parts == above && resource.isFailed)) {
            return failure(HttpError::invalidResponse(m_package));
        }
        if (parts == above && !resource.isFolder) {
            return failure(refused(folder));
        }
        hasFolderItself |= parts == above;
        names.append(parts.mid(above.size()));
    }
    // A response without it lists nothing, instead of an empty folder.
    return hasFolderItself ? Expected<QStringList>(names)
                           : failure(HttpError::invalidResponse(m_package));
}

Expected<QByteArray> WebDAVStore::readBlob(const QString &name, qint64 limit,
                                           const EngineFuture &future) {
    const Expected<Response> response =
        m_client.send({.method = "GET", .URL = blobURL(name), .limit = limit}, future);
    if (!response) {
        const bool isTooLong = isEngineError(response.error(), EngineErrorCode::BlobRefused);
        return failure(isTooLong ? tooLong(name) : response.error());
    }
    if (response->status == HttpStatus::NotFound) {
        return failure(missing(name));
    }
    if (response->status != HttpStatus::OK) {
        return failure(httpError(*response, name));
    }
    // Otherwise a truncated response could not be detected.
    const bool hasEnd = !response->header("Content-Length").isEmpty() ||
                        response->header("Transfer-Encoding").toLower() == "chunked";
    return hasEnd ? Expected<QByteArray>(response->body)
                  : failure(HttpError::invalidResponse(m_package));
}

Expected<BlobStore::Written> WebDAVStore::writeBlob(const QString &name, const QByteArray &contents,
                                                    const EngineFuture &future) {
    Expected<Response> response = put(name, contents, future);
    if (response && mayLackFolder(response->status)) {
        if (const Expected<void> made = makeFoldersAbove(name, future); !made) {
            return failure(made.error());
        }
        response = put(name, contents, future);
    }
    if (!response) {
        return failure(response.error());
    }
    switch (response->status) {
        case HttpStatus::OK:
        case HttpStatus::Created:
        case HttpStatus::NoContent:
            return Written::New;
        case HttpStatus::PreconditionFailed:
            return Written::AlreadyThere;
        default:
            return failure(httpError(*response, name));
    }
}

Expected<void> WebDAVStore::removeBlob(const QString &name, const EngineFuture &future) {
    const Expected<Response> response =
        m_client.send({.method = "DELETE", .URL = blobURL(name)}, future);
    if (!response) {
        return failure(response.error());
    }
    const bool isGone = response->status == HttpStatus::OK ||
                        response->status == HttpStatus::NoContent ||
                        response->status == HttpStatus::NotFound;
    return isGone ? Expected<void>() : failure(httpError(*response, name));
}

Expected<HttpClient::Response> WebDAVStore::put(const QString &name, const QByteArray &contents,
                                                const EngineFuture &future) {
    return m_client.send(
        {.method = "PUT",
         .URL = blobURL(name),
         .headers = {{"If-None-Match", "*"}, {"Content-Type", "application/octet-stream"}},
         .body = contents},
        future);
}

Expected<void> WebDAVStore::makeFoldersAbove(const QString &name, const EngineFuture &future) {
    Expected<void> made;
    for (qsizetype end = name.indexOf(u'/'); end >= 0 && made; end = name.indexOf(u'/', end + 1)) {
        made = makeFolder(name.first(end), future);
    }
    return made;
}

Expected<void> WebDAVStore::makeFolder(const QString &name, const EngineFuture &future) {
    const QUrl folder = folderURL(name);
    const Expected<Response> response = m_client.send({.method = "MKCOL", .URL = folder}, future);
    if (!response) {
        return failure(response.error());
    }
    switch (response->status) {
        case HttpStatus::Forbidden: {
            // Apache also responds like this if another request has just created the folder.
            const Expected<Response> found = propertiesOfAll(name, future);
            const bool isThere = found && found->status == HttpStatus::MultiStatus;
            return isThere ? Expected<void>() : failure(httpError(*response, name));
        }
        case HttpStatus::Created:
        // The folder exists.
        case HttpStatus::MethodNotAllowed:
            return {};
        case HttpStatus::NotFound:
        case HttpStatus::Conflict:
            return failure(folderMissing(folder.resolved(QUrl(QStringLiteral("..")))));
        default:
            return failure(httpError(*response, name));
    }
}

Error WebDAVStore::httpError(const Response &response, const QString &name) const {
    Error error = refusal(response, name);
    error.details = QStringLiteral("HTTP %1: %2").arg(response.status).arg(place(name));
    return error;
}

Error WebDAVStore::refusal(const Response &response, const QString &name) const {
    const QString server = m_package.authority();
    switch (response.status) {
        case HttpStatus::Unauthorized:
            return credentialRefused(response);
        case HttpStatus::Forbidden:
            return HttpError::accessDenied(place(name));
        case HttpStatus::NotFound:
        case HttpStatus::Conflict:
            return folderMissing(blobURL(name));
        case HttpStatus::OK:
        case HttpStatus::MethodNotAllowed:
        case HttpStatus::NotImplemented:
            return engineError(EngineErrorCode::StoreUnreachable,
                               "The server “%1” does not offer WebDAV at this address. Edit the "
                               "location to correct it.",
                               server);
        case HttpStatus::ContentTooLarge:
            return HttpError::tooLarge(place(name));
        case HttpStatus::Locked:
            return engineError(EngineErrorCode::StoreUnreachable,
                               "“%1” is locked on the server. Try again later.", place(name));
        case HttpStatus::TooManyRequests:
        case HttpStatus::ServiceUnavailable:
            return HttpError::busy(m_package);
        case HttpStatus::InsufficientStorage:
            return engineError(
                EngineErrorCode::StoreFull,
                "The server “%1” has no space left. Delete files there or ask its administrator.",
                server);
        default:
            return HttpError::unexpectedStatus(response.status, m_package);
    }
}

Error WebDAVStore::credentialRefused(const Response &response) const {
    if (!HttpAuthentication::fromChallenges(response.header("WWW-Authenticate"))) {
        return engineError(EngineErrorCode::AccessDenied,
                           "The server “%1” supports neither Basic nor Digest authentication with "
                           "MD5 or SHA-256. Ask its administrator to allow one of them.",
                           m_package.authority());
    }
    if (!m_hasCredential) {
        return engineError(EngineErrorCode::AccessDenied,
                           "The server “%1” requires a password, but none is saved for this "
                           "location. Edit the location to enter it.",
                           m_package.authority());
    }
    return engineError(EngineErrorCode::PasswordRefused,
                       "The server “%1” does not accept this user name and password. Edit the "
                       "location to correct them.",
                       m_package.authority());
}

Error WebDAVStore::folderMissing(const QUrl &URL) const {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        "The folder “%1” does not exist on the server. Create it there or edit the location.",
        plainText(URL.adjusted(QUrl::StripTrailingSlash)));
}

Error WebDAVStore::notParsed(WebDAVMultiStatus::Failure reason) const {
    return reason == WebDAVMultiStatus::Failure::Cancelled ? operationCancelled()
                                                           : HttpError::invalidResponse(m_package);
}
