#pragma once

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Http/FormEncoding.h"

/// The token endpoint (RFC 6749, section 3.2), used as a public client, which has no client secret.
/// All calls block and must be made on a worker thread; cancelling takes effect at once. The tokens
/// are returned, never stored.
class DropboxTokenEndpoint {
public:
    /// Neither argument is owned; both must outlive this object.
    DropboxTokenEndpoint(const DropboxConfiguration &configuration, DropboxConnection &connection)
        : m_configuration(configuration), m_connection(connection) {}

    /// Exchanges `code`, which the browser brought to `redirectAddress`, for tokens (RFC 6749,
    /// section 4.1.3). `verifier` proves that this program requested it (RFC 7636, section 4.5). A
    /// code can be used once. Fails with the code AccessDenied if the server refuses the code, and
    /// with StoreUnreachable if its response is not valid.
    Expected<DropboxTokens> exchange(const QString &code, const QString &verifier,
                                     const QString &redirectAddress, const EngineFuture &future);
    /// Refreshes the tokens of `account` (RFC 6749, section 6), which appears in messages only. The
    /// old refresh token is kept if the server sends no new one. Fails with the code AccessDenied
    /// if the server refuses it, after which only a new sign-in helps. `tokens` must have a refresh
    /// token.
    Expected<DropboxTokens> refresh(const DropboxTokens &tokens, const QString &account,
                                    const EngineFuture &future);

private:
    /// Whether the server may receive a request twice.
    enum class Repetition { Idempotent, OnlyOnce };

    /// Sends a request; returns `refusal` if the server rejects the grant ("invalid_grant", RFC
    /// 6749, section 5.2).
    Expected<DropboxTokens> ask(const QList<FormEncoding::Field> &fields, Repetition repetition,
                                const Error &refusal, const EngineFuture &future);

    const DropboxConfiguration &m_configuration;
    DropboxConnection &m_connection;
};
