#pragma once

#include "Engine/Stores/Http/HttpClient.h"

/// The errors of requests to Dropbox, with messages for the user. Thread-safe.
namespace DropboxError {

/// There are no tokens for the account.
Error notSignedIn(const QString &account);
/// The account's tokens are no longer accepted.
Error signInAgain(const QString &account);
/// The user signed in as `signedIn`, but the location's account is `account`.
Error otherAccount(const QString &account, const QString &signedIn);
/// The response of `server` has an unexpected status.
Error unexpected(const HttpClient::Response &response, const QUrl &server);
/// The response of `server` is not valid.
Error notUnderstood(const QUrl &server);
/// `server` demands a longer waiting time than allowed.
Error busy(const QUrl &server);

}  // namespace DropboxError
