#include "Engine/EngineLocationFormatter.h"

#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtGui/QIcon>

#include "Engine/EngineServerClass.h"
#include "Platform/Foundation/Localization.h"

namespace {

constexpr int iconSize = 32;
constexpr qreal densestScreen = 2;

/// Drawn once: rows ask for them over and over.
QPixmap pixmap(const QString &file) {
    static QHash<QString, QPixmap> drawn;
    QPixmap &result = drawn[file];
    if (result.isNull()) {
        result = QIcon(file).pixmap(QSize(iconSize, iconSize), densestScreen);
    }
    return result;
}

QString storeName(const Url &URL) {
    return QFileInfo(URL.path()).completeBaseName();
}

QString firstNonEmpty(const QString &text, const QString &otherwise) {
    return text.isEmpty() ? otherwise : text;
}

}  // namespace

std::unique_ptr<QVSyncLocationFormatter>
EngineLocationFormatter::Class::formatterForLocationWithURL(const Url &URL) const {
    return std::make_unique<EngineLocationFormatter>(URL);
}

EngineLocationFormatter::EngineLocationFormatter(const Url &URL) {
    const QString scheme = URL.scheme();
    const auto describe = [this](const QString &title, const QString &type, const char *icon) {
        m_title = title;
        m_locationType = type;
        m_iconFile = QStringLiteral(":/VelmoraSync/%1.svg").arg(QLatin1StringView(icon));
    };
    if (URL.isNil()) {
        describe(localizedSyncString("Not configured"), localizedSyncString("Unknown"), "unknown");
    } else if (URL.isFileURL()) {
        describe(firstNonEmpty(storeName(URL), URL.path()), localizedSyncString("Local Sync Store"),
                 "folder");
    } else if (scheme == QLatin1StringView("http") || scheme == QLatin1StringView("https")) {
        const QString name = storeName(URL);
        describe(
            name.isEmpty() ? URL.host() : localizedSyncString("%1 on %2").arg(name, URL.host()),
            localizedSyncString("WebDAV"), "webdav");
    } else if (scheme == QLatin1StringView("dropbox")) {
        describe(QStringLiteral("%1@%2").arg(URL.user(), URL.host()),
                 localizedSyncString("Dropbox"), "dropbox");
    } else if (scheme == EngineServerClass::scheme) {
        describe(URL.host(), localizedSyncString("Direct Connection"), "direct");
    } else {
        describe(URL.stringWithoutPassword(), localizedSyncString("Unknown"), "unknown");
    }
}

QPixmap EngineLocationFormatter::icon() const {
    return pixmap(m_iconFile);
}
