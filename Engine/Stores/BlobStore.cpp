#include "Engine/Stores/BlobStore.h"

#include <QtCore/QUuid>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/InboxUUID.h"
#include "Platform/Foundation/Localization.h"

namespace {

constexpr qsizetype LongestNamePart = 255;

bool isUUID(const QString &text) {
    return text == InboxUUID ||
           QUuid::fromString(text).toString(QUuid::WithoutBraces) == text.toLower();
}

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

/// Whether the others can be read all the same.
bool isOfOneBlob(const Error &error) {
    return error.code == static_cast<int>(EngineErrorCode::DamagedRecord) ||
           error.code == static_cast<int>(EngineErrorCode::UnknownVersion) ||
           error.code == static_cast<int>(EngineErrorCode::AccessDenied);
}

}  // namespace

Result<QStringList> BlobStore::list(const QString &folder, const EngineFuture &future) {
    if (const std::optional<Error> error = obstacle(folder, future)) {
        return *error;
    }
    Result<QStringList> result = listFolder(folder, future);
    if (auto *names = std::get_if<QStringList>(&result)) {
        names->removeIf([](const QString &name) { return !isNamePart(name); });
        names->sort();
        names->removeDuplicates();
    }
    return result;
}

Result<QByteArray> BlobStore::read(const QString &name, qint64 limit, const EngineFuture &future) {
    if (const std::optional<Error> error = obstacle(name, future)) {
        return *error;
    }
    return readBlob(name, limit, future);
}

Result<BlobStore::Written> BlobStore::writeIfAbsent(const QString &name, const QByteArray &contents,
                                                    const EngineFuture &future) {
    if (const std::optional<Error> error = obstacle(name, future)) {
        return *error;
    }
    return writeBlob(name, contents, future);
}

std::optional<Error> BlobStore::remove(const QString &name, const EngineFuture &future) {
    const std::optional<Error> error = obstacle(name, future);
    return error ? error : removeBlob(name, future);
}

QString BlobStore::place(const QString &name) const {
    return URL().stringWithoutPassword() + u'/' + name;
}

Error BlobStore::missing(const QString &name) const {
    return engineError(EngineErrorCode::BlobMissing, "“%1” is not there.", place(name));
}

Error BlobStore::tooLong(const QString &name) const {
    return engineError(EngineErrorCode::BlobRefused, "“%1” is too long and was not read.",
                       place(name));
}

Error BlobStore::refused(const QString &name) const {
    return engineError(EngineErrorCode::BlobRefused,
                       "“%1” is something else than a file or folder of a sync store.",
                       place(name));
}

std::optional<Error> BlobStore::obstacle(const QString &name, const EngineFuture &future) const {
    if (future.isCancelled()) {
        return operationCancelled();
    }
    if (!isName(name)) {
        return engineError(EngineErrorCode::BlobRefused,
                           "Nothing in a sync store may be called “%1”.", name);
    }
    return {};
}

EngineStore::Fetched BlobStore::fetch(const EngineFuture &future) {
    const Result<QStringList> files = list(QStringLiteral("databases"), future);
    if (const Error *error = errorOf(files)) {
        return {{}, *error};
    }
    Fetched fetched{QVRemoteDatabases(), {}};
    for (const QString &file : std::get<QStringList>(files)) {
        if (!file.endsWith(QStringLiteral(".json"))) {
            continue;
        }
        const Result<QString> name = databaseName(file, future);
        const Error *error = errorOf(name);
        if (!error) {
            fetched.databases->append(record(file.chopped(5), std::get<QString>(name)));
        } else if (isOfOneBlob(*error)) {
            fetched.error = fetched.error ? fetched.error : *error;
        } else if (error->code != static_cast<int>(EngineErrorCode::BlobMissing)) {
            return {{}, *error};
        }
    }
    return fetched;
}

Result<QString> BlobStore::databaseName(const QString &file, const EngineFuture &future) {
    const QString path = QStringLiteral("databases/") + file;
    const Error damaged =
        engineError(EngineErrorCode::DamagedRecord, "The record “%1” is damaged.", place(path));
    const QString UUID = file.chopped(5);
    if (!isUUID(UUID)) {
        return damaged;
    }
    const Result<QByteArray> contents = read(path, RecordLimit, future);
    if (const Error *error = errorOf(contents)) {
        const bool isRefused = error->code == static_cast<int>(EngineErrorCode::BlobRefused);
        return isRefused ? damaged : *error;
    }
    return DatabaseRecord::name(std::get<QByteArray>(contents), UUID, place(path));
}
