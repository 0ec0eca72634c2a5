#include "Engine/Stores/StoreProbe.h"

#include <QtCore/QDateTime>
#include <QtCore/QRegularExpression>
#include <QtCore/QUuid>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

/// The number of probes of other users that one check looks at.
constexpr int MostLeftOvers = 20;
constexpr qint64 ContentsLimit = 64;
constexpr qint64 SecondsUntilLeftOver = qint64(24) * 60 * 60;

/// Returns the name that all probes of this user have.
Expected<QString> ownName() {
    const QString key = QStringLiteral("QVStoreProbe");
    Expected<QString> own = UserDefaults::stringForKey(key);
    if (!own) {
        return failure(
            engineError(EngineErrorCode::StoreUnreachable, own.error().localizedDescription));
    }
    if (own->isEmpty()) {
        own = QUuid::createUuid().toString(QUuid::WithoutBraces);
        // If it cannot be saved, it is valid for this run.
        static_cast<void>(UserDefaults::setValue(key, *own));
    }
    return QStringLiteral("probe-") + *own;
}

}  // namespace

bool StoreProbe::isProbe(const QString &name) {
    static const QRegularExpression probe(
        QRegularExpression::anchoredPattern(QStringLiteral("probe-[0-9a-f-]{36}")));
    return probe.match(name).hasMatch();
}

Expected<void> StoreProbe::run(const EngineFuture &future) {
    const Expected<QString> own = ownName();
    if (!own) {
        return failure(own.error());
    }
    for (const QString &folder :
         {SyncStoreLayout::DatabasesFolder, SyncStoreLayout::TransactionsFolder}) {
        const Expected<QStringList> names = m_store.list(folder, future);
        if (!names) {
            return failure(names.error());
        }
        removeLeftOvers(folder, *names, *own, future);
        const QString name = folder + u'/' + *own;
        const Expected<void> written = write(name, future);
        // Also after an error: the response to the write may have been lost.
        const Expected<void> removed = remove(name);
        if (!written || !removed) {
            return written ? removed : written;
        }
    }
    return {};
}

void StoreProbe::removeLeftOvers(const QString &folder, const QStringList &names,
                                 const QString &own, const EngineFuture &future) {
    int others = 0;
    for (const QString &name : names) {
        const bool isOwn = name == own;
        if (!isProbe(name) || (!isOwn && ++others > MostLeftOvers)) {
            continue;
        }
        const QString path = folder + u'/' + name;
        if (isOwn || isLeftOver(path, future)) {
            // If it stays, the next check tries again.
            static_cast<void>(m_store.remove(path, future));
        }
    }
}

bool StoreProbe::isLeftOver(const QString &name, const EngineFuture &future) {
    const Expected<QByteArray> contents = m_store.read(name, ContentsLimit, future);
    const QDateTime date =
        contents ? QDateTime::fromString(QString::fromLatin1(*contents), Qt::ISODate) : QDateTime();
    return date.isValid() && date.secsTo(QDateTime::currentDateTimeUtc()) > SecondsUntilLeftOver;
}

Expected<void> StoreProbe::write(const QString &name, const EngineFuture &future) {
    const QByteArray contents = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toLatin1();
    const Expected<BlobStore::Written> written = m_store.writeIfAbsent(name, contents, future);
    if (!written) {
        return failure(written.error());
    }
    const Expected<QByteArray> stored = m_store.read(name, ContentsLimit, future);
    if (!stored) {
        return failure(stored.error());
    }
    return *written == BlobStore::Written::AlreadyThere || *stored == contents
               ? Expected<void>()
               : failure(engineError(EngineErrorCode::DamagedRecord,
                                     "“%1” does not return what was written to it. Check the "
                                     "server or the disk, or use another location.",
                                     m_store.place(name)));
}

Expected<void> StoreProbe::remove(const QString &name) {
    EngineFuture future;
    std::mutex mutex;
    std::condition_variable_any removed;
    const auto cancelLater = [&](const std::stop_token &stop) {
        std::unique_lock lock(mutex);
        removed.wait_for(lock, stop, RemovalTimeout, [] { return false; });
        if (!stop.stop_requested()) {
            future.cancel();
        }
    };
    std::jthread limit;
    try {
        limit = std::jthread(cancelLater);
    } catch (const std::system_error &) {
        // Without another thread, only the limits of the store apply.
    }
    return m_store.remove(name, future);
}
