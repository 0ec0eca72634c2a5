#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretBytes.h"

/// The clients that are authorized to connect to this computer's server. There is one keychain item
/// for each client: its account is account() of the client's name, and its password is the SHA-256
/// of the client's secret in hexadecimal, so that reading the item is not enough to impersonate the
/// client. Every call looks up the item again, so deleting it revokes the client immediately.
/// Thread-safe. Lookups block for at most the timeout of the secret store. Without a password
/// service no client is authorized after the program has ended.
namespace DirectConnectionClients {

/// Returns whether `name` can be displayed unchanged: not empty, at most 255 bytes of UTF-8, and
/// printable characters only. The server refuses clients with other names.
bool isName(const QString &name);
/// Returns `name` in printable ASCII: all other characters of it, and "%", are percent-encoded in
/// UTF-8 (RFC 3986, section 2.1). The sheet of the server can delete only such items.
QString account(const QString &name);
/// Replaces the items whose accounts are names in other characters, as earlier versions have stored
/// them, so that the sheet can delete them. Until then such clients are not authorized. Blocks for
/// several lookups; must not be called on the main thread. Returns an error for the user if the
/// keychain cannot be read; what could not be read is left for the next call. Without a password
/// service there is nothing to replace.
Expected<void> replaceFormerAccounts();
/// Returns whether the client `name` is authorized with `secret`. Compares in constant time.
/// Returns an error if the keychain cannot be read. A caller must not treat that as a refusal.
Expected<bool> isAuthorized(const QString &name, const SecretBytes &secret);
/// Authorizes the client `name` with `secret`, replacing a client of the same name. Returns at
/// once. isAuthorized() returns true from then on. If the keychain cannot store it, the user is
/// notified once, and the client is authorized until the program ends.
void authorize(const QString &name, const SecretBytes &secret);

}  // namespace DirectConnectionClients
