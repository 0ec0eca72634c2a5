#pragma once

#include <QtCore/QList>

#include "Platform/Foundation/Expected.h"

struct SecretRemoval;
class Url;

/// The password of a WebDAV location, which all locations of the same server and user share. The
/// functions must be called on the main thread.
namespace WebDAVPassword {

/// Returns whether the location `other` uses the password of `URL`: it has the same server, and the
/// same user or none. Both URLs must be of WebDAV locations. The secret store is not accessed.
bool isShared(const Url &URL, const Url &other);

/// Forgets that the user has accepted to send a password unencrypted to the server of the removed
/// location `URL` (see UnencryptedPasswords), unless one of `others` also has this server without
/// encryption. Returns an error for the user if that cannot be saved. Blocks for the user defaults.
Expected<void> forgetConsent(const Url &URL, const QList<Url> &others);

/// Asks the user whether to delete the password of the removed location, if one is stored, and
/// deletes it if the user agrees. If there is no window to ask in, the removal stays unfinished.
/// Otherwise calls the function `finish` of `removal` once: also if the user keeps the password, or
/// a location needs it again by then. Returns at once.
void forget(const SecretRemoval &removal);

}  // namespace WebDAVPassword
