#include "Application/UnsavedTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>
#include <algorithm>
#include <filesystem>

#include "Application/Interface/NoteLibrary.h"
#include "Platform/Foundation/DurableFile.h"
#include "Platform/Foundation/ExactText.h"

namespace {

const QString DatabaseKey = QStringLiteral("database");
const QString NoteKey = QStringLiteral("note");
const QString RevisionKey = QStringLiteral("revision");
const QString TitleKey = QStringLiteral("title");
const QString TextKey = QStringLiteral("text");
const QString ModifiedKey = QStringLiteral("modified");

const QString AnyPrefix = QStringLiteral("unsaved-");

/// Returns the path without symbolic links.
QString pathOf(const QString &folder) {
    const QDir directory(folder);
    return directory.exists() ? directory.canonicalPath() : directory.absolutePath();
}

QString textOf(const char *text) {
    return QCoreApplication::translate("UnsavedTexts", text);
}

Error journalError(const QString &description, const QString &reason) {
    return {.domain = QStringLiteral("Velmora"),
            .localizedDescription = description,
            .localizedFailureReason = reason};
}

/// Whether a text can be kept in `folder`. A profile's folder without its database is not one any
/// more: files in it would prevent a new profile there.
bool isUsable(const QString &folder, const QString &profileFolder) {
    return folder == profileFolder ? QFile::exists(folder + QStringLiteral("/profile.sqlite"))
                                   : QDir().mkpath(folder);
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
        if (entry->is_regular_file(ofType)) {
            names.append(QFile::decodeName(entry->path().filename().c_str()));
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        return failure(journalError(
            textOf("The folder “%1”, which may contain texts that were not saved, cannot be read.")
                .arg(folder),
            QString::fromStdString(error.message()) + u'\n' +
                textOf("Check its permissions and its disk, and start Velmora again.")));
    }
    return names;
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

Expected<QString> restoreFile(const QString &path, const NoteLibrary &library) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return failure(journalError(file.errorString(), {}));
    }
    const QJsonObject object = ExactText::objectIn(file.readAll());
    Note note{object[NoteKey].toString(), object[TitleKey].toString(), object[TextKey].toString(),
              QDateTime::fromMSecsSinceEpoch(object[ModifiedKey].toInteger()),
              object[RevisionKey].toString()};
    if (note.UUID.isEmpty()) {
        return failure(journalError(textOf("The file is damaged."), {}));
    }
    const auto database = databaseFor(library, object[DatabaseKey].toString());
    return isSaved(*database, note)
        .and_then([&](bool saved) { return saved ? Expected<void>() : database->saveNote(note); })
        .map([&] { return note.title; });
}

}  // namespace

UnsavedTexts::UnsavedTexts(const QString &profileFolder)
    : m_folders({profileFolder, QStandardPaths::writableLocation(QStandardPaths::CacheLocation),
                 QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)}),
      m_prefix(AnyPrefix + shortDigest(pathOf(profileFolder)) + u'-') {}

Expected<void> UnsavedTexts::keep(const QString &databaseUUID, const Note &note) const {
    const QByteArray contents = ExactText::json({{DatabaseKey, databaseUUID},
                                                 {NoteKey, note.UUID},
                                                 {RevisionKey, note.revision},
                                                 {TitleKey, note.title},
                                                 {TextKey, note.text},
                                                 {ModifiedKey, note.modified.toMSecsSinceEpoch()}});
    const QString name = m_prefix + shortDigest(note.UUID) + QStringLiteral(".json");
    for (const QString &folder : m_folders) {
        if (isUsable(folder, m_folders.first()) &&
            DurableFile::write(folder + u'/' + name, contents)) {
            return {};
        }
    }
    return failure(journalError(textOf("The text of “%1” cannot be kept for the next start either.")
                                    .arg(note.title.left(80)),
                                textOf("Make room on the disk, or copy the text.")));
}

void UnsavedTexts::remove(const QString &noteUUID) const {
    const QStringList paths = files(shortDigest(noteUUID)).value_or(QStringList());
    for (const QString &path : paths) {
        QFile::remove(path);
    }
}

Expected<QStringList> UnsavedTexts::files(const QString &note) const {
    QStringList paths;
    for (const QString &folder : m_folders) {
        const Expected<QStringList> names = namesIn(folder);
        if (!names) {
            return failure(names.error());
        }
        // The folder may have been moved since, or is reached by another path.
        const QString prefix =
            folder == m_folders.first() ? AnyPrefix + QStringLiteral("*-") : m_prefix;
        for (const QString &name : *names) {
            if (QDir::match(prefix + note + QStringLiteral(".json"), name)) {
                paths.append(folder + u'/' + name);
            }
        }
    }
    return paths;
}

Expected<QStringList> UnsavedTexts::restore(const NoteLibrary &library) const {
    const Expected<QStringList> paths = files(QStringLiteral("*"));
    if (!paths) {
        return failure(paths.error());
    }
    QStringList titles;
    for (const QString &path : *paths) {
        const Expected<QString> title = restoreFile(path, library);
        if (!title) {
            return failure(
                journalError(textOf("A text that was not saved cannot be restored. It is in the "
                                    "file “%1”.")
                                 .arg(path),
                             title.error().localizedDescription));
        }
        QFile::remove(path);
        titles.append(*title);
    }
    return titles;
}
