#include "HostCheck/NotifyWatch.h"

#include <QtCore/QThread>
#include <utility>

#include "HostCheck/Checking.h"

NotifyWatch::NotifyWatch(const QObject &sender, const char *property, std::function<void()> noted)
    : m_noted(std::move(noted)) {
    const QMetaObject *meta = sender.metaObject();
    const QMetaProperty found = meta->property(meta->indexOfProperty(property));
    Checking::requireOffer(found.hasNotifySignal());
    connect(&sender, found.notifySignal(), this,
            staticMetaObject.method(staticMetaObject.indexOfSlot("note()")), Qt::DirectConnection);
}

void NotifyWatch::note() {
    if (QThread::currentThread() == thread()) {
        m_noted();
    } else {
        m_isNotedElsewhere = true;
    }
}
