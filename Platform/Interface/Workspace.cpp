#include "Platform/Interface/Workspace.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QFileIconProvider>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

Error noFileManager(const QString &path) {
    return {.domain = QStringLiteral("Workspace"),
            .localizedDescription =
                localizedString(PlatformTable,
                                "No file manager could be started. Install one, or open the folder "
                                "“%1” in another program.")
                    .arg(path)};
}

void openFolderOf(const QString &path, const Workspace::FailureHandler &failed) {
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(path).path());
    if (!QDesktopServices::openUrl(folder) && failed) {
        failed(noFileManager(path));
    }
}

}  // namespace

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

void Workspace::selectFile(const QString &path, const FailureHandler &failed) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        // A call would never end.
        MainQueue::dispatchAsync([path, failed] { openFolderOf(path, failed); });
        return;
    }
    auto *reply = new QDBusPendingCallWatcher(bus.asyncCall(call), qApp);
    QObject::connect(reply, &QDBusPendingCallWatcher::finished, reply, [reply, path, failed] {
        reply->deleteLater();
        if (reply->isError()) {
            openFolderOf(path, failed);
        }
    });
}
