#pragma once

#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Url.h"

/// The address of a WebDAV location: how it is composed of the fields of its sheet, and what
/// the sheet says about it. The functions are thread-safe.
namespace WebDAVAddress {

/// The contents of the sheet's fields, as the user has typed them: neither trimmed nor checked.
struct Fields {
    bool isHTTPS = false;
    /// A leading "http:" or "https:" is ignored; `isHTTPS` determines the scheme.
    QString server = {};
    /// Percent-encoded in the URL.
    QString user = {};
    /// The folder on the server that contains the store, without percent-encoding.
    QString path = {};
    /// The store's name without the extension, which URL() appends.
    QString store = {};
    /// Empty means the default port. Only the leading integer is used, modulo 65536.
    QString port = {};

    bool operator==(const Fields &) const = default;
};

/// Returns 443 for HTTPS, otherwise 80.
quint16 defaultPort(bool isHTTPS);
/// Returns `host` without a leading "http:" or "https:" (lower case only), and without "/", ":"
/// and "@" at either end. The result may be empty. Users paste whole addresses into the field for
/// the server.
QString sanitizedHost(const QString &host);
/// Returns the URL for `fields`, or nil if the result is not a valid URL. The port is omitted if it
/// is the default one of the scheme. The URL always has a user part, which may be empty, and never
/// a password; "." components and repeated slashes of the path are removed.
Url URL(const Fields &fields);
/// Returns the fields for `URL` except the user; empty fields for nil. The last component of the
/// path is the store.
Fields fields(const Url &URL);

/// A complete address as other programs show it.
struct Complete {
    /// The store is empty unless the address is that of a sync store.
    Fields fields;
    /// Empty if the address contains none.
    QString password;
};

/// Returns the parts of `text` if it is a complete address, such as "https://host:8443/folder";
/// otherwise an empty optional. The scheme is compared without case and may also be "dav", "davs",
/// "webdav" or "webdavs".
std::optional<Complete> complete(const QString &text);

/// Returns what prevents `fields` from being an address, with the next step; empty if nothing does.
QString problem(const Fields &fields);

/// Returns problem() or, if there is none, the address that a location with `fields` gets, without
/// the user name.
QString status(const Fields &fields);

}  // namespace WebDAVAddress
