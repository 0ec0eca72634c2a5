#include "Platform/KeyValue/DependencyFollower.h"

#include "Platform/KeyValue/KeyPath.h"

namespace KeyValue {

DependencyFollower::DependencyFollower(QObject *object, const QByteArray &path)
    : QObject(object),
      m_object(object),
      m_path(path),
      m_headObservation(observe(object, splitKeyPath(path).key, [this] { followHead(); })) {
    followHead();
}

void DependencyFollower::followHead() {
    m_restObservation.stop();
    const auto [head, rest] = splitKeyPath(m_path);
    if (QObject *next = objectAt(m_object, head)) {
        m_restObservation = observe(next, rest, [this] { announceDependents(); });
    }
}

void DependencyFollower::announceDependents() {
    // Not known earlier: the constructor may have been that of a base class.
    if (!announceBy(m_plan, m_object)) {
        m_plan = planForPath(m_object, m_path);
        announceBy(m_plan, m_object);
    }
}

}  // namespace KeyValue
