#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include "Platform/Foundation/Expected.h"

class EngineFuture;

/// The body of a response to a PROPFIND request for the resource type and, optionally, the length
/// (RFC 4918, sections 13 and 14.24). A value. The document is not trusted: document types,
/// entities and deep nesting are refused, and its size is limited.
struct WebDAVMultiStatus {
    /// One resource of the response.
    struct Resource {
        /// As the server wrote it, in UTF-8: an absolute path or a URL, percent-encoded. Unchecked:
        /// it may name any server and any path.
        QByteArray href;
        bool isFolder = false;
        /// Whether the server reports that it could not determine what the resource is.
        bool isFailed = false;
        /// The length of the contents in bytes; 0 if the server does not report it.
        qint64 size = 0;
    };

    /// Maximum number of elements. Within the limits, parsing takes O(n).
    static constexpr int MostElements = 1'000'000;
    /// Maximum number of resources, and of bytes in all paths together.
    static constexpr int MostResources = 200'000;
    static constexpr qsizetype LongestPaths = 12 << 20;
    /// Maximum number of attributes of one element and, separately, of its namespace declarations.
    static constexpr int MostAttributes = 32;
    /// Maximum number of namespace declarations in scope, which the parser searches for each name.
    static constexpr int MostNamespaces = 64;
    /// Maximum length of a resource; a greater one is reported as this.
    static constexpr qint64 LargestSize = 1 << 30;
    /// Maximum size in bytes of one tag, text or other token.
    static constexpr qsizetype LongestToken = 16 << 10;

    /// Why a document was not parsed.
    enum class Failure {
        /// It is not such a body, exceeds a limit, nests more than 32 elements, or has a document
        /// type or entities.
        Invalid,
        Cancelled,
    };

    /// In the order of the document.
    QList<Resource> resources;

    /// Parses `document`. Ends soon after `future` is cancelled. Blocks for at most a few seconds
    /// per 64 MiB; must not be called on the main thread.
    static tl::expected<WebDAVMultiStatus, Failure> parse(const QByteArray &document,
                                                          const EngineFuture &future);
};
