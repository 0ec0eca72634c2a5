#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"

/// The clients that are authorized to connect to this computer's server. There is one keychain item
/// for each client: its account is the client's name and its password is the SHA-256 of the
/// client's secret in hexadecimal, so that reading the item is not enough to impersonate the
/// client. Every call looks up the item again, so deleting it revokes the client immediately.
/// Thread-safe. Lookups block for at most the timeout of the secret store.
namespace DirectConnectionClients {

/// Returns whether `name` can be displayed unchanged: not empty, at most 255 bytes of UTF-8, and
/// printable characters only.
bool isName(const QString &name);
/// Returns whether the client `name` is authorized with `secret`. Compares in constant time.
/// Returns an error if the keychain cannot be read.
Expected<bool> isAuthorized(const QString &name, const QByteArray &secret);
/// Authorizes the client `name` with `secret`, replacing a client of the same name. Returns at
/// once.
void authorize(const QString &name, const QByteArray &secret);

}  // namespace DirectConnectionClients
