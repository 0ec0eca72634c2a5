#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <optional>

/// The answer to a PROPFIND for the resource type (RFC 4918, 13 and 14.24), read with distrust: no
/// document type, no entities, nothing nested deeply.
struct WebDAVMultiStatus {
    struct Resource {
        /// As the server wrote it: an absolute path or a whole URL, percent-encoded.
        QString href;
        bool isFolder = false;
    };

    QList<Resource> resources;

    /// Nothing where `document` is no such answer.
    static std::optional<WebDAVMultiStatus> parse(const QByteArray &document);
};
