#include "Engine/Plugin/RemovedLocations.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/FailureLog.h"
#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Locations/EngineLocationKinds.h"
#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/SteppedDeletion.h"
#include "Host/SyncStrings.h"

RemovedLocations::RemovedLocations(const ProfileDatabase &profile,
                                   const EngineLocationsController &locations,
                                   const EngineLocationKinds &kinds)
    : m_profile(profile), m_locations(locations), m_kinds(kinds), m_logMover(profile) {}

void RemovedLocations::start() {
    const Expected<QStringList> removed = m_locations.removedLocations();
    if (!removed) {
        logFailureOf(failure(removed.error()));
        return;
    }
    for (const QString &identifier : *removed) {
        forget(identifier);
    }
}

void RemovedLocations::didRemoveLocation(const QString &identifier) {
    const quint64 removal = ++m_removals[identifier];
    QTimer::singleShot(m_undoTime, this, [this, identifier, removal] {
        if (m_removals.value(identifier) == removal) {
            forget(identifier);
        }
    });
}

void RemovedLocations::forget(const QString &identifier) {
    const Expected<std::optional<Url>> removed = m_locations.removedURL(identifier);
    if (!removed || !*removed || isListed(identifier)) {
        logFailureOf(removed.map([](const auto &) {}));
        return;
    }
    const Expected<bool> isForgotten =
        KnownTransactions::forgetSomeOfStore(m_profile, identifier, SteppedDeletion::StepDuration);
    if (!isForgotten) {
        logFailureOf(failure(isForgotten.error()));
    } else if (*isForgotten) {
        forgetRest(identifier, **removed);
    } else {
        goOn(identifier);
    }
}

void RemovedLocations::goOn(const QString &identifier) {
    m_logMover.move(
        [this, identifier, removal = m_removals.value(identifier)](const Expected<void> &moved) {
            // The next start goes on where the log could not be moved.
            logFailureOf(moved);
            // It may have been undone, and the location removed again, meanwhile.
            if (moved && m_removals.value(identifier) == removal) {
                forget(identifier);
            }
        });
}

void RemovedLocations::forgetRest(const QString &identifier, const Url &URL) {
    const EngineLocationKind &kind = m_kinds.kindForURL(URL);
    const Expected<void> forgotten = kind.forgetInProfile(identifier).and_then([&] {
        return kind.forgetServer(URL, listedURLs(kind));
    });
    if (!forgotten) {
        logFailureOf(forgotten);
        return;
    }
    if (isNeeded(URL)) {
        finish(identifier);
    } else {
        kind.forgetSecrets(
            {.identifier = identifier,
             .URL = URL,
             .isNeeded = [self = QPointer(this), URL] { return !self || self->isNeeded(URL); },
             .finish = finisher(identifier, URL)});
    }
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
        logFailureOf(failure(engineError(
            EngineErrorCode::AccessDenied,
            localizedSyncString("The keyring still contains what belongs to the removed location "
                                "“%1”. Velmora deletes it when it starts again. (%2)")
                .arg(EngineLocationFormatter(URL, self->m_kinds.kindForURL(URL),
                                             self->m_locations.syncLocations())
                         .title(),
                     forgotten.error().localizedFailureReason))));
    };
}

void RemovedLocations::finish(const QString &identifier) const {
    logFailureOf(m_locations.forgetRemoval(identifier));
}

QList<Url> RemovedLocations::listedURLs(const EngineLocationKind &kind) const {
    QList<Url> URLs;
    const auto locations = m_locations.syncLocations();
    for (const auto &location : locations) {
        if (&m_kinds.kindForURL(location->URL()) == &kind) {
            URLs.append(location->URL());
        }
    }
    return URLs;
}

bool RemovedLocations::isNeeded(const Url &URL) const {
    const EngineLocationKind &kind = m_kinds.kindForURL(URL);
    const QList<Url> others = listedURLs(kind);
    return std::any_of(others.begin(), others.end(),
                       [&](const Url &other) { return kind.sharesSecrets(URL, other); });
}

bool RemovedLocations::isListed(const QString &identifier) const {
    const auto locations = m_locations.syncLocations();
    return std::any_of(locations.begin(), locations.end(), [&](const auto &location) {
        const auto ours = std::dynamic_pointer_cast<EngineSyncLocation>(location);
        return ours && ours->identifier() == identifier;
    });
}
