#include "Application/UnsavedTexts.h"

#include <fcntl.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>
#include <QtCore/QStorageInfo>
#include <algorithm>
#include <filesystem>

#include "Application/ApplicationError.h"
#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/ProfileConstants.h"
#include "Platform/Foundation/DurableFile.h"
#include "Platform/Foundation/ExactText.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileManager.h"

namespace {

const QString DatabaseKey = QStringLiteral("database");
const QString NoteKey = QStringLiteral("note");
const QString RevisionKey = QStringLiteral("revision");
const QString TitleKey = QStringLiteral("title");
const QString TextKey = QStringLiteral("text");
const QString ModifiedKey = QStringLiteral("modified");

/// The prefix, the digests of the folder, the profile and the note. The name of a text that could
/// not be restored has a number, too.
constexpr qsizetype PartsOfName = 4;

/// Returns the path without symbolic links.
QString pathOf(const QString &folder) {
    const QDir directory(folder);
    return directory.exists() ? directory.canonicalPath() : directory.absolutePath();
}

QString textOf(const char *text) {
    return QCoreApplication::translate("UnsavedTexts", text);
}

/// No reserve is made unless this many of them would fit: the notes come first.
constexpr qint64 ReservesThatFit = 4;

/// Returns whether the file `path` takes up the room of the reserve.
bool allocateReserve(const QString &path) {
    const FileDescriptor file(
        open(QFile::encodeName(path).constData(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
    return file.isValid() && posix_fallocate(file.number(), 0, UnsavedTexts::ReserveSize) == 0;
}

Error unreadableFolder(const QString &folder, const QString &reason) {
    return applicationError(
        textOf("The folder “%1”, which may contain texts that were not saved, cannot be read.")
            .arg(folder),
        reason + u'\n' + textOf("Check its permissions and its disk, and start Velmora again."));
}

/// Returns the names of the files in `folder`; none if it does not exist. QDir would return none
/// either if the folder cannot be read.
Expected<QStringList> namesIn(const QString &folder) {
    namespace files = std::filesystem;
    QStringList names;
    std::error_code error;
    for (files::directory_iterator entry(QFile::encodeName(folder).constData(), error), end;
         !error && entry != end; entry.increment(error)) {
        std::error_code ofType;
        // Reading a file of unknown type reports why it cannot be read.
        if (entry->is_regular_file(ofType) ||
            (ofType && ofType != std::errc::no_such_file_or_directory)) {
            names.append(QFile::decodeName(entry->path().filename().c_str()));
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        return failure(unreadableFolder(folder, QString::fromStdString(error.message())));
    }
    return names;
}

/// Has no effect if the file is gone.
Expected<void> removeFile(const QString &path) {
    return FileManager::removeFile(path).map_error([&](const Error &reason) {
        return applicationError(
            textOf("The file “%1”, which contains a text that was not saved, cannot be removed: "
                   "%2. Remove it yourself, or the text returns at the next start.")
                .arg(path, reason.localizedFailureReason));
    });
}

/// Returns the name of a file, of which the parts are digests, or a pattern.
QString nameOf(const QString &folder, const QString &profile, const QString &note) {
    return QStringLiteral("unsaved-%1-%2-%3.json").arg(folder, profile, note);
}

QString shortDigest(const QString &text) {
    const QByteArray hash =
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).first(8);
    return QString::fromLatin1(hash.toHex());
}

std::shared_ptr<NoteDatabase> databaseFor(const NoteLibrary &library, const QString &UUID) {
    const auto databases = library.knownDatabases();
    const auto found = std::find_if(databases.begin(), databases.end(),
                                    [&](const auto &each) { return each->UUID() == UUID; });
    return found == databases.end() ? library.inbox() : *found;
}

/// Whether `note` was saved before the process ended.
Expected<bool> isSaved(const NoteDatabase &database, const Note &note) {
    return database.notes().map([&](const QList<Note> &notes) {
        return std::any_of(notes.begin(), notes.end(), [&](const Note &each) {
            return each.UUID == note.UUID && each.title == note.title && each.text == note.text;
        });
    });
}

/// Returns whether `object` has all that keep() writes.
bool isComplete(const QJsonObject &object) {
    const QStringList texts{DatabaseKey, NoteKey, RevisionKey, TitleKey, TextKey};
    return std::all_of(texts.begin(), texts.end(),
                       [&](const QString &key) { return object[key].isString(); }) &&
           !object[NoteKey].toString().isEmpty() && object[ModifiedKey].isDouble();
}

Expected<QString> restoreFile(const QString &path, const NoteLibrary &library) {
    QFile file(path);
    const QByteArray contents = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFile::NoError) {
        return failure(
            applicationError(textOf("The file cannot be read (%1). Check its permissions "
                                    "and its disk.")
                                 .arg(file.errorString()),
                             {}));
    }
    const QJsonObject object = ExactText::objectIn(contents);
    if (!isComplete(object)) {
        return failure(
            applicationError(textOf("The file is damaged. Copy from it what you need, and remove "
                                    "it."),
                             {}));
    }
    Note note{object[NoteKey].toString(), object[TitleKey].toString(), object[TextKey].toString(),
              QDateTime::fromMSecsSinceEpoch(object[ModifiedKey].toInteger()),
              object[RevisionKey].toString()};
    const auto database = databaseFor(library, object[DatabaseKey].toString());
    return isSaved(*database, note)
        .and_then([&](bool saved) { return saved ? Expected<void>() : database->saveNote(note); })
        .map([&] { return note.title; });
}

/// Renames the file, unless an earlier start has done so, to a name that belongs to no note, so
/// that no later text of the note replaces it. Returns its path, which is the former one if the
/// folder cannot be written; keep() does not replace it either then.
QString setAside(const QString &path) {
    const QFileInfo file(path);
    const QString name = file.completeBaseName();
    if (name.count(u'-') >= PartsOfName) {
        return path;
    }
    QString aside;
    int number = 1;
    do {
        aside = QStringLiteral("%1/%2-%3.json").arg(file.path(), name, QString::number(number++));
    } while (QFile::exists(aside));
    return QFile::rename(path, aside) ? aside : path;
}

}  // namespace

UnsavedTexts::UnsavedTexts(const QString &profileFolder, const QString &inboxUUID)
    : m_durableFolders(
          {profileFolder, QStandardPaths::writableLocation(QStandardPaths::CacheLocation)}),
      m_folders(m_durableFolders +
                QStringList{QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)}),
      m_database(profileFolder + u'/' + ProfileDatabaseName),
      m_identity(FileIdentity::of(m_database)),
      m_reserve(profileFolder + QStringLiteral("/reserve")),
      m_digests({shortDigest(pathOf(profileFolder)), shortDigest(inboxUUID)}) {}

Expected<bool> UnsavedTexts::isProfileThere() const {
    return m_identity.and_then([&](const std::optional<FileIdentity> &identity) {
        return FileIdentity::of(m_database).map([&](const std::optional<FileIdentity> &found) {
            return identity && found == identity;
        });
    });
}

bool UnsavedTexts::isUsable(const QString &folder) const {
    return folder == m_folders.first() ? isProfileThere().value_or(false) : QDir().mkpath(folder);
}

bool UnsavedTexts::useReserve() const {
    return isProfileThere().value_or(false) && QFile::remove(m_reserve);
}

void UnsavedTexts::makeReserve() const {
    if (!isProfileThere().value_or(false) || QFileInfo(m_reserve).size() == ReserveSize ||
        QStorageInfo(m_folders.first()).bytesAvailable() < ReservesThatFit * ReserveSize) {
        return;
    }
    QFile::remove(m_reserve);
    if (DurableFile::create(m_reserve) && !allocateReserve(m_reserve)) {
        QFile::remove(m_reserve);
    }
}

Expected<void> UnsavedTexts::keep(const QString &databaseUUID, const Note &note) const {
    const QByteArray contents = ExactText::json({{DatabaseKey, databaseUUID},
                                                 {NoteKey, note.UUID},
                                                 {RevisionKey, note.revision},
                                                 {TitleKey, note.title},
                                                 {TextKey, note.text},
                                                 {ModifiedKey, note.modified.toMSecsSinceEpoch()}});
    const QString name = nameOf(m_digests.folder, m_digests.profile, shortDigest(note.UUID));
    QString reason;
    const auto isKept = [&](const QString &folder) {
        const Expected<void> written = DurableFile::write(folder + u'/' + name, contents);
        reason = written ? QString() : written.error().localizedFailureReason + u'\n';
        return written.has_value();
    };
    const auto isKeptIn = [&](const QStringList &folders) {
        return std::any_of(folders.begin(), folders.end(), [&](const QString &folder) {
            return isUsable(folder) && isKept(folder);
        });
    };
    if (isKeptIn(m_durableFolders) || (useReserve() && isKeptIn(m_durableFolders)) ||
        isKeptIn({m_folders.last()})) {
        return {};
    }
    return failure(
        applicationError(textOf("The text of “%1” cannot be kept for the next start either.")
                             .arg(note.title.left(80)),
                         reason + textOf("Make room on the disk, or copy the text.")));
}

Expected<void> UnsavedTexts::remove(const QString &noteUUID) const {
    Expected<void> removed;
    for (const QString &folder : m_folders) {
        const Expected<QStringList> paths = filesIn(folder, shortDigest(noteUUID));
        if (!paths) {
            removed = failure(paths.error());
            continue;
        }
        for (const QString &path : *paths) {
            removed = removeFile(path).and_then([&] { return removed; });
        }
    }
    makeReserve();
    return removed;
}

Expected<QStringList> UnsavedTexts::filesIn(const QString &folder, const QString &note) const {
    const Expected<bool> isThere = folder == m_folders.first() ? isProfileThere() : true;
    if (!isThere) {
        return failure(unreadableFolder(folder, isThere.error().localizedFailureReason));
    }
    if (!*isThere) {
        return QStringList();
    }
    const QString any = QStringLiteral("*");
    const QStringList patterns = folder == m_folders.first()
                                     ? QStringList{nameOf(any, any, note)}
                                     : QStringList{nameOf(m_digests.folder, any, note),
                                                   nameOf(any, m_digests.profile, note)};
    return namesIn(folder).map([&](const QStringList &names) {
        QStringList paths;
        for (const QString &name : names) {
            if (QDir::match(patterns, name)) {
                paths.append(folder + u'/' + name);
            }
        }
        return paths;
    });
}

UnsavedTexts::Restored UnsavedTexts::restore(const NoteLibrary &library) const {
    Restored restored;
    QStringList failures;
    QStringList remaining;
    for (const QString &folder : m_folders) {
        const Expected<QStringList> paths = filesIn(folder, QStringLiteral("*"));
        if (!paths) {
            failures.append(paths.error().localizedDescription + u' ' +
                            paths.error().localizedFailureReason);
            continue;
        }
        for (const QString &path : *paths) {
            const Expected<QString> title = restoreFile(path, library);
            if (title) {
                restored.titles.append(*title);
                if (const Expected<void> removed = removeFile(path); !removed) {
                    remaining.append(removed.error().localizedDescription);
                }
            } else {
                failures.append(
                    textOf("“%1”: %2").arg(setAside(path), title.error().localizedDescription));
            }
        }
    }
    if (!failures.isEmpty()) {
        restored.result = failure(
            applicationError(textOf("Texts that were not saved cannot be restored. They are "
                                    "kept, and Velmora tries again at each start."),
                             (failures + remaining).join(u'\n')));
    } else if (!remaining.isEmpty()) {
        restored.result = failure(applicationError(remaining.join(u'\n'), {}));
    }
    makeReserve();
    return restored;
}
