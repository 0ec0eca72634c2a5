#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/Security/SecretBytes.h"

/// A user's name and password at a server. A value, whose copies share the memory of the password;
/// "no credential" is an empty std::optional<UrlCredential>.
struct UrlCredential {
    /// How long a credential is stored.
    enum class Persistence {
        /// Not stored at all.
        None = 0,
        /// Available to this process until it ends.
        ForSession = 1,
        /// Available to every program of the user, also in later runs.
        Permanent = 2
    };

    /// May be empty: servers exist that expect only a password.
    QString user = {};
    /// In UTF-8.
    SecretBytes password = {};
    /// See Persistence.
    Persistence persistence = Persistence::None;

    /// Compares all members.
    bool operator==(const UrlCredential &) const = default;
};

Q_DECLARE_METATYPE(UrlCredential)
Q_DECLARE_METATYPE(std::optional<UrlCredential>)
