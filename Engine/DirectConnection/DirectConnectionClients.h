#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Whom this computer's server lets in: one keychain item for each client, whose account is the
/// client's name and whose password is the SHA-256 of the client's secret in hexadecimal, so that
/// reading it does not let anyone pass for the client. Looked up each time, so that deleting the
/// item revokes at once. Any thread.
namespace DirectConnectionClients {

/// Whether `name` can be shown to a person as it is: not empty, at most 255 bytes of UTF-8, and
/// printable characters only.
bool isName(const QString &name);
bool isKnown(const QString &name);
bool isAuthorized(const QString &name, const QByteArray &secret);
void authorize(const QString &name, const QByteArray &secret);

}  // namespace DirectConnectionClients
