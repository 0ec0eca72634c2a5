#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCborMap>
#include <QtCore/QString>
#include <optional>

/// What client and server of a direct connection say to each other: over TLS 1.3, one message after
/// the other, each four bytes of length, most significant first, and a map in CBOR (RFC 8949) of
/// that length. Every request has a "type" and gets one answer; keys that nobody knows are ignored.
///
/// A client greets first, with "hello", "name" and "secret", or asks to be authorized, as
/// Pairing says. Both end in "welcome", or in "refused" (nothing tells why), or in "busy" while the
/// person is asked for somebody else, whereupon the server closes. Only then it may send
///   "list": "folder" → "names"
///   "read": "name", "limit" (bytes) → "contents"
///   "write": "name", "contents" → "isNew", false where there was one of that name before
///   "remove": "name" → nothing
/// whose answer is "done", or "failed" with a "reason": "missing", "refused", "full" or
/// something else.
namespace DirectConnectionMessage {

inline constexpr qsizetype LengthSize = 4;
/// Bytes; what is longer ends the connection.
inline constexpr qsizetype LimitBeforeAuthorization = 4096;
inline constexpr qsizetype Limit = qsizetype(64) * 1024 * 1024;
/// Of the contents in a message, so that the rest finds room too.
inline constexpr qint64 ContentsLimit = Limit - LimitBeforeAuthorization;

inline const QString Type = QStringLiteral("type");
inline const QString Name = QStringLiteral("name");
inline const QString Secret = QStringLiteral("secret");
inline const QString Commitment = QStringLiteral("commitment");
inline const QString Nonce = QStringLiteral("nonce");
inline const QString Folder = QStringLiteral("folder");
inline const QString Names = QStringLiteral("names");
inline const QString Contents = QStringLiteral("contents");
inline const QString SizeLimit = QStringLiteral("limit");
inline const QString IsNew = QStringLiteral("isNew");
inline const QString Reason = QStringLiteral("reason");

inline const QString Hello = QStringLiteral("hello");
inline const QString Pair = QStringLiteral("pair");
inline const QString Reveal = QStringLiteral("reveal");
inline const QString Welcome = QStringLiteral("welcome");
inline const QString Refused = QStringLiteral("refused");
inline const QString Busy = QStringLiteral("busy");
inline const QString List = QStringLiteral("list");
inline const QString Read = QStringLiteral("read");
inline const QString Write = QStringLiteral("write");
inline const QString Remove = QStringLiteral("remove");
inline const QString Done = QStringLiteral("done");
inline const QString Failed = QStringLiteral("failed");

inline const QString BlobMissing = QStringLiteral("missing");
inline const QString BlobRefused = QStringLiteral("refused");
inline const QString StoreFull = QStringLiteral("full");

/// A message of that type without anything else.
QCborMap ofType(const QString &type);
/// Its bytes, the length included.
QByteArray encode(const QCborMap &message);
/// The length that the first LengthSize bytes tell.
qsizetype length(const QByteArray &start);
/// Empty where the bytes after the length are not one map, or hold anything else.
std::optional<QCborMap> decode(const QByteArray &body);

}  // namespace DirectConnectionMessage
