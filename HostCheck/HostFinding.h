#pragma once

#include <QtCore/QString>

/// What was found about one promise. A value.
struct HostFinding {
    /// How the host treats a promise.
    enum class Result {
        /// It does what the promise says.
        Kept,
        /// It does something else.
        Broken,
        /// The host lacks the class, or the optional addition, of which the promise speaks.
        NotOffered,
    };

    /// Names the promise, see HostPromise.
    QString key;
    /// The sentences of the header that make the promise.
    QString sentence;
    /// The path of the header, as it is included.
    QString header;
    /// See Result.
    Result result = Result::Kept;
    /// What the host does instead; empty unless the promise is broken.
    QString reason = {};
};
