#include "Engine/Stores/BlobStore.h"

#include <QtCore/QSet>
#include <algorithm>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Stores/StoreProbe.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

constexpr qsizetype LongestNamePart = 255;
/// The progress of an operation by measuring a folder: the listing of one may take minutes.
constexpr qint64 ProgressOfFolder = 60;

bool isNamePart(QStringView part) {
    const bool isLengthAllowed = !part.isEmpty() && part.toUtf8().size() <= LongestNamePart;
    return isLengthAllowed && part.isValidUtf16() && !part.startsWith(u'.') &&
           std::none_of(part.begin(), part.end(), [](QChar character) {
               return character == u'/' || character.category() == QChar::Other_Control;
           });
}

bool isName(const QString &name) {
    const QList<QStringView> parts = QStringView(name).split(u'/');
    return std::all_of(parts.begin(), parts.end(), isNamePart);
}

/// Returns whether the error concerns a single blob, so that others can still be read.
bool isOfOneBlob(const Error &error) {
    return isEngineError(error, EngineErrorCode::DamagedRecord) ||
           isEngineError(error, EngineErrorCode::UnknownVersion) ||
           isEngineError(error, EngineErrorCode::AccessDenied);
}

}  // namespace

Expected<QStringList> BlobStore::list(const QString &folder, const EngineFuture &future) {
    if (const Expected<void> checked = checkRequest(folder, future); !checked) {
        return failure(checked.error());
    }
    Expected<QStringList> names = listFolder(folder, future);
    if (names && names->size() > MostNames) {
        return failure(tooManyNames(folder));
    }
    if (names) {
        names->removeIf([](const QString &name) { return !isNamePart(name); });
        names->sort();
        names->erase(std::unique(names->begin(), names->end()), names->end());
    }
    return names;
}

Expected<QByteArray> BlobStore::read(const QString &name, qint64 limit,
                                     const EngineFuture &future) {
    if (const Expected<void> checked = checkRequest(name, future); !checked) {
        return failure(checked.error());
    }
    return readBlob(name, limit, future);
}

Expected<BlobStore::Written> BlobStore::writeIfAbsent(const QString &name,
                                                      const QByteArray &contents,
                                                      const EngineFuture &future) {
    if (const Expected<void> checked = checkRequest(name, future); !checked) {
        return failure(checked.error());
    }
    return writeBlob(name, contents, future);
}

Expected<void> BlobStore::remove(const QString &name, const EngineFuture &future) {
    if (const Expected<void> checked = checkRequest(name, future); !checked) {
        return failure(checked.error());
    }
    return removeBlob(name, future);
}

QString BlobStore::place(const QString &name) const {
    return URL().stringWithoutPassword() + u'/' + name;
}

Error BlobStore::notReturned(const QString &name) const {
    return engineError(
        EngineErrorCode::DamagedRecord,
        "The location lists the record “%1” but does not return it. Check the server or the disk.",
        place(name));
}

Expected<std::optional<qint64>> BlobStore::sizeOfFolder(const QString & /*folder*/,
                                                        const EngineFuture & /*future*/) {
    return std::nullopt;
}

Expected<std::optional<qint64>> BlobStore::measure(const EngineFuture &future) {
    Expected<QStringList> databases = list(SyncStoreLayout::TransactionsFolder, future);
    if (!databases) {
        return failure(databases.error());
    }
    databases->removeIf([](const QString &name) { return !DatabaseRecord::isUUID(name); });
    if (databases->size() > MostMeasured) {
        return std::nullopt;
    }
    QStringList folders{SyncStoreLayout::DatabasesFolder};
    for (const QString &database : std::as_const(*databases)) {
        folders.append(TransactionName::folder(database));
    }
    qint64 total = 0;
    for (const QString &folder : std::as_const(folders)) {
        auto size = sizeOfFolder(folder, future);
        if (future.isCancelled()) {
            return failure(operationCancelled());
        }
        if (!size || !*size) {
            return size;
        }
        total += **size;
        future.advance(ProgressOfFolder);
    }
    return total;
}

