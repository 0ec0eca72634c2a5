#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUuid>
#include <optional>

/// Identifies an operation by its contents: 16 bytes, ordered as bytes.
using OperationId = QByteArray;

/// One edit of one note, or of the name of the database. An immutable value; its functions are
/// thread-safe. Engine/Notes/StoreFormat.md defines what it means and how its identifier is
/// computed.
struct Operation {
    /// Number of bytes in an OperationId.
    static constexpr qsizetype IdentifierSize = 16;
    /// Maximum size of title and text together, in bytes of UTF-8. Even if every character has to
    /// be escaped, they fit into a transaction.
    static constexpr qsizetype NoteLimit = 8LL << 20;
    /// Maximum size of the name of a database, in bytes of UTF-8.
    static constexpr qsizetype NameLimit = 4096;
    /// Maximum number of operations that one operation supersedes.
    static constexpr qsizetype SupersedesLimit = 10000;

    OperationId id;
    /// The UUID of the note, or an empty string if `title` is the name of the database.
    QString note;
    QString title;
    QString text;
    /// Milliseconds since 1970-01-01T00:00 UTC, if known.
    std::optional<qint64> modified;
    /// The operations that the author saw and replaced: ascending, without duplicates.
    QList<OperationId> supersedes;
    /// 16 bytes, random for an edit, so that repeating it makes a different operation.
    QByteArray salt;

    bool operator==(const Operation &) const = default;

    /// Returns a new operation with a new salt and its identifier. `supersedes` may be in any order
    /// and contain duplicates.
    static Operation make(const QString &note, const QString &title, const QString &text,
                          std::optional<qint64> modified, QList<OperationId> supersedes);
    /// Returns an operation with the same contents that supersedes this one. Every call returns the
    /// same operation, on all computers.
    Operation renewed() const;
    /// Returns an operation with the same contents that supersedes the conflicting operations
    /// `superseded`, which may be in any order and contain duplicates. Every call with the same
    /// ones returns the same operation, on all computers.
    Operation resolving(QList<OperationId> superseded) const;
    /// Returns the identifier that follows from the other members.
    OperationId computedId() const;
    /// Returns whether all members have the format and limits that StoreFormat.md requires, and
    /// `id` equals `computedId()`.
    bool isSound() const;

    /// Returns whether this operation shows before `other` among the current operations of one
    /// note: the one modified last shows first, and of equals the one with the greater identifier.
    bool comesBefore(const Operation &other) const;

    /// Returns the UUID of the copy as which this operation shows if it is not the first of its
    /// note: a UUID of version 5 (RFC 4122, section 4.3) whose name space is the UUID of the note
    /// and whose name is the identifier in hexadecimal digits.
    QString UUIDOfCopy() const;
    /// The same for the operation `id` of the note `note`.
    static QUuid UUIDOfCopy(const QUuid &note, const OperationId &id);

    /// Returns `identifiers` concatenated; never null.
    static QByteArray packed(const QList<OperationId> &identifiers);
    /// The inverse of `packed`.
    static QList<OperationId> unpacked(const QByteArray &bytes);

    /// Returns whether `text` is allowed as the name of a database: not blank, and not longer than
    /// NameLimit.
    static bool isName(const QString &text);
    /// Returns whether `text` is a UUID other than the nil UUID, in lower case without braces.
    static bool isUUID(const QString &text);
    /// Returns whether `milliseconds` since 1970 are within the years 1 to 9999.
    static bool isDate(qint64 milliseconds);
};
