#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <mutex>
#include <optional>

#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// The servers that this profile's locations were paired with: the fingerprints of their
/// certificates, kept in the profile, and the secrets by which this computer is known there, kept
/// in the keychain, by location and address. Made and destroyed on the main thread; any thread may
/// ask.
class DirectConnectionPairings {
public:
    /// There is one at a time, `shared` from then on. `profile` must outlive it.
    explicit DirectConnectionPairings(const ProfileDatabase &profile);
    ~DirectConnectionPairings();
    DirectConnectionPairings(const DirectConnectionPairings &) = delete;
    DirectConnectionPairings &operator=(const DirectConnectionPairings &) = delete;

    static DirectConnectionPairings &shared();

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
