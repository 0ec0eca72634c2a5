#include "Support/FileManagerService.h"

#include <QtDBus/QDBusConnection>
#include <stdexcept>

namespace {
const QString ConnectionName = QStringLiteral("file manager");
const QString FileManagerPath = QStringLiteral("/org/freedesktop/FileManager1");
}  // namespace

FileManagerService::FileManagerService(const QString &busAddress) {
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, ConnectionName);
    if (!bus.registerObject(FileManagerPath, this, QDBusConnection::ExportAllSlots) ||
        !bus.registerService(QStringLiteral("org.freedesktop.FileManager1"))) {
        throw std::runtime_error("the file manager cannot serve on the bus");
    }
}

FileManagerService::~FileManagerService() {
    // Otherwise the thread of the bus may still use this object.
    QDBusConnection(ConnectionName).unregisterObject(FileManagerPath);
    QDBusConnection::disconnectFromBus(ConnectionName);
}

void FileManagerService::ShowItems(const QStringList &URLs, const QString & /*startupId*/) {
    m_shownFiles += URLs;
    Q_EMIT shown();
}
