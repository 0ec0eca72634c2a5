#pragma once

#include <QtCore/QObject>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// Sends `plan` for `object` whenever something changes behind the object that its key `head`
/// holds. A new value of `head` itself is only followed: whoever announces `head` announces the
/// dependents. A child of `object`, made in its constructor and so the first to hear of `head`.
class DependencyFollower : public QObject {
    Q_OBJECT
public:
    DependencyFollower(QObject *object, const QByteArray &head, const QByteArray &rest,
                       const AnnouncementPlan *plan);

private:
    void followHead();

    QObject *const m_object;
    const QByteArray m_head;
    const QByteArray m_rest;
    const AnnouncementPlan *const m_plan;
    Observation m_headObservation;
    Observation m_restObservation;
};

}  // namespace KeyValue
