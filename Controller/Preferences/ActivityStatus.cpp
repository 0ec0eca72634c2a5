#include "Controller/Preferences/ActivityStatus.h"

#include <QtCore/QCoreApplication>

#include "Host/SyncStrings.h"
#include "Host/SynchronizationText.h"

namespace {

constexpr int Percent = 100;

QString idleText() {
    return QCoreApplication::instance()->property(SynchronizationTextKey).toString();
}

}  // namespace

ActivityStatus::ActivityStatus(QObject *parent) : QObject(parent) {
    QCoreApplication *application = QCoreApplication::instance();
    if (application->metaObject()->indexOfProperty(SynchronizationTextKey) >= 0) {
        m_idleTextObservation =
            KeyValue::observe(application, SynchronizationTextKey, [this] { Q_EMIT changed(); });
    }
}

void ActivityStatus::setDispatcher(QVSyncDispatcher *dispatcher) {
    m_dispatcher = dispatcher;
    m_activityObservation.stop();
    m_progressObservation.stop();
    if (dispatcher) {
        const auto announce = [this] { Q_EMIT changed(); };
        m_activityObservation = KeyValue::observe(dispatcher, "activity", announce);
        if (dispatcher->metaObject()->indexOfProperty(QVSyncProgress::Key) >= 0) {
            m_progressObservation = KeyValue::observe(dispatcher, QVSyncProgress::Key, announce);
        }
    }
    Q_EMIT changed();
}

QVSyncProgress ActivityStatus::progress() const {
    return m_dispatcher ? QVSyncProgress::of(m_dispatcher) : QVSyncProgress();
}

QString ActivityStatus::text() const {
    const QString activity = m_dispatcher ? m_dispatcher->activity() : QString();
    const QVSyncProgress reached = progress();
    if (activity.isEmpty()) {
        return reached.outcome.isEmpty() ? idleText() : reached.outcome;
    }
    return reached.total == 0
               ? activity
               : localizedSyncString("%1 %2 of %3")
                     .arg(activity, QString::number(reached.done), QString::number(reached.total));
}

bool ActivityStatus::isRunning() const {
    return m_dispatcher && !m_dispatcher->activity().isEmpty();
}

bool ActivityStatus::isStoppable() const {
    return isRunning() && QVSyncProgress::canStop(m_dispatcher);
}

int ActivityStatus::value() const {
    const QVSyncProgress reached = progress();
    return reached.total == 0 ? 0 : static_cast<int>(reached.done * Percent / reached.total);
}

int ActivityStatus::maximum() const {
    return progress().total == 0 ? 0 : Percent;
}

void ActivityStatus::stop() {
    QVSyncProgress::stop(m_dispatcher);
}
