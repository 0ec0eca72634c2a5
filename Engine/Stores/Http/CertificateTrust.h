#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <mutex>

#include "Engine/Profile/ProfileDatabase.h"

class QSslCertificate;

/// The certificates that the person trusts although nothing vouches for them: each for one
/// location, kept in the profile by its SHA-256 fingerprint. The engine owns the only one; the
/// static functions answer for it, and trust nothing where there is none.
class CertificateTrust {
public:
    /// `profile` must outlive this. Main thread, as are destruction and `load`.
    explicit CertificateTrust(const ProfileDatabase &profile);
    ~CertificateTrust();
    CertificateTrust(const CertificateTrust &) = delete;
    CertificateTrust &operator=(const CertificateTrust &) = delete;

    /// Takes over what the profile holds, and forgets there what belongs to no location any more.
    Expected<void> load();

    /// Whether the location of that identifier trusts `certificate`. Any thread.
    static bool contains(const QString &location, const QSslCertificate &certificate);
    /// Asks the person whether to trust `certificate`, which `server` shows and `reasons` speak
    /// against, and keeps a yes. Returns at once; asks once for each location and certificate as
    /// long as the engine runs. Any thread.
    static void ask(const QString &location, const QString &server,
                    const QSslCertificate &certificate, const QStringList &reasons);

private:
    struct Key {
        QString location;
        QString fingerprint;
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed) {
            return qHashMulti(seed, key.location, key.fingerprint);
        }
    };

    static Key key(const QString &location, const QSslCertificate &certificate);
    static void accept(const Key &key);

    const ProfileDatabase &m_profile;
    QSet<Key> m_trusted;
    QSet<Key> m_asked;

    static std::mutex s_mutex;
    static CertificateTrust *s_current;
};
