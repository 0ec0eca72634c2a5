#pragma once

#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxConnection.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Http/FormEncoding.h"

/// Where tokens come from (RFC 6749, 3.2), for a program that cannot keep a secret of its own. All
/// blocks; on a worker thread.
class DropboxTokenEndpoint {
public:
    /// Both must outlive this.
    DropboxTokenEndpoint(const DropboxConfiguration &configuration, DropboxConnection &connection)
        : m_configuration(configuration), m_connection(connection) {}

    /// The tokens for `code`, which the browser has brought to `redirectAddress` (RFC 6749, 4.1.3);
    /// `verifier` proves who had asked for it (RFC 7636, 4.5).
    Expected<DropboxTokens> exchange(const QString &code, const QString &verifier,
                                     const QString &redirectAddress, const EngineFuture &future);
    /// Fresh tokens of `account` for those of old (RFC 6749, 6).
    Expected<DropboxTokens> refresh(const DropboxTokens &tokens, const QString &account,
                                    const EngineFuture &future);

private:
    Expected<DropboxTokens> ask(const QList<FormEncoding::Field> &fields, const Error &refusal,
                                const EngineFuture &future);

    const DropboxConfiguration &m_configuration;
    DropboxConnection &m_connection;
};
