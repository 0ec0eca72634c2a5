#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

/// An error that can be shown to the user. A value. Functions that return std::optional<Error>
/// return std::nullopt on success; new ones return Expected.
struct Error {
    /// The name space of `code`, such as "CommonCryptoErrorDomain".
    QString domain = {};
    /// Identifies the error within its domain. 0 if the domain has a single error or none is known.
    int code = 0;
    /// Complete sentences in the user's language: what happened, to what, and what to do next. May
    /// contain names from outside, so it must be shown as plain text.
    QString localizedDescription = {};
    /// The technical reason in the user's language, or empty if it is not known.
    QString localizedFailureReason = {};

    bool operator==(const Error &) const = default;
};

Q_DECLARE_METATYPE(Error)
Q_DECLARE_METATYPE(std::optional<Error>)
