#include "Controller/Preferences/ClientTextValueTransformer.h"

#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncPlugin.h"

QMetaType ClientTextValueTransformer::transformedValueClass() const {
    return QMetaType::fromType<QString>();
}

QVariant ClientTextValueTransformer::transformedValue(const QVariant &value) const {
    const QString client = value.toString();
    const QVDirectConnectionServer *server = QVSyncPlugin::plugin()->server();
    const QString connection = server ? server->lastConnectionText(client) : QString();
    return connection.isEmpty() ? client : client + u'\n' + connection;
}
