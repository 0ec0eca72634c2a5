#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <optional>

class EngineFuture;

/// The body of a response to a PROPFIND request for the resource type (RFC 4918, sections 13 and
/// 14.24). A value.
struct WebDAVMultiStatus {
    struct Resource {
        /// As the server wrote it: an absolute path or a URL, percent-encoded.
        QString href;
        bool isFolder = false;
    };

    /// Limits of a document. Parsing takes O(n) time within them.
    static constexpr int MostElements = 2'000'000;
    /// Attributes of one element and, separately, its namespace declarations.
    static constexpr int MostAttributes = 32;
    /// Bytes of one tag, text or other token.
    static constexpr qsizetype LongestToken = 16 << 10;

    QList<Resource> resources;

    /// Parses `document`. Returns an empty optional if it is not such a body, if it exceeds a
    /// limit, nests more than 32 elements, or has a document type or entities, and soon after
    /// `future` is cancelled. Blocks for at most a few seconds per 64 MiB; must not be called on
    /// the main thread.
    static std::optional<WebDAVMultiStatus> parse(const QByteArray &document,
                                                  const EngineFuture &future);
};
