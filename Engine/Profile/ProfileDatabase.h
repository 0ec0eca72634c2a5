#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <functional>

#include "Engine/Profile/ProfileFiles.h"
#include "Engine/Profile/ProfileLock.h"
#include "Platform/Foundation/Expected.h"

/// The SQLite 3 database "profile.sqlite", which holds everything that a profile stores.
///
/// Must be used on the main thread, except for moveLog(), and that functions that read can be
/// called on a thread with a ProfileReader. Every call blocks until SQLite has finished, and waits
/// up to one second for a lock that another process holds. All functions that access the database
/// return an error of the code ProfileNotWritten if SQLite reports one at any point, also in the
/// middle of a result; a failed read never looks like an empty result. Reads with a ProfileReader
/// also fail with the code Cancelled. Before `open` has succeeded they return an error.
///
/// The database uses a write-ahead log and synchronizes it at each commit, so that a committed
/// change is durable: it survives the end of the process at any moment, and a power failure if the
/// disk obeys flush requests.
class ProfileDatabase {
public:
    /// Writes rows within a transaction. An error rolls the transaction back.
    using Changes = std::function<Expected<void>()>;
    /// Receives one row of a result. `row` is valid only during the call.
    using RowVisitor = std::function<void(const QSqlQuery &row)>;

    ProfileDatabase();
    /// Closes the database. Queries that `prepare` returned must have been destroyed.
    ~ProfileDatabase();
    ProfileDatabase(const ProfileDatabase &) = delete;
    ProfileDatabase &operator=(const ProfileDatabase &) = delete;

    /// Opens the profile in the folder `directory` and locks it until this object is destroyed.
    /// Must not be called again once it has succeeded.
    ///
    /// If the folder does not exist or is empty, or a first start in it was interrupted, creates a
    /// new profile in it: creates the tables and calls `fill` to write the first rows, in one
    /// transaction. A profile of schema version 1 is upgraded: its table of notes is renamed to
    /// "old_notes" and `convertNotes` is called to write the notes into the current tables, in one
    /// transaction, after which "old_notes" is dropped. One of any later version gets the
    /// tables, columns and indexes that it lacks.
    ///
    /// A new folder and its files are accessible to their owner only. The permissions of the group
    /// and of other users are removed from an existing profile; if they cannot be, the profile is
    /// opened nevertheless, see `protection`.
    ///
    /// Damaged indexes are rebuilt if nothing else is damaged, see
    /// ProfileRecovery::rebuildIndexes().
    ///
    /// An error describes the problem and names the file or folder. The folder then contains the
    /// same profile as before the call, or none if it had none. Apart from those permissions,
    /// folders above it may have been created, and SQLite may have applied the log of an existing
    /// database to its file. The code is ProfileUnusable, ProfileUnreadable if the disk reports an
    /// error, ProfileDamaged if the database is damaged, emptied, or missing from a folder that had
    /// one (see ProfileRecovery), ProfileInUse if another process or object has the profile open,
    /// ProfileNotWritten, or that of the failed callback.
    Expected<void> open(const QString &directory, const Changes &fill, const Changes &convertNotes);

    /// Returns whether open() has rebuilt damaged indexes.
    bool hasRebuiltIndexes() const { return m_hasRebuiltIndexes; }

    /// Returns the absolute path of the folder, or an empty string if no profile is open.
    QString directory() const { return m_directory; }
    /// Returns the absolute path of the database file.
    QString path() const;

    /// Returns an error of the code ProfileUnusable if other users of the computer may be able to
    /// read the open profile.
    const Expected<void> &protection() const { return m_protection; }

    /// Returns `statement` compiled, to be passed repeatedly to the overloads below that take a
    /// query. The query is forward-only, and must be destroyed before this object.
    Expected<QSqlQuery> prepare(const QString &statement) const;

    /// Executes a statement that returns no rows, with `values` for its placeholders. Outside of
    /// `write` the statement is a write of its own, with the same errors.
    Expected<void> run(const QString &statement, const QVariantList &values = {}) const;
    Expected<void> run(QSqlQuery &query, const QVariantList &values) const;

