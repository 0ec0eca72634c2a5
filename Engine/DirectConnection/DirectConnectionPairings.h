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
/// create it with std::make_shared. Thread-safe except for `load` and `close`, which must be called
/// on the main thread.
class DirectConnectionPairings : public std::enable_shared_from_this<DirectConnectionPairings> {
public:
    /// `profile` must outlive this object or the call of `close`.
    explicit DirectConnectionPairings(const ProfileDatabase &profile);
    DirectConnectionPairings(const DirectConnectionPairings &) = delete;
    DirectConnectionPairings &operator=(const DirectConnectionPairings &) = delete;

    /// Takes over what the profile holds; called once, when it was opened.
    Expected<void> load();

    /// Called when the engine ends: from then on no pairing is written to the profile.
    void close();

    /// Returns the fingerprint of the certificate of the server that `key` is paired with, or an
    /// empty optional if it is paired with none.
    std::optional<QByteArray> fingerprint(const QString &key) const;
    /// Returns the secret that authorizes this computer at that server, or an empty optional if
    /// there is none in the keychain.
    std::optional<QByteArray> secret(const QString &key) const;
    /// Stores a pairing in place of an earlier one for `key`. Returns at once; the fingerprint is
    /// written to the profile later, from the main thread's event loop. A failure is logged.
    void keep(const QString &key, const QByteArray &fingerprint, const QByteArray &secret);

private:
    void save(const QString &key, const QByteArray &fingerprint) const;

    /// nullptr once this is closed. Main thread only.
    const ProfileDatabase *m_profile;
    mutable std::mutex m_mutex;
    QHash<QString, QByteArray> m_fingerprints;
};
