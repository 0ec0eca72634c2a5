#include "Application/UnsavedTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QStandardPaths>
#include <algorithm>

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
    const QStringList paths = files(shortDigest(noteUUID));
    for (const QString &path : paths) {
        QFile::remove(path);
    }
}

QStringList UnsavedTexts::files(const QString &note) const {
    QStringList paths;
    for (const QString &folder : m_folders) {
        const QDir directory(folder);
        // The folder may have been moved since, or is reached by another path.
        const QString prefix =
            folder == m_folders.first() ? AnyPrefix + QStringLiteral("*-") : m_prefix;
        const QStringList names =
            directory.entryList({prefix + note + QStringLiteral(".json")}, QDir::Files);
        for (const QString &name : names) {
            paths.append(directory.filePath(name));
        }
    }
    return paths;
}

Expected<QStringList> UnsavedTexts::restore(const NoteLibrary &library) const {
    QStringList titles;
    const QStringList paths = files(QStringLiteral("*"));
    for (const QString &path : paths) {
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
