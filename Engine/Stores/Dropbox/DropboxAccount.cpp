#include "Engine/Stores/Dropbox/DropboxAccount.h"

#include <QtCore/QJsonDocument>

#include "Engine/Foundation/CancellableWait.h"
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

/// Lock that lets one thread at a time refresh tokens; waiting threads then find the new tokens.
/// Process-wide, as is the secret store that contains the tokens.
class RefreshTurn {
public:
    /// Waits until no other thread has the lock, or until `future` is cancelled.
    explicit RefreshTurn(const EngineFuture &future) {
        std::unique_lock lock(s_mutex);
        m_isOurs = CancellableWait(future, QDeadlineTimer::Forever).until(s_ended, lock, [] {
            return !s_isTaken;
        });
        s_isTaken = s_isTaken || m_isOurs;
    }
    ~RefreshTurn() {
        if (m_isOurs) {
            const std::lock_guard lock(s_mutex);
            s_isTaken = false;
            s_ended.notify_one();
        }
    }
    RefreshTurn(const RefreshTurn &) = delete;
    RefreshTurn &operator=(const RefreshTurn &) = delete;

private:
    bool m_isOurs = false;

    static inline std::mutex s_mutex;
    static inline std::condition_variable_any s_ended;
    static inline bool s_isTaken = false;
};

}  // namespace

DropboxAccount::DropboxAccount(const QString &address, HttpClient::Timeouts timeouts)
    : m_address(address),
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
    const QList<HttpClient::Header> headers = request.headers;
    for (int tries = 0; tries < 2; ++tries) {
        if (!current) {
            return failure(current.error());
        }
        const QByteArray access = current->access;
        request.headers = headers;
        request.headers.append({"Authorization", "Bearer " + access});
        Expected<HttpClient::Response> answer = m_connection.send(request, future);
        if (!answer || answer->status != HttpStatus::Unauthorized) {
            return answer;
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
        known = DropboxTokens::stored(m_address);
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

Expected<DropboxTokens> DropboxAccount::renewedTokens(const QByteArray &access,
                                                      const EngineFuture &future) {
    const RefreshTurn turn(future);
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    const std::optional<DropboxTokens> known = DropboxTokens::stored(m_address);
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
