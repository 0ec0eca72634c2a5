#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include "Platform/Foundation/Expected.h"

/// A page of a folder's listing: the response of the routes "files/list_folder" and
/// "files/list_folder/continue". A value.
struct DropboxListingPage {
    /// The names of the files and folders, as the server sent them: unchecked, possibly empty, in
    /// no order, and with duplicates across pages. Deleted entries are omitted.
    QStringList names;
    /// Identifies the next page; not empty if `hasMore`.
    QString cursor;
    bool hasMore = false;

    /// Parses `response` of `server`, which is not trusted. Fails with DropboxError::invalidValue()
    /// if it is not JSON, has no array "entries" or no boolean "has_more", or announces a further
    /// page without a cursor; unknown entries are ignored. Thread-safe. O(n).
    static Expected<DropboxListingPage> parse(const QByteArray &response, const QUrl &server);
    /// Returns the approximate memory for `names`, in bytes. The caller limits the sum of all
    /// pages, because their number is up to the server.
    qsizetype memory() const;
};
