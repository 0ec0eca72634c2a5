#pragma once

#include "Engine/Stores/Http/HttpClient.h"

/// What is told when Dropbox does not do what it was asked for.
namespace DropboxError {

/// No tokens of the account are there.
Error notSignedIn(const QString &account);
/// The account's tokens are not taken any more.
Error signInAgain(const QString &account);
/// The user signed in as `signedIn`, but the location's account is `account`.
Error otherAccount(const QString &account, const QString &signedIn);
/// An answer of `server` that says nothing of the matter itself.
Error unexpected(const HttpClient::Response &response, const QUrl &server);
/// An answer of `server` that is none.
Error notUnderstood(const QUrl &server);
/// `server` wants to be left alone for long.
Error busy(const QUrl &server);

}  // namespace DropboxError
