#include "Engine/DirectConnection/DirectConnectionPairings.h"

#include "Engine/Foundation/FoundSecret.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Host/QVApplication.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Security/Keychain.h"

namespace {

const QString KeychainService = QStringLiteral("Velmora Direct Connection Servers");
const QString SettingPrefix = QStringLiteral("directConnectionServer ");

bool isOfLocation(const QString &key, const QString &identifier) {
    return key.endsWith(u' ' + identifier);
}

/// Deletes the secrets of `keys` one after the other, until one fails.
void forgetAll(QStringList keys, const DirectConnectionPairings::ForgottenHandler &handler) {
    if (keys.isEmpty()) {
        handler({});
        return;
    }
    const QByteArray key = keys.takeFirst().toUtf8();
    Keychain::shared().removeFirstLater(KeychainService.toUtf8(), key,
                                        [keys, handler](const Expected<bool> &isRemoved) {
                                            if (isRemoved) {
                                                forgetAll(keys, handler);
                                            } else {
                                                handler(failure(isRemoved.error()));
                                            }
                                        });
}

}  // namespace

DirectConnectionPairings::DirectConnectionPairings(const ProfileDatabase &profile)
    : m_profile(&profile) {}

void DirectConnectionPairings::close() {
    m_profile = nullptr;
}

Expected<void> DirectConnectionPairings::load() {
    const std::lock_guard lock(m_mutex);
    return ProfileSettings::values(*m_profile, SettingPrefix).map([this](const auto &values) {
        for (auto each = values.begin(); each != values.end(); ++each) {
            m_fingerprints.insert(each.key(), QByteArray::fromHex(each.value().toByteArray()));
        }
    });
}

std::optional<QByteArray> DirectConnectionPairings::fingerprint(const QString &key) const {
    const std::lock_guard lock(m_mutex);
    const auto position = m_fingerprints.find(key);
    return position == m_fingerprints.end() ? std::nullopt : std::optional(*position);
}

Expected<std::optional<SecretBytes>> DirectConnectionPairings::secret(
    const QString &key, const std::stop_token &cancellation) const {
    return foundSecret(Keychain::shared().password(KeychainService, key, cancellation))
        .map([](const std::optional<SecretBytes> &hex) -> std::optional<SecretBytes> {
            return hex ? std::optional<SecretBytes>(QByteArray::fromHex(hex->toByteArray()))
                       : std::nullopt;
        });
}

void DirectConnectionPairings::keep(const QString &key, const QByteArray &fingerprint,
                                    const SecretBytes &secret) {
    {
        const std::lock_guard lock(m_mutex);
        m_fingerprints.insert(key, fingerprint);
    }
    QByteArray hex = secret.toByteArray().toHex();
    Keychain::shared().setPassword(KeychainService, key, hex);
    SecretBytes::wipe(hex);
    MainQueue::dispatchAsync([pairings = weak_from_this(), key, fingerprint] {
        if (const auto living = pairings.lock()) {
            living->save(key, fingerprint);
        }
    });
}

bool DirectConnectionPairings::mayAsk(const QString &key) {
    const std::lock_guard lock(m_mutex);
    return m_questionLimits.try_emplace(key, m_pauses).first->second.open();
}

void DirectConnectionPairings::didAsk(const QString &key, bool isPaired) {
    const std::lock_guard lock(m_mutex);
    m_questionLimits.at(key).close(isPaired);
}

Expected<void> DirectConnectionPairings::forget(const QString &identifier) {
    const std::lock_guard lock(m_mutex);
    const QStringList keys = m_fingerprints.keys();
    for (const QString &key : keys) {
        if (!isOfLocation(key, identifier)) {
            continue;
        }
        if (Expected<void> removed = ProfileSettings::remove(*m_profile, SettingPrefix + key);
            !removed) {
            return removed;
        }
        m_fingerprints.remove(key);
    }
    return {};
}

void DirectConnectionPairings::forgetSecrets(const QString &identifier,
                                             const ForgottenHandler &handler) {
    Keychain::shared().findAccounts(
        KeychainService, [identifier, handler](Expected<QStringList> keys) {
            if (!keys) {
                handler(failure(keys.error()));
                return;
            }
            keys->removeIf([&](const QString &key) { return !isOfLocation(key, identifier); });
            forgetAll(*keys, handler);
        });
}

void DirectConnectionPairings::save(const QString &key, const QByteArray &fingerprint) const {
    if (!m_profile) {
        return;
    }
    const Expected<void> written = ProfileSettings::set(*m_profile, SettingPrefix + key,
                                                        QString::fromLatin1(fingerprint.toHex()));
    if (!written) {
        NSApp()->presentError(written.error());
    }
}
