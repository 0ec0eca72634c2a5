#pragma once

#include <QtCore/QObject>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// The plan of `object`'s class for a change behind `path`.
const AnnouncementPlan *planForPath(QObject *object, const QByteArray &path);

/// Announces the dependents of `path` whenever something changes behind the object that the first
/// key of `path`, the head, holds. A new value of `head` itself is only followed: whoever announces
/// `head` announces the dependents. A child of `object`, made in its constructor and so the first
/// to hear of `head`.
class DependencyFollower : public QObject {
    Q_OBJECT
public:
    DependencyFollower(QObject *object, const QByteArray &path);

private:
    void followHead();
    void announceDependents();

    QObject *const m_object;
    const QByteArray m_path;
    const AnnouncementPlan *m_plan = nullptr;
    Observation m_headObservation;
    Observation m_restObservation;
};

}  // namespace KeyValue
