#include "Platform/KeyValue/DependencyFollower.h"

#include "Platform/KeyValue/KeyPath.h"

namespace KeyValue {

DependencyFollower::DependencyFollower(QObject *object, const QByteArray &head,
                                       const QByteArray &rest, const AnnouncementPlan *plan)
    : QObject(object),
      m_object(object),
      m_head(head),
      m_rest(rest),
      m_plan(plan),
      m_headObservation(observe(object, head, [this] { followHead(); })) {
    followHead();
}

void DependencyFollower::followHead() {
    m_restObservation.stop();
    if (QObject *next = objectAt(m_object, m_head)) {
        m_restObservation = observe(next, m_rest, [this] { announce(m_plan, m_object); });
    }
}

}  // namespace KeyValue
