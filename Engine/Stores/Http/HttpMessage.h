#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QUrl>

#include "Platform/Security/SecretBytes.h"

/// A header field. The name is ASCII and compared regardless of case. Neither may contain a
/// line break, since they are sent as they are; values must come from the program or be checked
/// by the caller.
struct HttpHeader {
    QByteArray name;
    QByteArray value;
};

/// A request. Must stay unchanged until HttpClient::send() returns.
struct HttpRequest {
    /// The method, such as "GET". Case-sensitive (RFC 9110, section 9.1).
    QByteArray method;
    /// An "http" or "https" URL. Its user information is not sent. Its fragment is not sent
    /// either, and "." and ".." are resolved in its path.
    QUrl URL;
    QList<HttpHeader> headers = {};
    /// The value of the header field "Authorization"; empty for none. If it is set, it is sent
    /// with the first exchange, unless the server has accepted another credential before; it is
    /// not sent to another server.
    SecretBytes authorization = {};
    /// Sent as it is, with its length; the media type must be among the headers.
    QByteArray body = {};
    /// Maximum size of the response's body in bytes. A longer body ends the request with
    /// BlobRefused, as soon as more has arrived. It also applies to the bodies of redirections
    /// and challenges. The header fields have the limit HttpConnection::HeaderLimit, and all that
    /// the server sends HttpConnection::transferLimit().
    qint64 limit = 1 << 20;
    /// Whether the request must not arrive twice. It is sent on a new connection then: after a kept
    /// one was lost, it would be sent again.
    bool isUnrepeatable = false;
};

/// A response of the server.
struct HttpResponse {
    /// The status code; see HttpStatus.
    int status = 0;
    /// In the order of their arrival, without those of provisional responses (status 1xx); a
    /// field may occur several times.
    QList<HttpHeader> headers = {};
    /// May have been cut short if the response has neither a header field "Content-Length" nor
    /// the transfer encoding "chunked".
    QByteArray body = {};

    /// Returns the values of the header fields of that name, regardless of case, joined with
    /// commas; empty if there is none. Must not be used for fields whose values contain commas
    /// of their own, such as dates or cookies.
    QByteArray header(const QByteArray &name) const;
};