    /// Executes a statement, with `values` for its placeholders, and calls `visit` with each row.
    /// If it returns an error, `visit` may have been called with some of the rows.
    Expected<void> read(const QString &statement, const QVariantList &values,
                        const RowVisitor &visit) const;
    Expected<void> read(QSqlQuery &query, const QVariantList &values,
                        const RowVisitor &visit) const;

    /// Returns the first column of the first row, or an invalid QVariant if there is no row.
    Expected<QVariant> value(const QString &statement, const QVariantList &values = {}) const;

    /// Calls `changes` within a transaction and commits it. If `changes` or the commit fails,
    /// nothing is changed and that error is returned. Must not be nested: the inner call returns an
    /// error. Also returns an error if a file of the profile was moved, deleted or replaced since
    /// it was opened, or cannot be reached: what was written would not be found there.
    Expected<void> write(const Changes &changes) const;

    /// Moves what was committed from the write-ahead log into the database file, as far as no other
    /// connection reads an older state or does the same, so that the log begins again and the main
    /// thread need not move it. Takes long if the log is long. Can be called on any thread while
    /// the profile is open; what is committed meanwhile stays in the log.
    Expected<void> moveLog() const { return moveLog(path(), m_files); }
    /// The same for the profile with the file `path`, which has these files; does not need the
    /// object, which may be destroyed meanwhile.
    static Expected<void> moveLog(const QString &path, const ProfileFiles &files);

    /// Returns an error if a file of the profile was moved, deleted or replaced since it was
    /// opened, or cannot be reached. To be called before another file is written into the folder.
    Expected<void> checkFiles() const { return m_files.check(); }
    /// Returns the files that are open; for checkFiles() on another thread.
    ProfileFiles files() const { return m_files; }

    /// Returns `string` as a value for a text column, which must not be NULL: a null string is
    /// stored as an empty one.
    static QVariant text(const QString &string);
    /// Returns `string` as a value for CAST(? AS TEXT), and the string in a value of
    /// CAST(column AS BLOB). To be used for what the user has written: as text, SQLite drops U+FEFF
    /// from the beginning, exchanges the bytes after a U+FFFE, and returns U+FFFD for both U+FFFE
    /// and U+FFFF.
    static QVariant exactText(const QString &string);
    static QString exactText(const QVariant &bytes);

private:
    /// Executes a statement as it is, without a transaction or a check.
    Expected<void> execute(const QString &statement) const;
    Expected<void> execute(QSqlQuery &query, const QVariantList &values) const;
    Expected<void> openFolder(const QString &directory, const Changes &fill,
                              const Changes &convertNotes);
    /// Returns whether there is a database. Fails if that cannot be determined: a profile must not
    /// be taken for a new one, whose files are removed if it cannot be created.
    Expected<bool> hasFile() const;
    /// Creates the database in the locked folder unless that contains other files.
    Expected<void> createFile(const Changes &fill);
    /// Checks the existing database, and rebuilds its indexes if they are damaged.
    Expected<void> checkOrRepair();
    Expected<void> openFile(const Changes &fill, const Changes &convertNotes);
    Expected<void> createMissingTables() const;
    /// Adds the columns that the table "states", if it exists, does not have yet.
    Expected<void> addMissingColumns() const;
    /// Returns an error if a table or a trigger of the current schema version is missing.
    Expected<void> checkTables() const;
    Expected<void> create(const Changes &fill) const;
    /// Upgrades a profile of schema version 1.
    Expected<void> upgradeNotes(const Changes &convertNotes) const;
    Expected<void> executeAll(const QStringList &statements) const;
    /// Remembers which files are open.
    Expected<void> rememberFiles();
    Error error(const QSqlError &reason) const { return errorOf(path(), reason); }
    static Error errorOf(const QString &path, const QSqlError &reason);
    void closeFile();

    /// Declared first: the lock is released after the database is closed.
    ProfileLock m_lock;
    bool m_hasMadeFolder = false;
    bool m_hasRebuiltIndexes = false;
    Expected<void> m_protection;
    const QString m_connectionName;
    QSqlDatabase m_database;
    QString m_directory;
    ProfileFiles m_files;
    /// Whether `write` is calling its changes.
    mutable bool m_isWriting = false;
};
