#pragma once

#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <map>
#include <memory>
#include <mutex>

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/Foundation/QuestionLimit.h"
#include "Engine/Profile/ProfileDatabase.h"

class QSslCertificate;

/// The certificates that the user trusts although no authority vouches for them: each for one
/// location, stored in the profile by its SHA-256 fingerprint. Trusting one does not affect other
/// locations or certificates that follow it. Shared ownership by the engine and its stores, which
/// may hold it longer than the engine exists; must be created with std::make_shared. contains() and
/// ask() are thread-safe, but may block for a disk write of another function; all other functions
/// must be called on the main thread.
class CertificateTrust : public std::enable_shared_from_this<CertificateTrust> {
public:
    /// `profile` is not owned and must outlive this object or the call of close().
    explicit CertificateTrust(const ProfileDatabase &profile);
    CertificateTrust(const CertificateTrust &) = delete;
    CertificateTrust &operator=(const CertificateTrust &) = delete;

    /// Reads the certificates from the profile, and deletes those of locations that no longer
    /// exist. Must be called once, after the profile was opened and before close(). If it fails,
    /// this object must not be used. Blocks for the disk.
    Expected<void> load();

    /// Returns whether the location with this identifier trusts `certificate`. Returns false for
    /// every certificate after close().
    bool contains(const QString &location, const QSslCertificate &certificate) const;
    /// Asks the user whether to trust `certificate`, which `server` presents and which `reasons`
    /// (sentences) speak against, and stores a positive answer. Returns at once; contains() returns
    /// true after the answer, until then the caller must treat the certificate as untrusted. Asks
    /// once for each location and certificate while the engine runs, also after a negative answer,
    /// and about the certificates of one location as QuestionLimit allows; otherwise, and after
    /// close(), it has no effect. Without a QuestionPresenter no question is asked, and it counts
    /// as asked.
    ///
    /// If a positive answer cannot be stored, the error is presented to the user, and the
    /// certificate is trusted until the engine ends.
    void ask(const QString &location, const QString &server, const QSslCertificate &certificate,
             const QStringList &reasons);
    /// Sets the pauses between questions, for locations that were not asked about before. The
    /// defaults are 10 minutes and 24 hours.
    void setPauses(const QuestionLimit::Pauses &pauses) { m_pauses = pauses; }
    /// Forgets the certificates that the location with this identifier trusts, and withdraws the
    /// question that is open about one. The user can then be asked about them again. Must not be
    /// called after close(). If it fails, the certificates stay trusted. Blocks for a disk write.
    Expected<void> forget(const QString &location);
    /// Called when the engine ends. Withdraws the open questions. From then on no certificate is
    /// trusted and no answer is stored. Idempotent.
    void close();

private:
    /// Identifies a certificate at a location.
    struct Key {
        QString location;
        QString fingerprint;
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed) {
            return qHashMulti(seed, key.location, key.fingerprint);
        }
    };

    /// The questions about the certificates of a location.
    struct Questions {
        QuestionLimit limit;
        /// Closes the question that is open; empty if none is. Used on the main thread only.
        QuestionPresenter::Withdrawal withdraw = {};
    };

    bool isOpen() const;
    void present(const Key &key, const Question &question);
    /// Called with the user's answer.
    void didAnswer(const Key &key, bool isAccepted);
    /// Withdraws the question of `location` that is open, if there is one.
    void withdraw(const QString &location);
    /// Returns the key of `certificate` at `location`.
    static Key key(const QString &location, const QSslCertificate &certificate);
    /// Stores the user's positive answer, and presents an error if that fails.
    void accept(const Key &key);

    /// Guards the members below.
    mutable std::mutex m_mutex;
    /// Null after close().
    const ProfileDatabase *m_profile;
    QSet<Key> m_trusted;
    /// The certificates that the user was asked about in this run.
    QSet<Key> m_asked;
    QuestionLimit::Pauses m_pauses{std::chrono::minutes(10), std::chrono::hours(24)};
    /// By identifier of the location.
    std::map<QString, Questions> m_questions;
};
