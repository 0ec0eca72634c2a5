#pragma once

#include <QtCore/QString>

class Url;

/// The URLs of Dropbox locations: the scheme and the address of the account, such as
/// "dropbox://ida@example.com". The address is written without percent encoding, so everything
/// after "dropbox://" is the address. Thread-safe.
namespace DropboxUrl {

/// Returns the address of the account that `URL` names; empty if it names none: a nil URL, one of
/// another scheme, or one that ends after the slashes.
QString account(const Url &URL);
/// Returns whether two addresses name the same account. They are compared without case, as Dropbox
/// does; two empty ones are equal.
bool isSameAccount(const QString &address, const QString &other);

}  // namespace DropboxUrl
