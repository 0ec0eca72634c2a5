#pragma once

#include <QtCore/QJsonObject>
#include <mutex>

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"

/// Calls of Dropbox's API in the name of one account that was signed in. Tokens are refreshed when
/// they have ended; where that does not help any more, an error of the code AccessDenied asks the
/// person to sign in again. All blocks, on worker threads; several may call.
class DropboxAccount {
public:
    DropboxAccount(const QString &address, HttpClient::Timeouts timeouts);

    /// What serves the API, for a person to read.
    QUrl server() const;
    /// Calls a route that takes and gives JSON. `limit`: bytes of the answer.
    Expected<HttpClient::Response> call(const QString &route, const QJsonObject &argument,
                                        qint64 limit, const EngineFuture &future);
    /// Calls a route that takes or gives contents.
    Expected<HttpClient::Response> callForContents(const QString &route,
                                                   const QJsonObject &argument,
                                                   const QByteArray &contents, qint64 limit,
                                                   const EngineFuture &future);

private:
    Expected<HttpClient::Response> send(HttpClient::Request request, const EngineFuture &future);
    Expected<DropboxTokens> tokens(const EngineFuture &future);
    /// Tokens other than those with `access`, which is not good any more.
    Expected<DropboxTokens> renewedTokens(const QByteArray &access, const EngineFuture &future);
    void keep(const DropboxTokens &tokens);

    const QString m_address;
    const Expected<DropboxConfiguration> m_configuration;
    DropboxConnection m_connection;
    std::mutex m_mutex;
    std::optional<DropboxTokens> m_tokens;
};
