#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <optional>

/// Names an operation by what it holds: 16 bytes, ordered as bytes.
using OperationId = QByteArray;

/// One edit of one note, or of the database's name. An immutable value; Engine/Notes/StoreFormat.md
/// says what it means and how its identifier is reckoned.
struct Operation {
    static constexpr qsizetype IdentifierSize = 16;
    /// Of title and text together, in bytes of UTF-8: with every character escaped they still fit a
    /// transaction.
    static constexpr qsizetype NoteLimit = 8LL << 20;
    /// Of the name of a database, in bytes of UTF-8.
    static constexpr qsizetype NameLimit = 4096;
    /// How many others one may supersede.
    static constexpr qsizetype SupersedesLimit = 10000;

    OperationId id;
    /// The UUID of the note; empty where this names the database, by its title.
    QString note;
    QString title;
    QString text;
    /// Milliseconds since the beginning of 1970, UTC.
    std::optional<qint64> modified;
    /// The operations that its author saw and replaced: ascending, each once.
    QList<OperationId> supersedes;
    /// Random, so that doing the same again is another operation.
    QByteArray salt;

    bool operator==(const Operation &) const = default;

    /// A new operation with a new salt.
    static Operation make(const QString &note, const QString &title, const QString &text,
                          std::optional<qint64> modified, QList<OperationId> supersedes);
    /// What the identifier of an operation like this one has to be.
    OperationId reckonedId() const;
    /// Whether all of it is as the format demands.
    bool isSound() const;

    /// Whether it shows before `other` among operations of one note none of which supersedes
    /// another: the one modified last, of these the one with the greatest identifier.
    bool comesBefore(const Operation &other) const;

    /// Under which an operation shows that is not the first of its note: a UUID of version 5
    /// (RFC 4122, section 4.3) in the name space of the note, the name being the identifier's
    /// hexadecimal digits.
    QString UUIDOfCopy() const;

    /// One after the other, and back; never null.
    static QByteArray packed(const QList<OperationId> &identifiers);
    static QList<OperationId> unpacked(const QByteArray &bytes);

    /// Whether a database may be called `text`.
    static bool isName(const QString &text);
    /// Whether `text` is a UUID in small letters without braces.
    static bool isUUID(const QString &text);
    /// The years 1 to 9999.
    static bool isDate(qint64 milliseconds);
};
