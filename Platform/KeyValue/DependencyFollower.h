#pragma once

#include <QtCore/QObject>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// Returns the announcement plan of `object`'s class for a change behind the first key of `path`.
/// Never null; valid until the program ends.
const AnnouncementPlan *planForPath(QObject *object, const QByteArray &path);

/// Announces the dependents of `path` when something changes behind the object that the first key
/// of `path` (the head) holds. When the head itself changes, it only observes the new object:
/// announcing the head already announces its dependents.
///
/// Created in the constructor of `object`, which owns it as its parent, so that it is the first
/// observer of the head. Raises an AssertionFailure if a key of `path` does not exist.
class DependencyFollower : public QObject {
    Q_OBJECT
public:
    DependencyFollower(QObject *object, const QByteArray &path);

private:
    void followHead();
    void announceDependents();

    /// The parent.
    QObject *const m_object;
    const QByteArray m_path;
    /// Null until the first change, since the class of `m_object` is not known in its constructor.
    const AnnouncementPlan *m_plan = nullptr;
    /// Replaces `m_restObservation` when the head changes.
    Observation m_headObservation;
    Observation m_restObservation;
};

}  // namespace KeyValue
