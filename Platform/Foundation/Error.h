#pragma once

#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <functional>
#include <optional>

/// A next step that is offered with an error, as a button.
struct RecoveryOption {
    /// The title of the button in the user's language.
    QString title;
    /// Called on the main thread when the user chooses the step. Never empty.
    std::function<void()> choose;
};

/// An error that can be shown to the user. A value. Functions that can fail return Expected; the
/// errors that a host passes to a handler are std::nullopt on success.
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
    /// Further facts for experts, one per line, such as an address or the message of a library; may
    /// be empty. In the user's language where they are not quoted.
    QString details = {};
    /// The next steps that the user can choose, the best one first; may be empty. Code that
    /// presents errors may ignore them. Only added on the main thread, shortly before the error is
    /// presented.
    QList<RecoveryOption> recoveryOptions = {};

    /// Compares what the user reads first: everything but the details and the next steps.
    bool operator==(const Error &other) const {
        return domain == other.domain && code == other.code &&
               localizedDescription == other.localizedDescription &&
               localizedFailureReason == other.localizedFailureReason;
    }
};

Q_DECLARE_METATYPE(Error)
Q_DECLARE_METATYPE(std::optional<Error>)