Expected<void> BlobStore::probe(const EngineFuture &future) {
    return StoreProbe(*this).run(future);
}

Error BlobStore::missing(const QString &name) const {
    return engineError(
        EngineErrorCode::BlobMissing,
        "“%1” does not exist. Try again. If it is still missing, check the location.", place(name));
}

Error BlobStore::tooLong(const QString &name) const {
    return engineError(EngineErrorCode::BlobRefused,
                       "“%1” is too large and was not read. Move it to another folder if it does "
                       "not belong there.",
                       place(name));
}

Error BlobStore::refused(const QString &name) const {
    return engineError(EngineErrorCode::BlobRefused,
                       "“%1” isn’t a valid item in a sync store. Move it to another folder if it "
                       "does not belong there.",
                       place(name));
}

Error BlobStore::tooManyNames(const QString &folder) const {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "“%1” contains too many files. Clean up the location on another computer, "
                       "or delete the files that do not belong there.",
                       place(folder));
}

Expected<void> BlobStore::checkRequest(const QString &name, const EngineFuture &future) const {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    if (!isName(name)) {
        return failure(invalidBlobName(name));
    }
    return {};
}

Error BlobStore::tooManyDatabases() const {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "“%1” contains too many databases, or their names are too long. Delete the "
                       "files of those that are not needed.",
                       place(SyncStoreLayout::DatabasesFolder));
}

Expected<QStringList> BlobStore::databaseRecords(const EngineFuture &future) {
    return list(SyncStoreLayout::DatabasesFolder, future)
        .and_then([&](QStringList files) -> Expected<QStringList> {
            files.removeIf(
                [](const QString &file) { return !file.endsWith(SyncStoreLayout::RecordEnding); });
            return files.size() > MostDatabases ? failure(tooManyDatabases())
                                                : Expected<QStringList>(files);
        });
}

Expected<EngineStore::Fetched> BlobStore::fetch(const EngineFuture &future) {
    const Expected<QStringList> files = databaseRecords(future);
    if (!files) {
        return failure(files.error());
    }
    Fetched fetched;
    QSet<QString> missing;
    qsizetype size = 0;
    for (const QString &file : *files) {
        const Expected<QString> name = databaseName(file, future);
        if (name) {
            size += name->toUtf8().size();
            if (size > MostBytesOfNames) {
                return failure(tooManyDatabases());
            }
            future.advance(1);
            fetched.databases.append(
                record(file.chopped(SyncStoreLayout::RecordEnding.size()), *name));
        } else if (isOfOneBlob(name.error())) {
            fetched.problem = fetched.problem ? fetched.problem : name.error();
        } else if (isEngineError(name.error(), EngineErrorCode::BlobMissing)) {
            missing.insert(file);
        } else {
            return failure(name.error());
        }
    }
    if (missing.isEmpty() || fetched.problem) {
        return fetched;
    }
    return databaseRecords(future).map([&](const QStringList &listed) {
        const auto withheld = std::find_if(listed.begin(), listed.end(), [&](const QString &file) {
            return missing.contains(file);
        });
        if (withheld != listed.end()) {
            fetched.problem = notReturned(SyncStoreLayout::DatabasesFolder + u'/' + *withheld);
        }
        return fetched;
    });
}

Expected<QString> BlobStore::databaseName(const QString &file, const EngineFuture &future) {
    const QString path = SyncStoreLayout::DatabasesFolder + u'/' + file;
    const Error damaged = damagedRecord(place(path));
    const std::optional<QString> UUID = DatabaseRecord::databaseUUID(file);
    if (!UUID) {
        return failure(damaged);
    }
    const Expected<QByteArray> contents = read(path, RecordLimit, future);
    if (!contents) {
        const bool isRefused = isEngineError(contents.error(), EngineErrorCode::BlobRefused);
        return failure(isRefused ? damaged : contents.error());
    }
    return DatabaseRecord::name(*contents, *UUID, place(path));
}
