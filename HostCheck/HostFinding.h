#pragma once

#include <QtCore/QString>

/// What was found about one promise. A value.
struct HostFinding {
    enum class Result {
        Kept,
        Broken,
        /// The host lacks the class, or the optional addition, of which the promise speaks.
        NotOffered,
    };

    /// Names the promise, see HostPromise.
    QString key;
    /// The sentences of the header, and the header's path.
    QString sentence;
    QString header;
    Result result = Result::Kept;
    /// What the host does instead; empty unless the promise is broken.
    QString reason = {};
};
