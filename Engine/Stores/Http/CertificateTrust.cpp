#include "Engine/Stores/Http/CertificateTrust.h"

#include <QtNetwork/QSslCertificate>
#include <utility>

#include "Engine/Stores/Http/CertificateQuestion.h"
#include "Host/QVApplication.h"
#include "Platform/Foundation/MainQueue.h"

CertificateTrust::CertificateTrust(const ProfileDatabase &profile) : m_profile(&profile) {}

bool CertificateTrust::isOpen() const {
    const std::lock_guard lock(m_mutex);
    return m_profile;
}

void CertificateTrust::close() {
    QStringList locations;
    {
        const std::lock_guard lock(m_mutex);
        m_profile = nullptr;
        m_trusted.clear();
        for (const auto &[location, questions] : m_questions) {
            locations.append(location);
        }
    }
    for (const QString &location : locations) {
        withdraw(location);
    }
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
    withdraw(location);
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
        const auto isAllowed = [&] {
            return m_questions.try_emplace(location, Questions{QuestionLimit(m_pauses)})
                .first->second.limit.open();
        };
        if (!m_profile || m_asked.contains(asked) || !isAllowed()) {
            return;
        }
        m_asked.insert(asked);
    }
    MainQueue::dispatchAsync([trust = weak_from_this(), asked,
                              question = CertificateQuestion::make(server, certificate, reasons)] {
        const auto asker = trust.lock();
        if (asker && asker->isOpen()) {
            asker->present(asked, question);
        }
    });
}

void CertificateTrust::present(const Key &key, const Question &question) {
    QuestionPresenter *presenter = QuestionPresenter::ofApplication();
    if (!presenter) {
        return;
    }
    const auto withdraw =
        presenter->ask(question, [trust = weak_from_this(), key](bool isAccepted) {
            if (const auto living = trust.lock()) {
                living->didAnswer(key, isAccepted);
            }
        });
    const std::lock_guard lock(m_mutex);
    m_questions.at(key.location).withdraw = withdraw;
}

void CertificateTrust::didAnswer(const Key &key, bool isAccepted) {
    {
        const std::lock_guard lock(m_mutex);
        if (const auto questions = m_questions.find(key.location); questions != m_questions.end()) {
            questions->second.limit.close(isAccepted);
            questions->second.withdraw = nullptr;
        }
    }
    if (isAccepted) {
        accept(key);
    }
}

void CertificateTrust::withdraw(const QString &location) {
    QuestionPresenter::Withdrawal open;
    {
        const std::lock_guard lock(m_mutex);
        if (const auto questions = m_questions.find(location); questions != m_questions.end()) {
            open = std::exchange(questions->second.withdraw, nullptr);
        }
    }
    if (open) {
        open();
    }
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
