#pragma once

#include <QtCore/QObject>
#include <memory>
#include <vector>

#include "Platform/KeyValue/KeyValue.h"

/// Records the keys that an object announces, in order.
class AnnouncementRecorder {
public:
    explicit AnnouncementRecorder(QObject *object);

    QByteArrayList announced() const { return m_announced; }
    qsizetype count(const QByteArray &key) const { return m_announced.count(key); }
    void clear() { m_announced.clear(); }

private:
    QByteArrayList m_announced;
    std::vector<KeyValue::Observation> m_observations;
};
