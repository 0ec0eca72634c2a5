#include "Engine/Stores/Dropbox/DropboxError.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

Error DropboxError::notSignedIn(const QString &account) {
    return engineError(EngineErrorCode::AccessDenied,
                       "Velmora is not signed in to Dropbox as “%1”. Edit the location to sign in.",
                       account);
}

Error DropboxError::otherAccount(const QString &account, const QString &signedIn) {
    return engineError(
        EngineErrorCode::AccessDenied,
        localizedSyncString(
            "You signed in to Dropbox as “%1”, but this location belongs to “%2”. Sign out of "
            "Dropbox in your browser, edit the location again, and sign in as “%2”.")
            .arg(signedIn, account));
}

Error DropboxError::signInAgain(const QString &account) {
    return engineError(
        EngineErrorCode::AccessDenied,
        "The sign-in to Dropbox as “%1” is no longer valid. Edit the location to sign in again.",
        account);
}

Error DropboxError::unexpected(const HttpClient::Response &response, const QUrl &server) {
    switch (response.status) {
        case HttpStatus::Forbidden:
            return HttpError::accessDenied(server.authority());
        case HttpStatus::TooManyRequests:
        case HttpStatus::ServiceUnavailable:
            return HttpError::busy(server);
        default:
            return HttpError::unexpectedStatus(response.status, server);
    }
}

Error DropboxError::invalidValue(const QString &key, const QUrl &server) {
    Error error = HttpError::invalidResponse(server);
    error.details =
        localizedSyncString("“%1” is missing from the response or is not valid.").arg(key);
    return error;
}
