#include "Application/SynchronizationMonitor.h"

#include "Application/Interface/NoteLibrary.h"
#include "Host/Notifications.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Foundation/NotificationCenter.h"

SynchronizationMonitor::SynchronizationMonitor(const NoteLibrary *library, QObject *parent)
    : QObject(parent),
      m_library(library),
      m_dispatcher(QVSyncPlugin::plugin()->dispatcher()),
      m_summary(SynchronizationSummary::of(*QVSyncPlugin::plugin())) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (!isRunning()) {
            update();
        }
    });
    connect(m_dispatcher, &QVSyncDispatcher::activityChanged, this, [this] {
        if (isRunning()) {
            Q_EMIT changed();
        } else {
            update();
        }
    });
    if (m_dispatcher->metaObject()->indexOfProperty(QVSyncProgress::Key) >= 0) {
        m_progressObservation =
            KeyValue::observe(m_dispatcher, QVSyncProgress::Key, [this] { Q_EMIT changed(); });
    }
    const QVSyncLocationsController *locations = QVSyncPlugin::plugin()->locationsController();
    locations->connectSaved(&m_timer, SLOT(start()));
    connect(m_dayChange.get(), &DayChange::occurred, this, &SynchronizationMonitor::updateSoon);
    NotificationCenter::defaultCenter().addObserver(this, QVSyncScheduleDidFireNotification,
                                                    [this](const auto &) { updateSoon(); });
    connect(m_library, &NoteLibrary::knownDatabasesChanged, this,
            &SynchronizationMonitor::observeDatabases);
    observeDatabases();
}

void SynchronizationMonitor::observeDatabases() {
    const auto databases = m_library->knownDatabases();
    for (const auto &database : databases) {
        connect(database.get(), &NoteDatabase::notesChanged, this,
                &SynchronizationMonitor::updateSoon, Qt::UniqueConnection);
        connect(database.get(), &NoteDatabase::nameChanged, this,
                &SynchronizationMonitor::updateSoon, Qt::UniqueConnection);
    }
    updateSoon();
}

void SynchronizationMonitor::updateSoon() {
    m_timer.start();
}

void SynchronizationMonitor::update() {
    m_timer.stop();
    m_summary = SynchronizationSummary::of(*QVSyncPlugin::plugin());
    Q_EMIT changed();
}

bool SynchronizationMonitor::isRunning() const {
    return !activity().isEmpty();
}

bool SynchronizationMonitor::isStoppable() const {
    return isRunning() && QVSyncProgress::canStop(m_dispatcher);
}

void SynchronizationMonitor::stop() {
    if (isStoppable()) {
        QVSyncProgress::stop(m_dispatcher);
    }
}

QString SynchronizationMonitor::activity() const {
    return m_dispatcher->activity();
}

QVSyncProgress SynchronizationMonitor::progress() const {
    return QVSyncProgress::of(m_dispatcher);
}

QString SynchronizationMonitor::text() const {
    if (!isRunning()) {
        return m_summary.text();
    }
    const QVSyncProgress reached = progress();
    return reached.total == 0 ? activity()
                              : tr("%1 %2 of %3")
                                    .arg(activity(), QString::number(reached.done),
                                         QString::number(reached.total));
}
