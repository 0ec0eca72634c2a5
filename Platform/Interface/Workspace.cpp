#include "Platform/Interface/Workspace.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtWidgets/QFileIconProvider>

QIcon Workspace::iconForFileType(const QString &extension, const QIcon &fallback) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QLatin1StringView("file.") + extension,
                                                           QMimeDatabase::MatchExtension);
    return type.isDefault() ? fallback : QIcon::fromTheme(type.iconName(), fallback);
}

QIcon Workspace::iconForFile(const QString &path) {
    const QFileInfo file(path);
    const QFileIconProvider provider;
    return file.exists() ? provider.icon(file) : provider.icon(QFileIconProvider::File);
}

void Workspace::selectFile(const QString &path) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    QDBusConnection::sessionBus().asyncCall(call);
}
