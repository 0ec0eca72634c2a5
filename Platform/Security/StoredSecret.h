#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <map>

#include "Platform/Security/SecretBytes.h"

/// The attributes by which an item is found: names and values in UTF-8. They are not secret.
using SecretAttributes = std::map<QByteArray, QByteArray>;

/// Whether a secret is kept until the process ends or stored permanently.
enum class SecretKeeping { ThisRun, Permanent };

/// A secret and its attributes.
struct StoredSecret {
    /// Identify the item.
    SecretAttributes attributes = {};
    /// The name shown to the user by the desktop's password manager.
    QString label = {};
    /// The bytes to keep.
    SecretBytes secret = {};
    /// How long to keep them.
    SecretKeeping keeping = SecretKeeping::Permanent;
};
