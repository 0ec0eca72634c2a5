#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

/// What went wrong, for a person to read. A value; "no error" is an empty std::optional<Error>.
struct Error {
    /// Who numbers the codes, such as "CommonCryptoErrorDomain".
    QString domain = {};
    int code = 0;
    /// A sentence, in the person's language.
    QString localizedDescription = {};
    /// Why, where it is known; else empty.
    QString localizedFailureReason = {};

    bool operator==(const Error &) const = default;
};

Q_DECLARE_METATYPE(Error)
Q_DECLARE_METATYPE(std::optional<Error>)
