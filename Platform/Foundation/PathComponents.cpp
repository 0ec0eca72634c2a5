#include "Platform/Foundation/PathComponents.h"

#include <QtCore/QStringList>

namespace {

QString withoutTrailingSlashes(const QString &path) {
    qsizetype length = path.size();
    while (length > 1 && path[length - 1] == u'/') {
        --length;
    }
    return path.left(length);
}

}  // namespace

QString PathComponents::last(const QString &path) {
    const QString trimmed = withoutTrailingSlashes(path);
    return trimmed == QLatin1StringView("/") ? trimmed : trimmed.mid(trimmed.lastIndexOf(u'/') + 1);
}

QString PathComponents::withoutLast(const QString &path) {
    const QString trimmed = withoutTrailingSlashes(path);
    const qsizetype slash = trimmed.lastIndexOf(u'/');
    return slash < 0 ? QString() : withoutTrailingSlashes(trimmed.left(qMax(slash, 1)));
}

QString PathComponents::withoutExtension(const QString &path) {
    const QString name = last(path);
    const qsizetype point = name.lastIndexOf(u'.');
    const bool isExtension = point > 0 && point + 1 < name.size();
    const QString trimmed = withoutTrailingSlashes(path);
    return isExtension ? trimmed.chopped(name.size() - point) : trimmed;
}

QString PathComponents::appending(const QString &path, const QString &component) {
    if (path.isEmpty() || component.isEmpty()) {
        return path.isEmpty() ? component : path;
    }
    QString joined = path;
    if (!joined.endsWith(u'/')) {
        joined += u'/';
    }
    return joined + (component.startsWith(u'/') ? component.mid(1) : component);
}

QString PathComponents::appendingExtension(const QString &path, const QString &extension) {
    const QString trimmed = withoutTrailingSlashes(path);
    return trimmed.isEmpty() ? trimmed : trimmed + u'.' + extension;
}

bool PathComponents::isAtOrBelow(const QString &path, const QString &folder) {
    const QString prefix = folder.endsWith(u'/') ? folder : folder + u'/';
    return path == folder || path.startsWith(prefix);
}

QString PathComponents::standardizingRelative(const QString &path) {
    QStringList segments = path.split(u'/', Qt::SkipEmptyParts);
    segments.removeAll(QStringLiteral("."));
    return (path.startsWith(u'/') ? QStringLiteral("/") : QString()) + segments.join(u'/');
}
