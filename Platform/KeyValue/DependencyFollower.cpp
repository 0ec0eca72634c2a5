#include "Platform/KeyValue/DependencyFollower.h"

namespace KeyValue {

DependencyFollower::DependencyFollower(QObject *object, const QByteArray &head,
                                       const QByteArray &rest, const AnnouncementPlan *plan)
    : QObject(object), m_object(object), m_head(head), m_rest(rest), m_plan(plan) {
    m_headObservation = observe(
        object, head, [this] { followHead(); }, Deliver::InitialAndChanges);
}

void DependencyFollower::followHead() {
    QObject *next = objectValue(value(m_object, m_head));
    m_restObservation =
        next ? observe(next, m_rest, [this] { announce(m_plan, m_object); }) : Observation();
}

}  // namespace KeyValue
