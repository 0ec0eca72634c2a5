#include "Engine/Stores/Dropbox/DropboxTokenEndpoint.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

namespace {

/// Returns whether the code or refresh token is invalid or has expired (RFC 6749, section 5.2).
bool isGrantRefused(const HttpClient::Response &response) {
    return response.status == HttpStatus::BadRequest &&
           QJsonDocument::fromJson(response.body).object().value(QStringLiteral("error")) ==
               QStringLiteral("invalid_grant");
}

}  // namespace

Expected<DropboxTokens> DropboxTokenEndpoint::exchange(const QString &code, const QString &verifier,
                                                       const QString &redirectAddress,
                                                       const EngineFuture &future) {
    // A server revokes the tokens of a code that arrives twice (RFC 6749, section 4.1.2).
    return ask({{"grant_type", QStringLiteral("authorization_code")},
                {"code", code},
                {"code_verifier", verifier},
                {"redirect_uri", redirectAddress},
                {"client_id", m_configuration.applicationKey}},
               Repetition::OnlyOnce,
               engineError(EngineErrorCode::AccessDenied,
                           localizedSyncString("Dropbox rejected the sign-in. Try again.")),
               future);
}

Expected<DropboxTokens> DropboxTokenEndpoint::refresh(const DropboxTokens &tokens,
                                                      const QString &account,
                                                      const EngineFuture &future) {
    Expected<DropboxTokens> response =
        ask({{"grant_type", QStringLiteral("refresh_token")},
             {"refresh_token", tokens.refresh.toText()},
             {"client_id", m_configuration.applicationKey}},
            Repetition::Idempotent, DropboxError::signInAgain(account), future);
    if (response && response->refresh.isEmpty()) {
        response->refresh = tokens.refresh;
    }
    return response;
}

Expected<DropboxTokens> DropboxTokenEndpoint::ask(const QList<FormEncoding::Field> &fields,
                                                  Repetition repetition, const Error &refusal,
                                                  const EngineFuture &future) {
    const QUrl address = m_configuration.tokenAddress;
    const Expected<HttpClient::Response> response =
        m_connection.send({.method = "POST",
                           .URL = address,
                           .headers = {{"Content-Type", "application/x-www-form-urlencoded"}},
                           .body = FormEncoding::encode(fields),
                           .isUnrepeatable = repetition == Repetition::OnlyOnce},
                          future);
    if (!response) {
        return failure(response.error());
    }
    if (response->status != HttpStatus::OK) {
        return failure(isGrantRefused(*response) ? refusal
                                                 : DropboxError::unexpected(*response, address));
    }
    return DropboxTokens::fromResponse(response->body, address);
}
