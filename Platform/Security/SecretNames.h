#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

// The functions are thread-safe once the name of the application is set.

/// The attribute of an item that states its kind.
inline const QByteArray SchemaAttribute = QByteArrayLiteral("xdg:schema");

/// Returns the value of SchemaAttribute for secrets of the kind `kind`: the name
/// of the application in lower case, a point, and the kind. It keeps the items of different
/// applications apart and must not change between two versions of one application.
inline QByteArray secretSchema(const char *kind) {
    return QCoreApplication::applicationName().toLower().toUtf8() + '.' + kind;
}

/// Returns the label under which the desktop's password manager lists an item of this application.
inline QString secretLabel(const QString &item) {
    return QStringLiteral("%1: %2").arg(QCoreApplication::applicationName(), item);
}
