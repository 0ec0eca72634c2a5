#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <memory>
#include <mutex>
#include <optional>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The servers that this profile's locations are paired with: the fingerprints of their
/// certificates, stored in the profile, and the secrets that authorize this computer there, stored
/// in the keychain; both by location and address. The engine and its stores share the ownership;
/// create it with std::make_shared. Thread-safe except for `load`.
class DirectConnectionPairings : public std::enable_shared_from_this<DirectConnectionPairings> {
public:
    /// `profile` must outlive the engine.
    explicit DirectConnectionPairings(const ProfileDatabase &profile);
    DirectConnectionPairings(const DirectConnectionPairings &) = delete;
    DirectConnectionPairings &operator=(const DirectConnectionPairings &) = delete;

    /// Takes over what the profile holds; called once, when it was opened.
    Expected<void> load();

    /// That of the server that was paired for `key`.
    std::optional<QByteArray> fingerprint(const QString &key) const;
    /// Empty optional also where the keychain has forgotten it.
    std::optional<QByteArray> secret(const QString &key) const;
    void keep(const QString &key, const QByteArray &fingerprint, const QByteArray &secret);

private:
    const ProfileDatabase &m_profile;
    mutable std::mutex m_mutex;
    QHash<QString, QByteArray> m_fingerprints;
};
