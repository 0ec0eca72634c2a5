#pragma once

#include <QtCore/QJsonObject>
#include <memory>
#include <mutex>

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxRefreshTurn.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"

/// Calls Dropbox's API on behalf of one account that has signed in. Expired tokens are refreshed;
/// if that does not help, an error of the code AccessDenied asks the user to sign in again. All
/// calls block and must be made on worker threads; they are thread-safe.
class DropboxAccount {
public:
    /// `address` is the e-mail address of the account. `refreshTurn` must not be null. `timeouts`
    /// apply to each request. Reads the configuration.
    DropboxAccount(const QString &address, std::shared_ptr<DropboxRefreshTurn> refreshTurn,
                   HttpClient::Timeouts timeouts);

    /// Returns the address of the API, for messages to the user; empty if the configuration is not
    /// valid.
    QUrl server() const;
    /// Calls a route with JSON as argument and result. `limit` is the maximum size of the response
    /// in bytes.
    Expected<HttpClient::Response> call(const QString &route, const QJsonObject &argument,
                                        qint64 limit, const EngineFuture &future);
    /// Calls a route that transfers contents.
    Expected<HttpClient::Response> callForContents(const QString &route,
                                                   const QJsonObject &argument,
                                                   const QByteArray &contents, qint64 limit,
                                                   const EngineFuture &future);

private:
    /// Sends a request with the account's token; once more with a new token if that is refused.
    Expected<HttpClient::Response> send(HttpClient::Request request, const EngineFuture &future);
    /// Returns the tokens in memory or in the secret store, refreshed if they have expired.
    Expected<DropboxTokens> tokens(const EngineFuture &future);
    /// Returns tokens other than those with the access token `access`, which has become invalid.
    /// One thread of the engine at a time refreshes tokens.
    Expected<DropboxTokens> renewedTokens(const SecretBytes &access, const EngineFuture &future);
    void keep(const DropboxTokens &tokens);

    const QString m_address;
    const std::shared_ptr<DropboxRefreshTurn> m_refreshTurn;
    const Expected<DropboxConfiguration> m_configuration;
    DropboxConnection m_connection;
    std::mutex m_mutex;
    std::optional<DropboxTokens> m_tokens;
};
