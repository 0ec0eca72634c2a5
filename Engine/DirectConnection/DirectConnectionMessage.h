#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCborMap>
#include <QtCore/QString>
#include <optional>

#include "Platform/Foundation/Expected.h"

/// The protocol of direct connections. Over TLS 1.3, each message consists of four bytes of length
/// (big-endian) and a CBOR map (RFC 8949) of that length. Every request has a "type" and gets one
/// response; unknown keys are ignored.
///
/// A client first sends "hello" with "name" and "secret", or starts pairing (see
/// DirectConnectionPairing). The response is "welcome", "refused" (without a reason), or "busy"
/// while the user is being asked about another client or the keychain cannot be read; after the
/// last two the server closes the connection. After "welcome" the client may send
///
///     "list": "folder" → "names"
///     "read": "name", "limit" (bytes) → "contents"
///     "write": "name", "contents" → "isNew", false if a blob of that name existed
///     "remove": "name" → nothing
///
/// The response is "done", or "failed" with a "reason": "missing", "refused", "full",
/// "not served" for what belongs to a database that the server's user has excluded, or another
/// text.
namespace DirectConnectionMessage {

/// Size of the length in bytes.
inline constexpr qsizetype LengthSize = 4;
/// Maximum message sizes in bytes; a longer message ends the connection.
inline constexpr qsizetype LimitBeforeAuthorization = 4096;
inline constexpr qsizetype Limit = qsizetype(64) * 1024 * 1024;
/// Maximum size of the contents in a message, which leaves room for the other keys.
inline constexpr qint64 ContentsLimit = Limit - LimitBeforeAuthorization;
/// Maximum number of members of a message, and of the nesting of their values; maximum size in
/// bytes of a key, and of any string but the contents.
inline constexpr int MostMembers = 64;
inline constexpr int DeepestNesting = 4;
inline constexpr qsizetype LongestKey = 64;
inline constexpr qsizetype LongestString = 1024;
/// Maximum memory in bytes for all values of a message but the contents; that for a response has
/// room for the longest list of names of records. Otherwise it may be many times the size of the
/// message.
inline constexpr qsizetype RequestMemory = 16384;
inline constexpr qsizetype ResponseMemory = qsizetype(24) << 20;

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
inline const QString NotServed = QStringLiteral("not served");

/// Returns a message of this type without other keys.
QCborMap ofType(const QString &type);
/// Returns the bytes of `message`, including the length. The message must be within the limits,
/// which is not checked. If it contains a secret, the caller should wipe the bytes.
QByteArray encode(const QCborMap &message);
/// Returns the bytes of `message`, including the length, up to its contents: the caller sends these
/// `size` bytes after them, without a copy. `message` must not have contents itself.
QByteArray encodeBeforeContents(const QCborMap &message, qsizetype size);
/// Returns the length in the first LengthSize bytes of `start`, which must not be shorter.
qsizetype length(const QByteArray &start);

/// A message that was received. Its values have any type that CBOR has: a caller checks each.
struct Received {
    /// All values but the contents.
    QCborMap values;
    /// The byte string "contents", if there is one.
    std::optional<QByteArray> contents;
};
/// Parses the bytes after the length, which are not trusted. Fails with notValid() unless they are
/// exactly one map with text as keys, without tags and without strings of unknown length, and with
/// tooLarge() if they are not within the limits. The values but the contents take at most about
/// `memory` bytes. The contents use the memory of `body`, which should be moved here.
Expected<Received> decode(QByteArray body, qsizetype memory);

/// What is wrong with a message that was received, as a sentence for the details of an error. Both
/// have the code StoreUnreachable.
Error notValid();
Error tooLarge();

}  // namespace DirectConnectionMessage
