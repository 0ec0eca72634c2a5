#pragma once

#include <QtCore/QUrl>

#include "Platform/Foundation/Error.h"

/// The errors of servers that all stores over HTTP have, with messages for the user that say what
/// to do next. `place` is a path or address for the user; of `server` only host and port are shown.
/// Thread-safe.
namespace HttpError {

/// The server refuses access to `place`. Has the code AccessDenied.
Error accessDenied(const QString &place);
/// What was to be written to `place` is larger than the server accepts. Has the code StoreFull.
Error tooLarge(const QString &place);
/// The server asks to try again later. Has the code StoreUnreachable, as those that follow.
Error busy(const QUrl &server);
/// The response has a status that is not expected.
Error unexpectedStatus(int status, const QUrl &server);
/// The response is not valid, although its status reports success.
Error invalidResponse(const QUrl &server);

}  // namespace HttpError
