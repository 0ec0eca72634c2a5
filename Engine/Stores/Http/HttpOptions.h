#pragma once

#include <QtCore/QStringList>
#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

#include "Engine/Stores/Http/HttpAuthentication.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/UrlCredential.h"

class QSslCertificate;

/// Every request has a deadline, even if the server sends data slowly. Must be positive. Both
/// end a request with StoreUnreachable. They apply to each exchange with the server: a
/// redirection, the answer to a challenge and a repetition after a lost connection begin anew, so
/// that a call of HttpClient::send() can take several times as long.
struct HttpTimeouts {
    /// Maximum time without sent or received data, including connection setup.
    std::chrono::milliseconds idle = std::chrono::seconds(30);
    /// Maximum time of one request, however slowly the server sends data.
    std::chrono::milliseconds total = std::chrono::minutes(10);
};

/// How a client behaves. The functions are called on the thread of HttpClient::send(), possibly by
/// several threads at the same time, and may block; the timeouts include the time of `trusts`, but
/// not that of `credential`. They must not call the client.
struct HttpOptions {
    HttpTimeouts timeouts = {};
    /// Returns the credential that may be sent with `scheme`, or an empty optional if there is
    /// none; then the caller receives the response with the status Unauthorized. Once
    /// `cancellation` is requested, the function must return at once. An error becomes that of the
    /// request. Called once for each challenge that is answered, and once before the first request
    /// if it is known from an earlier client how the server asks: not for a request whose accepted
    /// credential is known, and again for each redirection that is challenged. Null means that no
    /// challenge is answered.
    std::function<Expected<std::optional<UrlCredential>>(HttpAuthentication::Scheme scheme,
                                                         const std::stop_token &cancellation)>
        credential = {};
    /// Returns whether to trust exactly this certificate despite `reasons`, which are
    /// sentences. Null means never. Called for each new connection to a server whose
    /// certificate is not valid, and once for those that earlier clients have left; `certificate`
    /// is never null.
    std::function<bool(const QSslCertificate &certificate, const QStringList &reasons)> trusts = {};
};
