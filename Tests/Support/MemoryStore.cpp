#include "Support/MemoryStore.h"

#include "Engine/Foundation/EngineError.h"
#include "Support/TestLocation.h"

namespace {

Error fault() {
    return engineError(EngineErrorCode::StoreUnreachable, QStringLiteral("The test wants that."));
}

bool isFailing(MemoryStore::Fault found) {
    return found == MemoryStore::Fault::Unreachable || found == MemoryStore::Fault::LostAnswer ||
           found == MemoryStore::Fault::Torn;
}

}  // namespace

MemoryStore::MemoryStore(Blobs &blobs, NextFault nextFault,
                         std::shared_ptr<StoreOperations> operations)
    : BlobStore(locationWithoutEngine(), std::move(operations)),
      m_blobs(blobs),
      m_nextFault(std::move(nextFault)) {}

Expected<void> MemoryStore::open(const EngineFuture & /*future*/) {
    return {};
}

Expected<QStringList> MemoryStore::listFolder(const QString &folder,
                                              const EngineFuture & /*future*/) {
    const Fault found = m_nextFault();
    if (isFailing(found)) {
        return failure(fault());
    }
    QStringList names;
    for (const auto &[name, contents] : m_blobs) {
        if (name.startsWith(folder + u'/')) {
            names.append(name.mid(folder.size() + 1));
        }
    }
    if (found == Fault::Lie && !names.isEmpty()) {
        names.removeAt(names.size() / 2);
    }
    return names;
}

Expected<QByteArray> MemoryStore::readBlob(const QString &name, qint64 limit,
                                           const EngineFuture & /*future*/) {
    const Fault found = m_nextFault();
    if (isFailing(found)) {
        return failure(fault());
    }
    const auto blob = m_blobs.find(name);
    if (blob == m_blobs.end() || found == Fault::Withhold || blob->second == Withheld) {
        return failure(missing(name));
    }
    if (found == Fault::Lie && !blob->second.isEmpty()) {
        QByteArray other = blob->second;
        char &byte = other[other.size() / 2];
        byte = static_cast<char>(byte ^ 1);
        return other;
    }
    return blob->second.size() > limit ? failure(tooLong(name))
                                       : Expected<QByteArray>(blob->second);
}

Expected<BlobStore::Written> MemoryStore::writeBlob(const QString &name, const QByteArray &contents,
                                                    const EngineFuture & /*future*/) {
    const Fault found = m_nextFault();
    if (found == Fault::Unreachable) {
        return failure(fault());
    }
    if (found == Fault::Lie) {
        return Written::New;
    }
    const bool isCut = found == Fault::Torn || found == Fault::HalfKept;
    const qsizetype size = isCut ? contents.size() / 2 : contents.size();
    const bool isNew = m_blobs.emplace(name, contents.first(size)).second;
    if (isFailing(found)) {
        return failure(fault());
    }
    return isNew ? Written::New : Written::AlreadyThere;
}

Expected<void> MemoryStore::removeBlob(const QString &name, const EngineFuture & /*future*/) {
    const Fault found = m_nextFault();
    if (found == Fault::Unreachable) {
        return failure(fault());
    }
    if (found == Fault::Lie) {
        return {};
    }
    m_blobs.erase(name);
    return isFailing(found) ? failure(fault()) : Expected<void>();
}
