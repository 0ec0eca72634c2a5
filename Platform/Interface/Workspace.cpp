#include "Platform/Interface/Workspace.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QFileIconProvider>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>

#include "Platform/Foundation/Localization.h"

namespace {

Error noFileManager(const QString &path) {
    return {.domain = QStringLiteral("Workspace"),
            .localizedDescription =
                localizedString(PlatformTable,
                                "No file manager could be started. Install one, or open the folder "
                                "“%1” in another program.")
                    .arg(path)};
}

Error missing(const QString &path) {
    return {.domain = QStringLiteral("Workspace"),
            .localizedDescription =
                localizedString(PlatformTable,
                                "“%1” does not exist. Check whether it was moved or renamed, and "
                                "whether its volume is connected.")
                    .arg(path)};
}

/// Returns false only if there certainly is nothing. Blocks as long as the volume does.
bool mayExist(const QString &path) {
    std::error_code error;
    return std::filesystem::status(path.toStdString(), error).type() !=
           std::filesystem::file_type::not_found;
}

/// Calls `handler` on the main thread, later.
void findOut(const QString &path, const std::function<void(bool mayExist)> &handler) {
    const auto found = std::make_shared<bool>(true);
    QThread *thread = QThread::create([path, found] { *found = mayExist(path); });
    QObject::connect(thread, &QThread::finished, qApp, [thread, found, handler] {
        thread->deleteLater();
        handler(*found);
    });
    thread->start();
}

void openFolderOf(const QString &path, const Workspace::FailureHandler &failed) {
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(path).path());
    if (!QDesktopServices::openUrl(folder) && failed) {
        failed(noFileManager(path));
    }
}

void selectExisting(const QString &path, const Workspace::FailureHandler &failed) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        // A call would never end.
        openFolderOf(path, failed);
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
    findOut(path, [path, failed](bool mayExist) {
        if (mayExist) {
            selectExisting(path, failed);
        } else if (failed) {
            failed(missing(path));
        }
    });
}
