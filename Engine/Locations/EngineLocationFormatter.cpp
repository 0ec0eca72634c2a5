#include "Engine/Locations/EngineLocationFormatter.h"

#include <QtGui/QIcon>

#include "Host/SyncStrings.h"

namespace {

QString titleOr(const QString &title, const QString &locationType) {
    return title.isEmpty() ? locationType : title;
}

}  // namespace

EngineLocationFormatter::EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind)
    : m_iconName(kind.iconName),
      m_locationType(localizedSyncString(kind.type)),
      m_title(titleOr(kind.title(URL), m_locationType)) {}

QPixmap EngineLocationFormatter::icon() const {
    const QIcon icon(QStringLiteral(":/VelmoraSync/Icons/%1.svg").arg(m_iconName));
    return icon.pixmap(QSize(32, 32), 2);
}
