#pragma once

#include <optional>

#include "Controller/Preferences/QVWebDAVLocationEditor.h"

/// What the sheet of a WebDAV location tells the user about the address in its fields. The
/// functions are thread-safe.
namespace WebDAVAddress {

/// A complete address as other programs show it.
struct Complete {
    /// The store is empty unless the address is that of a sync store.
    QVWebDAVLocationEditor::Fields fields;
    /// Empty if the address contains none.
    QString password;
};

/// Returns the parts of `text` if it is a complete address, such as "https://host:8443/folder";
/// otherwise an empty optional. The scheme is compared without case and may also be "dav", "davs",
/// "webdav" or "webdavs".
std::optional<Complete> complete(const QString &text);

/// Returns what prevents `fields` from being an address, with the next step; empty if nothing does.
QString problem(const QVWebDAVLocationEditor::Fields &fields);

/// Returns problem() or, if there is none, the address that a location with `fields` gets, without
/// the user name.
QString status(const QVWebDAVLocationEditor::Fields &fields);

}  // namespace WebDAVAddress
