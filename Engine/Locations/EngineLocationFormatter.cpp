#include "Engine/Locations/EngineLocationFormatter.h"

#include <QtGui/QIcon>
#include <algorithm>

#include "Engine/Locations/EngineSyncLocation.h"
#include "Host/SyncStrings.h"

namespace {

QString titleOr(const QString &title, const QString &locationType) {
    return title.isEmpty() ? locationType : title;
}

QString addressOf(const Url &URL) {
    return URL.isFileURL() ? URL.path() : URL.stringWithoutPassword();
}

QString titleAmong(const QList<std::shared_ptr<QVSyncLocation>> &locations, const QString &title,
                   const QString &address) {
    const bool isUnique = std::none_of(locations.begin(), locations.end(), [&](const auto &each) {
        const auto &location = static_cast<const EngineSyncLocation &>(*each);
        return EngineLocationFormatter(location.URL(), location.kind()).title() == title &&
               addressOf(location.URL()) != address;
    });
    return isUnique || address.isEmpty() ? title : address;
}

}  // namespace

EngineLocationFormatter::EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind)
    : m_iconName(kind.iconName),
      m_locationType(localizedSyncString(kind.type)),
      m_title(titleOr(kind.title(URL), m_locationType)) {}

EngineLocationFormatter::EngineLocationFormatter(
    const Url &URL, const EngineLocationKind &kind,
    const QList<std::shared_ptr<QVSyncLocation>> &locations)
    : m_iconName(kind.iconName),
      m_locationType(localizedSyncString(kind.type)),
      m_title(titleAmong(locations, titleOr(kind.title(URL), m_locationType), addressOf(URL))) {}

QPixmap EngineLocationFormatter::icon() const {
    const QIcon icon(QStringLiteral(":/VelmoraSync/Icons/%1.svg").arg(m_iconName));
    return icon.pixmap(QSize(32, 32), 2);
}
