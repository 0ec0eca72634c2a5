#include "Support/AnnouncementRecorder.h"

#include <QtCore/QMetaProperty>

AnnouncementRecorder::AnnouncementRecorder(QObject *object) {
    const QMetaObject *meta = object->metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (meta->property(i).hasNotifySignal()) {
            const QByteArray key = meta->property(i).name();
            m_observations.push_back(
                KeyValue::observe(object, key, [this, key] { m_announced.append(key); }));
        }
    }
}
