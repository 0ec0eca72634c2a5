#include "Engine/Locations/EngineLocationFormatter.h"

#include <QtCore/QFileInfo>
#include <QtGui/QIcon>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Host/SyncStrings.h"

EngineLocationFormatter::EngineLocationFormatter(const Url &URL) {
    const QString scheme = URL.scheme();
    if (URL.isFileURL()) {
        m_title = QFileInfo(URL.path()).completeBaseName();
        m_iconName = QStringLiteral("folder-store");
        m_locationType = localizedSyncString("Local Sync Store");
    } else if (scheme == QStringLiteral("http") || scheme == QStringLiteral("https")) {
        m_title = URL.host();
        m_iconName = QStringLiteral("webdav");
        m_locationType = localizedSyncString("WebDAV");
    } else if (scheme == QStringLiteral("dropbox")) {
        m_title = URL.user().isEmpty() ? URL.host() : URL.user() + u'@' + URL.host();
        m_iconName = QStringLiteral("dropbox");
        m_locationType = localizedSyncString("Dropbox");
    } else if (scheme == DirectConnection::URLScheme) {
        m_title = URL.host();
        m_iconName = QStringLiteral("direct-connection");
        m_locationType = localizedSyncString("Direct Connection");
    } else {
        m_title = URL.isNil() ? localizedSyncString("No Address") : URL.host();
        m_iconName = QStringLiteral("unknown");
        m_locationType = localizedSyncString("Unknown Location");
    }
    if (m_title.isEmpty()) {
        m_title = m_locationType;
    }
}

QPixmap EngineLocationFormatter::icon() const {
    const QIcon icon(QStringLiteral(":/VelmoraSync/Icons/%1.svg").arg(m_iconName));
    return icon.pixmap(QSize(32, 32), 2);
}
