#pragma once

struct SecretRemoval;
class Url;

/// The password of a WebDAV location, which all locations of the same server and user share. The
/// functions must be called on the main thread.
namespace WebDAVPassword {

/// Returns whether the location `other` uses the password of `URL`: it has the same server, and the
/// same user or none. Both URLs must be of WebDAV locations. The secret store is not accessed.
bool isShared(const Url &URL, const Url &other);

/// Asks the user whether to delete the password of the removed location, if one is stored, and
/// deletes it if the user agrees. If there is no window to ask in, the removal stays unfinished.
/// Otherwise calls the function `finish` of `removal` once: also if the user keeps the password, or
/// a location needs it again by then. Returns at once.
void forget(const SecretRemoval &removal);

}  // namespace WebDAVPassword
