#include "Engine/Plugin/RemovedLocations.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <algorithm>

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Host/LocationSchemes.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Platform/Security/UrlCredentialStorage.h"

namespace {

bool isWebDAV(const Url &URL) {
    return URL.scheme() == LocationSchemes::Http || URL.scheme() == LocationSchemes::Https;
}

/// Returns the address of the Dropbox account; empty if the URL is of another kind.
QString dropboxAccount(const Url &URL) {
    const QString prefix = LocationSchemes::Dropbox + QStringLiteral("://");
    const QString text = URL.absoluteString();
    return text.startsWith(prefix) ? text.sliced(prefix.size()).section(u'/', 0, 0) : QString();
}

std::optional<UrlProtectionSpace> serverOf(const Url &URL) {
    return UrlProtectionSpace::ofURL(URL, {});
}

QString nameOf(const Url &URL) {
    const QString account = dropboxAccount(URL);
    return account.isEmpty() ? URL.host() : account;
}

void reportIfFailed(const Expected<void> &result) {
    if (!result) {
        NSApp()->logItemCmd(QStringLiteral("Sync:"), result.error().localizedDescription);
    }
}

}  // namespace

RemovedLocations::RemovedLocations(const ProfileDatabase &profile,
                                   const EngineLocationsController &locations,
                                   EngineContext &context)
    : m_profile(profile), m_locations(locations), m_context(context) {}

void RemovedLocations::start() {
    const Expected<QStringList> removed = m_locations.removedLocations();
    if (!removed) {
        reportIfFailed(failure(removed.error()));
        return;
    }
    for (const QString &identifier : *removed) {
        forget(identifier);
    }
}

void RemovedLocations::didRemoveLocation(const QString &identifier) {
    QTimer::singleShot(m_undoTime, this, [this, identifier] { forget(identifier); });
}

void RemovedLocations::forget(const QString &identifier) {
    const Expected<std::optional<Url>> removed = m_locations.removedURL(identifier);
    if (!removed || !*removed || isListed(identifier)) {
        reportIfFailed(removed.map([](const auto &) {}));
        return;
    }
    if (const Expected<void> forgotten = forgetInProfile(identifier); !forgotten) {
        reportIfFailed(forgotten);
        return;
    }
    const Url URL = **removed;
    if (isWebDAV(URL)) {
        forgetPassword(identifier, URL);
    } else if (!dropboxAccount(URL).isEmpty()) {
        forgetTokens(identifier, URL);
    } else if (URL.scheme() == DirectConnection::URLScheme) {
        DirectConnectionPairings::forgetSecrets(identifier, finisher(identifier, URL));
    } else {
        finish(identifier);
    }
}

Expected<void> RemovedLocations::forgetInProfile(const QString &identifier) const {
    return m_profile
        .write([&] {
            return m_profile
                .run(QStringLiteral("DELETE FROM known_transactions WHERE place = ?"), {identifier})
                .and_then([&] {
                    return m_profile.run(
                        QStringLiteral("DELETE FROM settings WHERE key LIKE 'lastVerified % ' || ?"
                                       " OR key LIKE 'written % ' || ?"),
                        {identifier, identifier});
                });
        })
        .and_then([&] { return m_context.certificateTrust->forget(identifier); })
        .and_then([&] { return m_context.pairings->forget(identifier); });
}

void RemovedLocations::forgetTokens(const QString &identifier, const Url &URL) {
    if (isCredentialNeeded(URL)) {
        finish(identifier);
    } else {
        DropboxTokens::forget(dropboxAccount(URL), finisher(identifier, URL));
    }
}

void RemovedLocations::forgetPassword(const QString &identifier, const Url &URL) {
    if (isCredentialNeeded(URL)) {
        finish(identifier);
        return;
    }
    UrlCredentialStorage::shared().findUsersForURL(
        URL, [self = QPointer(this), identifier, URL](const Expected<QStringList> &users) {
            if (!self) {
                return;
            }
            if (users && users->contains(URL.user())) {
                self->askToForgetPassword(identifier, URL);
            } else {
                self->finisher(identifier, URL)(users.map([](const QStringList &) {}));
            }
        });
}

void RemovedLocations::askToForgetPassword(const QString &identifier, const Url &URL) {
    QuestionPresenter *presenter = QuestionPresenter::shared();
    if (!presenter) {
        return;
    }
    presenter->ask(
        {localizedSyncString("Forget the password of “%1”?").arg(URL.host()),
         localizedSyncString("You have removed the location. No other location uses the password."),
         localizedSyncString("Forget"), localizedSyncString("Keep")},
        [self = QPointer(this), identifier, URL](bool isAccepted) {
            if (!self) {
                return;
            }
            // The user may have added such a location meanwhile.
            if (isAccepted && !self->isCredentialNeeded(URL)) {
                UrlCredentialStorage::shared().removeCredentialForURL(
                    URL, self->finisher(identifier, URL));
            } else {
                self->finish(identifier);
            }
        });
}

std::function<void(const Expected<void> &)> RemovedLocations::finisher(const QString &identifier,
                                                                       const Url &URL) {
    return [self = QPointer(this), identifier, URL](const Expected<void> &forgotten) {
        if (!self) {
            return;
        }
        if (forgotten) {
            self->finish(identifier);
            return;
        }
        reportIfFailed(failure(engineError(
            EngineErrorCode::AccessDenied,
            localizedSyncString("The keyring still contains what belongs to the removed location "
                                "“%1”. Velmora deletes it when it starts again. (%2)")
                .arg(nameOf(URL), forgotten.error().localizedFailureReason))));
    };
}

void RemovedLocations::finish(const QString &identifier) const {
    reportIfFailed(m_locations.forgetRemoval(identifier));
}

bool RemovedLocations::isCredentialNeeded(const Url &URL) const {
    const auto locations = m_locations.syncLocations();
    return std::any_of(locations.begin(), locations.end(), [&](const auto &location) {
        const Url other = location->URL();
        if (isWebDAV(URL)) {
            return isWebDAV(other) && serverOf(other) == serverOf(URL) &&
                   (other.user().isNull() || other.user() == URL.user());
        }
        return dropboxAccount(other).compare(dropboxAccount(URL), Qt::CaseInsensitive) == 0;
    });
}

bool RemovedLocations::isListed(const QString &identifier) const {
    const auto locations = m_locations.syncLocations();
    return std::any_of(locations.begin(), locations.end(), [&](const auto &location) {
        const auto ours = std::dynamic_pointer_cast<EngineSyncLocation>(location);
        return ours && ours->identifier() == identifier;
    });
}
