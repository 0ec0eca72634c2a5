#include "Engine/DirectConnection/DirectConnectionPackage.h"

#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Stores/StoreProbe.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/FileManager.h"

namespace {

bool isValidFolder(const QString &name) {
    return name == SyncStoreLayout::DatabasesFolder ||
           name == SyncStoreLayout::TransactionsFolder ||
           (name.section(u'/', 0, 0) == SyncStoreLayout::TransactionsFolder &&
            DatabaseRecord::isUUID(name.section(u'/', 1)));
}

bool isValidBlob(const QString &name) {
    static const QRegularExpression transaction(
        QRegularExpression::anchoredPattern(QStringLiteral("[0-9A-Za-z_-][0-9A-Za-z._-]{0,127}")));
    const QString folder = name.section(u'/', 0, -2);
    const QString file = name.section(u'/', -1);
    if (StoreProbe::isProbe(file)) {
        return folder == SyncStoreLayout::DatabasesFolder ||
               folder == SyncStoreLayout::TransactionsFolder;
    }
    if (folder == SyncStoreLayout::DatabasesFolder) {
        return DatabaseRecord::databaseUUID(file).has_value();
    }
    return folder != SyncStoreLayout::TransactionsFolder && isValidFolder(folder) &&
           transaction.match(file).hasMatch();
}

/// Returns the UUID of the database to which the blob or folder `name` belongs; empty if it belongs
/// to none.
QString databaseOf(const QString &name) {
    const QString second = name.section(u'/', 1, 1);
    return name.startsWith(SyncStoreLayout::TransactionsFolder)
               ? second
               : DatabaseRecord::databaseUUID(second).value_or(QString());
}

Error notServed(const QString &name) {
    return engineError(EngineErrorCode::NotServed, "“%1” belongs to a database that is not served.",
                       name);
}

}  // namespace

QString DirectConnectionPackage::pathInProfile(const QString &directory) {
    return directory + QStringLiteral("/Direct Connection.") + SyncStoreLayout::Extension;
}

DirectConnectionPackage::DirectConnectionPackage(const QString &path,
                                                 std::shared_ptr<BlobStore> store,
                                                 std::shared_ptr<const ServedDatabases> databases)
    : m_path(path),
      m_store(std::move(store)),
      m_databases(std::move(databases)),
      m_future(std::make_shared<EngineFuture>()) {}

Expected<void> DirectConnectionPackage::make() const {
    for (const QString &folder : SyncStoreLayout::foldersOfStore(m_path)) {
        if (QFileInfo(folder).isDir()) {
            continue;
        }
        if (const Expected<void> made = FileManager::createDirectory(folder); !made) {
            Error error = storeNotCreated(EngineErrorCode::ServerUnusable, m_path);
            error.localizedFailureReason = made.error().localizedFailureReason;
            return failure(error);
        }
    }
    return {};
}

bool DirectConnectionPackage::isServed(const QString &name) const {
    return m_databases->contain(databaseOf(name));
}

Expected<void> DirectConnectionPackage::checkBlob(const QString &name) const {
    if (!isValidBlob(name)) {
        return failure(invalidBlobName(name));
    }
    return isServed(name) ? Expected<void>() : failure(notServed(name));
}

Expected<QStringList> DirectConnectionPackage::list(const QString &folder) const {
    if (!isValidFolder(folder)) {
        return failure(invalidBlobName(folder));
    }
    if (!isServed(folder)) {
        return failure(notServed(folder));
    }
    Expected<QStringList> names = m_store->list(folder, *m_future);
    if (names) {
        names->removeIf([&](const QString &entry) {
            const QString name = folder + u'/' + entry;
            return !(isValidBlob(name) || isValidFolder(name)) || !isServed(name);
        });
    }
    return names;
}

Expected<QByteArray> DirectConnectionPackage::read(const QString &name, qint64 limit) const {
    return checkBlob(name).and_then([&] { return m_store->read(name, limit, *m_future); });
}

Expected<BlobStore::Written> DirectConnectionPackage::writeIfAbsent(
    const QString &name, const QByteArray &contents) const {
    return checkBlob(name).and_then(
        [&] { return m_store->writeIfAbsent(name, contents, *m_future); });
}

Expected<void> DirectConnectionPackage::remove(const QString &name) const {
    return checkBlob(name).and_then([&] { return m_store->remove(name, *m_future); });
}
