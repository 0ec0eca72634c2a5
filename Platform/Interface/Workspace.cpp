#include "Platform/Interface/Workspace.h"

#include <QtCore/QMimeDatabase>

QIcon Workspace::iconForFileType(const QString &extension, const QIcon &fallback) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QLatin1StringView("file.") + extension,
                                                           QMimeDatabase::MatchExtension);
    return type.isDefault() ? fallback : QIcon::fromTheme(type.iconName(), fallback);
}
