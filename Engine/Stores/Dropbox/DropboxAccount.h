#pragma once

#include <QtCore/QJsonObject>
#include <memory>
#include <mutex>

#include "Engine/Foundation/Turn.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"

/// Calls Dropbox's API on behalf of one account that has signed in. Expired tokens are refreshed;
/// if that does not help, an error of the code AccessDenied asks the user to sign in again. All
/// calls block, for the rate limits of the server too (see DropboxConnection), and must be made on
/// worker threads; they are thread-safe.
class DropboxAccount {
public:
    /// `address` is the e-mail address of the account; it need not have signed in yet.
    /// `refreshTurn` must not be null. `timeouts` apply to each request. Reads the configuration;
    /// if that is not valid, every call fails with its error.
    DropboxAccount(const QString &address, std::shared_ptr<Turn> refreshTurn,
                   HttpClient::Timeouts timeouts);

    /// Returns the address of the API, for messages to the user; empty if the configuration is not
    /// valid.
    QUrl server() const;
    /// Calls a route, such as "files/list_folder", with JSON as argument and result. `limit` is the
    /// maximum size of the response in bytes. Returns the response regardless of its status, except
    /// for 401; errors that a route defines have the status 409. Other errors are those of
    /// DropboxConnection::send() and DropboxTokens::stored().
    Expected<HttpClient::Response> call(const QString &route, const QJsonObject &argument,
                                        qint64 limit, const EngineFuture &future);
    /// Calls a route that transfers contents: `argument` is sent in the header field
    /// "Dropbox-API-Arg", as ASCII, and `contents` as the body, which may be empty. The result of a
    /// download is in the header field "Dropbox-API-Result" of the response, that of an upload in
    /// its body.
    Expected<HttpClient::Response> callForContents(const QString &route,
                                                   const QJsonObject &argument,
                                                   const QByteArray &contents, qint64 limit,
                                                   const EngineFuture &future);

private:
    /// Sends a request with the account's token; once more with a new token if that is refused.
    Expected<HttpClient::Response> send(HttpClient::Request request, const EngineFuture &future);
    /// Returns the tokens in memory or in the secret store, refreshed if they have expired. The
    /// secret store is read once, unless the tokens are refreshed.
    Expected<DropboxTokens> tokens(const EngineFuture &future);
    /// Returns tokens other than those with the access token `access`, which has become invalid.
    /// One thread of the engine at a time refreshes the tokens of an account.
    Expected<DropboxTokens> renewedTokens(const SecretBytes &access, const EngineFuture &future);
    /// Keeps the tokens in memory for later calls.
    void keep(const DropboxTokens &tokens);

    const QString m_address;
    const std::shared_ptr<Turn> m_refreshTurn;
    const Expected<DropboxConfiguration> m_configuration;
    DropboxConnection m_connection;
    std::mutex m_mutex;
    std::optional<DropboxTokens> m_tokens;
};
