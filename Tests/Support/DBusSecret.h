#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

/// The structure "Secret" of a Secret Service, (oayays).
struct DBusSecret {
    QDBusObjectPath session = {};
    QByteArray parameters = {};
    QByteArray value = {};
    QString contentType = {};
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const DBusSecret &secret) {
    argument.beginStructure();
    argument << secret.session << secret.parameters << secret.value << secret.contentType;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, DBusSecret &secret) {
    argument.beginStructure();
    argument >> secret.session >> secret.parameters >> secret.value >> secret.contentType;
    argument.endStructure();
    return argument;
}

Q_DECLARE_METATYPE(DBusSecret)
