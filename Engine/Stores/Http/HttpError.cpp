#include "Engine/Stores/Http/HttpError.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

Error HttpError::accessDenied(const QString &place) {
    return engineError(
        EngineErrorCode::AccessDenied,
        "The server does not allow you to use “%1”. Ask its administrator for access.", place);
}

Error HttpError::tooLarge(const QString &place) {
    return engineError(
        EngineErrorCode::StoreFull,
        "“%1” is larger than the server accepts. Ask its administrator to raise the limit.", place);
}

Error HttpError::busy(const QUrl &server) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The server “%1” is busy. Try again later.", server.authority());
}

Error HttpError::unexpectedStatus(int status, const QUrl &server) {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        localizedSyncString(status >= HttpStatus::InternalServerError
                                ? "The server “%1” reported an internal error (HTTP %2). Try again "
                                  "later or ask its administrator."
                                : "The server “%1” sent an unexpected response (HTTP %2). Try "
                                  "again later or ask its administrator.")
            .arg(server.authority())
            .arg(status));
}

Error HttpError::invalidResponse(const QUrl &server) {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        "The server “%1” sent an invalid response. Try again later or ask its administrator.",
        server.authority());
}
