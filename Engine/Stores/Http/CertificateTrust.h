#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <memory>
#include <mutex>

#include "Engine/Profile/ProfileDatabase.h"

class QSslCertificate;

/// The certificates that the user trusts although no authority vouches for them: each for one
/// location, stored in the profile by its SHA-256 fingerprint. The engine and its stores share the
/// ownership; create it with std::make_shared. `contains` and `ask` are thread-safe; everything
/// else must be called on the main thread.
class CertificateTrust : public std::enable_shared_from_this<CertificateTrust> {
public:
    /// `profile` must outlive this object or the call of `close`.
    explicit CertificateTrust(const ProfileDatabase &profile);
    CertificateTrust(const CertificateTrust &) = delete;
    CertificateTrust &operator=(const CertificateTrust &) = delete;

    /// Takes over what the profile holds, and forgets there what belongs to no location any more.
    Expected<void> load();

    /// Whether the location of that identifier trusts `certificate`. Any thread.
    bool contains(const QString &location, const QSslCertificate &certificate) const;
    /// Asks the person whether to trust `certificate`, which `server` shows and `reasons` speak
    /// against, and keeps a yes. Returns at once; asks once for each location and certificate as
    /// long as the engine runs. Any thread.
    void ask(const QString &location, const QString &server, const QSslCertificate &certificate,
             const QStringList &reasons);
    /// Called when the engine ends: from then on no certificate is trusted and no answer of the
    /// user is stored.
    void close();

private:
    struct Key {
        QString location;
        QString fingerprint;
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed) {
            return qHashMulti(seed, key.location, key.fingerprint);
        }
    };

    bool isOpen() const;
    static Key key(const QString &location, const QSslCertificate &certificate);
    void accept(const Key &key);

    mutable std::mutex m_mutex;
    /// nullptr once this is closed.
    const ProfileDatabase *m_profile;
    QSet<Key> m_trusted;
    QSet<Key> m_asked;
};
