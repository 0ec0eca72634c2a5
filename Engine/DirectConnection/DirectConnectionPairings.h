#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

#include "Engine/Foundation/QuestionLimit.h"
#include "Engine/Foundation/Turns.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretBytes.h"

class ProfileDatabase;

/// The servers that this profile's locations are paired with. The fingerprints of their
/// certificates are stored in the profile, and the secrets that authorize this computer there in
/// the keychain, both by key: the URL of the location and its identifier, so that a location with
/// another address has no pairing. Shared ownership by the engine and its stores; must be created
/// with std::make_shared. Thread-safe except for load(), close() and forget(), which must be called
/// on the main thread; while forget() writes to the disk, all other functions wait for it.
class DirectConnectionPairings : public std::enable_shared_from_this<DirectConnectionPairings> {
public:
    /// `profile` is not owned and must outlive this object or the call of close().
    explicit DirectConnectionPairings(const ProfileDatabase &profile);
    DirectConnectionPairings(const DirectConnectionPairings &) = delete;
    DirectConnectionPairings &operator=(const DirectConnectionPairings &) = delete;

    /// Reads the fingerprints from the profile. Must be called once on the main thread, after the
    /// profile was opened. If it fails, the engine must not be used: it would pair again with any
    /// server.
    Expected<void> load();

    /// Called when the engine ends. From then on no pairing is written to the profile. Idempotent.
    /// Stores may call the other functions afterwards.
    void close();

    /// Returns the fingerprint of the server that was paired for `key`; empty if there is none.
    std::optional<QByteArray> fingerprint(const QString &key) const;
    /// Returns the secret of that pairing; empty if the keychain does not contain it. Returns an
    /// error if the keychain cannot be read. Blocks for at most the timeout of the secret store, or
    /// until `cancellation` is requested.
    Expected<std::optional<SecretBytes>> secret(const QString &key,
                                                const std::stop_token &cancellation = {}) const;
    /// Stores a pairing, replacing that of the same key. Effective at once for this run; written to
    /// the keychain and the profile asynchronously. A failure to write the profile is presented.
    void keep(const QString &key, const QByteArray &fingerprint, const SecretBytes &secret);
    /// Returns the turn in which a store connects that is not paired for `key` yet, so that stores
    /// that connect at the same time pair once. Valid as long as this object.
    Turn &turn(const QString &key) { return m_turns.turn(key); }
    /// Returns whether the user may be asked to pair for `key` now, see QuestionLimit. If so,
    /// didAsk() must be called when the question has ended.
    bool mayAsk(const QString &key);
    /// Must be called exactly once for each mayAsk() that returned true, on any thread.
    void didAsk(const QString &key, bool isPaired);
    /// Sets the pauses between questions, for keys that were not asked about before.
    void setPauses(const QuestionLimit::Pauses &pauses) { m_pauses = pauses; }
    /// Forgets the fingerprints of the location `identifier`, at which their keys end. Must be
    /// called on the main thread before close(). Succeeds if there are none. If it fails, some may
    /// be forgotten; calling it again is safe. Blocks for a disk write.
    Expected<void> forget(const QString &identifier);
    using ForgottenHandler = std::function<void(const Expected<void> &forgotten)>;
    /// Deletes the secrets of the location `identifier` from the keychain, also those whose
    /// fingerprints are forgotten. Returns at once; `handler` is called later on the main thread,
    /// with an error unless all are deleted or there are none.
    static void forgetSecrets(const QString &identifier, const ForgottenHandler &handler);

private:
    /// Writes a fingerprint to the profile, unless this is closed.
    void save(const QString &key, const QByteArray &fingerprint) const;

    /// Null after close(). Used on the main thread only.
    const ProfileDatabase *m_profile;
    mutable std::mutex m_mutex;
    QHash<QString, QByteArray> m_fingerprints;
    QuestionLimit::Pauses m_pauses{std::chrono::seconds(10), std::chrono::hours(1)};
    std::map<QString, QuestionLimit> m_questionLimits;
    Turns m_turns;
};
