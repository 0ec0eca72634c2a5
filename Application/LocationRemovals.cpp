#include "Application/LocationRemovals.h"

#include <QtCore/QTimer>
#include <algorithm>

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/SaveLocations.h"

LocationRemovals::LocationRemovals(QVSyncLocationsController *controller, QObject *parent)
    : QObject(parent), m_controller(controller), m_listed(listed()) {
    controller->connectSaved(this, SLOT(update()));
}

LocationRemovals::~LocationRemovals() = default;

QString LocationRemovals::title() const {
    return isEmpty() ? QString()
                     : QVSyncLocationFormatter::formatterForLocationWithURL(
                           m_removals.last().listed.location->URL())
                           ->title();
}

Expected<void> LocationRemovals::undo() {
    const Removal removal = m_removals.last();
    const qsizetype index = std::min(removal.index, m_controller->countOfSyncLocations());
    m_controller->insertObjectInSyncLocationsAtIndex(removal.listed.location, index);
    for (const auto &state : removal.listed.enabledStates) {
        state->setEnabled(true);
    }
    const Expected<void> saved = saveLocations(*m_controller);
    if (saved) {
        update();
    } else {
        m_controller->removeObjectFromSyncLocationsAtIndex(index);
    }
    return saved;
}

void LocationRemovals::update() {
    const QList<Listed> former = std::exchange(m_listed, listed());
    for (qsizetype i = 0; i < former.size(); ++i) {
        if (!isListed(former[i].location)) {
            remember(former[i], i);
        }
    }
    forgetIf([this](const Removal &removal) { return isListed(removal.listed.location); });
}

QList<LocationRemovals::Listed> LocationRemovals::listed() const {
    QList<Listed> listed;
    const auto locations = m_controller->syncLocations();
    for (const auto &location : locations) {
        listed.append({location, location->synchronizationStates()});
        listed.last().enabledStates.removeIf([](const auto &state) { return !state->isEnabled(); });
    }
    return listed;
}

bool LocationRemovals::isListed(const std::shared_ptr<QVSyncLocation> &location) const {
    return m_controller->indexOfObjectInSyncLocations(location) >= 0;
}

void LocationRemovals::remember(const Listed &location, qsizetype index) {
    const quint64 number = ++m_lastNumber;
    m_removals.append({location, index, number});
    QTimer::singleShot(m_undoTime, this, [this, number] {
        forgetIf([&](const Removal &removal) { return removal.number == number; });
    });
    Q_EMIT changed();
}

template <class Predicate>
void LocationRemovals::forgetIf(Predicate predicate) {
    if (m_removals.removeIf(predicate) > 0) {
        Q_EMIT changed();
    }
}
