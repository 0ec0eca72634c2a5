#pragma once

#include "Engine/Stores/Http/HttpClient.h"

/// The errors of requests to Dropbox, with messages for the user that say what to do next.
/// `account` is an e-mail address; of `server` only host and port are shown. Thread-safe.
namespace DropboxError {

/// There are no tokens for the account. Has the code AccessDenied, as the two that follow: only the
/// user can change that, by signing in.
Error notSignedIn(const QString &account);
/// The account's tokens are no longer accepted.
Error signInAgain(const QString &account);
/// The user signed in as `signedIn`, but the location's account is `account`.
Error otherAccount(const QString &account, const QString &signedIn);
/// The response of `server` has an unexpected status. Has the code AccessDenied for 403 and
/// StoreUnreachable for any other; for 429 and 503 it is HttpError::busy().
Error unexpected(const HttpClient::Response &response, const QUrl &server);
/// HttpError::invalidResponse(), because the value of `key` is missing or has another type than
/// expected; the details say so.
Error invalidValue(const QString &key, const QUrl &server);

}  // namespace DropboxError
