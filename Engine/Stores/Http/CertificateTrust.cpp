#include "Engine/Stores/Http/CertificateTrust.h"

#include <QtNetwork/QSslCertificate>

#include "Engine/Stores/Http/CertificateQuestion.h"
#include "Host/QVApplication.h"
#include "Platform/Foundation/MainQueue.h"

CertificateTrust::CertificateTrust(const ProfileDatabase &profile) : m_profile(&profile) {}

bool CertificateTrust::isOpen() const {
    const std::lock_guard lock(m_mutex);
    return m_profile;
}

void CertificateTrust::close() {
    const std::lock_guard lock(m_mutex);
    m_profile = nullptr;
    m_trusted.clear();
}

Expected<void> CertificateTrust::load() {
    const std::lock_guard lock(m_mutex);
    return m_profile
        ->run(QStringLiteral("DELETE FROM trusted_certificates WHERE location_uuid"
                             " NOT IN (SELECT uuid FROM locations)"))
        .and_then([this] {
            return m_profile->read(
                QStringLiteral("SELECT location_uuid, fingerprint FROM trusted_certificates"), {},
                [this](const QSqlQuery &row) {
                    m_trusted.insert({row.value(0).toString(), row.value(1).toString()});
                });
        });
}

Expected<void> CertificateTrust::forget(const QString &location) {
    const std::lock_guard lock(m_mutex);
    return m_profile
        ->run(QStringLiteral("DELETE FROM trusted_certificates WHERE location_uuid = ?"),
              {location})
        .map([&] {
            const auto isOfLocation = [&](const Key &key) { return key.location == location; };
            m_trusted.removeIf(isOfLocation);
            m_asked.removeIf(isOfLocation);
        });
}

bool CertificateTrust::contains(const QString &location, const QSslCertificate &certificate) const {
    const std::lock_guard lock(m_mutex);
    return m_trusted.contains(key(location, certificate));
}

void CertificateTrust::ask(const QString &location, const QString &server,
                           const QSslCertificate &certificate, const QStringList &reasons) {
    const Key asked = key(location, certificate);
    {
        const std::lock_guard lock(m_mutex);
        if (!m_profile || m_asked.contains(asked)) {
            return;
        }
        m_asked.insert(asked);
    }
    MainQueue::dispatchAsync([trust = weak_from_this(), asked,
                              question = CertificateQuestion::make(server, certificate, reasons)] {
        const auto asker = trust.lock();
        QuestionPresenter *presenter = QuestionPresenter::shared();
        if (asker && asker->isOpen() && presenter) {
            presenter->ask(question, [trust, asked](bool isAccepted) {
                const auto living = trust.lock();
                if (living && isAccepted) {
                    living->accept(asked);
                }
            });
        }
    });
}

CertificateTrust::Key CertificateTrust::key(const QString &location,
                                            const QSslCertificate &certificate) {
    return {location, CertificateQuestion::fingerprint(certificate)};
}

void CertificateTrust::accept(const Key &key) {
    Expected<void> written;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_profile) {
            return;
        }
        m_trusted.insert(key);
        written = m_profile->run(QStringLiteral("INSERT OR IGNORE INTO trusted_certificates"
                                                " (location_uuid, fingerprint) VALUES (?, ?)"),
                                 {key.location, key.fingerprint});
    }
    if (!written) {
        NSApp()->presentError(written.error());
    }
}
