#include "Engine/Stores/Dropbox/DropboxAccount.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QScopeGuard>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxTokenEndpoint.h"
#include "Engine/Stores/Http/HttpStatus.h"

namespace {

QUrl routeBelow(QUrl address, const QString &route) {
    address.setPath(address.path() + u'/' + route);
    return address;
}

/// Returns the object as JSON in ASCII, as header fields require: other characters become "\uXXXX".
QByteArray headerText(const QJsonObject &object) {
    const QString text = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    QByteArray result;
    for (const QChar character : text) {
        if (character.unicode() < 0x7f) {
            result += static_cast<char>(character.unicode());
        } else {
            result += "\\u" + QByteArray::number(character.unicode(), 16).rightJustified(4, '0');
        }
    }
    return result;
}

}  // namespace

DropboxAccount::DropboxAccount(const QString &address, std::shared_ptr<Turn> refreshTurn,
                               HttpClient::Timeouts timeouts)
    : m_address(address),
      m_refreshTurn(std::move(refreshTurn)),
      m_configuration(DropboxConfiguration::current()),
      m_connection(timeouts) {}

QUrl DropboxAccount::server() const {
    return m_configuration ? m_configuration->APIAddress : QUrl();
}

Expected<HttpClient::Response> DropboxAccount::call(const QString &route,
                                                    const QJsonObject &argument, qint64 limit,
                                                    const EngineFuture &future) {
    if (!m_configuration) {
        return failure(m_configuration.error());
    }
    return send({.method = "POST",
                 .URL = routeBelow(m_configuration->APIAddress, route),
                 .headers = {{"Content-Type", "application/json"}},
                 .body = QJsonDocument(argument).toJson(QJsonDocument::Compact),
                 .limit = limit},
                future);
}

Expected<HttpClient::Response> DropboxAccount::callForContents(const QString &route,
                                                               const QJsonObject &argument,
                                                               const QByteArray &contents,
                                                               qint64 limit,
                                                               const EngineFuture &future) {
    if (!m_configuration) {
        return failure(m_configuration.error());
    }
    return send({.method = "POST",
                 .URL = routeBelow(m_configuration->contentAddress, route),
                 .headers = {{"Content-Type", "application/octet-stream"},
                             {"Dropbox-API-Arg", headerText(argument)}},
                 .body = contents,
                 .limit = limit},
                future);
}

Expected<HttpClient::Response> DropboxAccount::send(HttpClient::Request request,
                                                    const EngineFuture &future) {
    Expected<DropboxTokens> current = tokens(future);
    for (int tries = 0; tries < 2; ++tries) {
        if (!current) {
            return failure(current.error());
        }
        const SecretBytes access = current->access;
        request.authorization = current->authorization();
        Expected<HttpClient::Response> response = m_connection.send(request, future);
        if (!response || response->status != HttpStatus::Unauthorized) {
            return response;
        }
        if (tries == 0) {
            current = renewedTokens(access, future);
        }
    }
    return failure(DropboxError::signInAgain(m_address));
}

Expected<DropboxTokens> DropboxAccount::tokens(const EngineFuture &future) {
    std::optional<DropboxTokens> known;
    {
        const std::lock_guard lock(m_mutex);
        known = m_tokens;
    }
    if (!known) {
        const Expected<std::optional<DropboxTokens>> stored =
            DropboxTokens::stored(m_address, future.cancellation());
        if (!stored) {
            return failure(stored.error());
        }
        known = *stored;
    }
    if (!known) {
        return failure(DropboxError::notSignedIn(m_address));
    }
    if (known->areExpired()) {
        return renewedTokens(known->access, future);
    }
    keep(*known);
    return *known;
}

Expected<DropboxTokens> DropboxAccount::renewedTokens(const SecretBytes &access,
                                                      const EngineFuture &future) {
    if (!m_refreshTurn->take(future)) {
        return failure(operationCancelled());
    }
    const auto end = qScopeGuard([this] { m_refreshTurn->release(); });
    const Expected<std::optional<DropboxTokens>> stored =
        DropboxTokens::stored(m_address, future.cancellation());
    if (!stored) {
        return failure(stored.error());
    }
    const std::optional<DropboxTokens> &known = *stored;
    if (!known) {
        return failure(DropboxError::notSignedIn(m_address));
    }
    if (known->access != access && !known->areExpired()) {
        keep(*known);
        return *known;
    }
    if (known->refresh.isEmpty()) {
        return failure(DropboxError::signInAgain(m_address));
    }
    Expected<DropboxTokens> renewed =
        DropboxTokenEndpoint(*m_configuration, m_connection).refresh(*known, m_address, future);
    if (renewed) {
        renewed->store(m_address);
        keep(*renewed);
    }
    return renewed;
}

void DropboxAccount::keep(const DropboxTokens &tokens) {
    const std::lock_guard lock(m_mutex);
    m_tokens = tokens;
}
