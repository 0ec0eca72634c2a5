#include "Engine/Stores/Dropbox/DropboxError.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

Error DropboxError::notSignedIn(const QString &account) {
    return engineError(EngineErrorCode::AccessDenied,
                       "Not signed in to Dropbox as “%1”. Edit the location to do so.", account);
}

Error DropboxError::signInAgain(const QString &account) {
    return engineError(EngineErrorCode::AccessDenied,
                       "“%1” has to sign in to Dropbox again. Edit the location to do so.",
                       account);
}

Error DropboxError::unexpected(const HttpClient::Response &response, const QUrl &server) {
    switch (response.status) {
        case HttpStatus::Forbidden:
            return engineError(EngineErrorCode::AccessDenied,
                               "The server does not allow you to use “%1”.", server.authority());
        case HttpStatus::TooManyRequests:
        case HttpStatus::ServiceUnavailable:
            return busy(server);
        default:
            return engineError(EngineErrorCode::StoreUnreachable,
                               localizedSyncString(
                                   response.status >= HttpStatus::InternalServerError
                                       ? "The server “%1” has a problem of its own (HTTP %2)."
                                       : "The answer of the server “%1” is not expected (HTTP %2).")
                                   .arg(server.authority())
                                   .arg(response.status));
    }
}

Error DropboxError::notUnderstood(const QUrl &server) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The answer of the server “%1” is not understood.", server.authority());
}

Error DropboxError::busy(const QUrl &server) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The server “%1” is busy. Try again later.", server.authority());
}
