#include "Engine/DirectConnection/DirectConnectionPackage.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/FileManager.h"

namespace {

// The inbox has a name of its own.
const QString DatabasePattern =
    QStringLiteral("(?:[0-9A-Fa-f]{8}(?:-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}|@inbox)");

bool matches(const QString &text, const QString &pattern) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

bool isServedFolder(const QString &name) {
    return matches(name, QStringLiteral("databases|transactions(?:/%1)?").arg(DatabasePattern));
}

bool isServedBlob(const QString &name) {
    return matches(name, QStringLiteral("databases/%1\\.json|transactions/%1/"
                                        "[0-9A-Za-z_-][0-9A-Za-z._-]{0,127}")
                             .arg(DatabasePattern));
}

Error notServed(const QString &name) {
    return engineError(EngineErrorCode::BlobRefused, "“%1” is not a valid name in a sync store.",
                       name);
}

}  // namespace

QString DirectConnectionPackage::pathInProfile(const QString &directory) {
    return directory + QStringLiteral("/Direct Connection.qvSyncStore");
}

DirectConnectionPackage::DirectConnectionPackage(const QString &path,
                                                 std::shared_ptr<BlobStore> store)
    : m_path(path), m_store(std::move(store)), m_future(std::make_shared<EngineFuture>()) {}

Expected<void> DirectConnectionPackage::make() const {
    for (const QString &folder : {m_path, m_path + QStringLiteral("/databases"),
                                  m_path + QStringLiteral("/transactions")}) {
        if (!QFileInfo(folder).isDir() && !FileManager::createDirectory(folder)) {
            return failure(
                engineError(EngineErrorCode::ServerUnusable,
                            "The sync store “%1” could not be created. Check the permissions of "
                            "the folder that contains it.",
                            m_path));
        }
    }
    return {};
}

Expected<QStringList> DirectConnectionPackage::list(const QString &folder) const {
    if (!isServedFolder(folder)) {
        return failure(notServed(folder));
    }
    Expected<QStringList> names = m_store->list(folder, *m_future);
    if (names) {
        names->removeIf([&](const QString &entry) {
            const QString name = folder + u'/' + entry;
            return !isServedBlob(name) && !isServedFolder(name);
        });
    }
    return names;
}

Expected<QByteArray> DirectConnectionPackage::read(const QString &name, qint64 limit) const {
    if (!isServedBlob(name)) {
        return failure(notServed(name));
    }
    return m_store->read(name, limit, *m_future);
}

Expected<BlobStore::Written> DirectConnectionPackage::writeIfAbsent(
    const QString &name, const QByteArray &contents) const {
    if (!isServedBlob(name)) {
        return failure(notServed(name));
    }
    return m_store->writeIfAbsent(name, contents, *m_future);
}

Expected<void> DirectConnectionPackage::remove(const QString &name) const {
    return isServedBlob(name) ? m_store->remove(name, *m_future) : failure(notServed(name));
}
