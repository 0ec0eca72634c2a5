#pragma once

#include <QtCore/QHash>

#include "Application/Interface/NoteLibrary.h"
#include "Engine/Notes/EngineDatabase.h"

class ProfileDatabase;

/// The databases of the profile. Posts the notifications of Host/Notifications.h to the default
/// centre, each after the change is on disk and announced.
class EngineNoteLibrary : public NoteLibrary {
    Q_OBJECT
public:
    /// `profile` must outlive this.
    explicit EngineNoteLibrary(const ProfileDatabase &profile);

    /// Takes over what the profile holds; called once, when it was opened.
    std::optional<Error> load();
    /// Those that are open, in the order of the known ones.
    QList<std::shared_ptr<QVDatabase>> openDatabases() const;
    /// nullptr where none is known.
    std::shared_ptr<NoteDatabase> databaseForUUID(const QString &UUID) const;

    /// The one that stores call `UUID`, which is "@inbox" for the inbox; nullptr where there is
    /// none.
    std::shared_ptr<EngineDatabase> synchronizedDatabase(const QString &UUID) const;
    /// Makes a local database of one that comes by synchronization.
    std::optional<Error> importDatabase(const QString &UUID, const QString &name);
    /// Takes over what others have done to `database` and whatever `changes` writes besides, in one
    /// transaction, then announces it.
    std::optional<Error> merge(const std::shared_ptr<EngineDatabase> &database,
                               const QList<Transaction> &transactions,
                               const std::function<std::optional<Error>()> &changes);

    QList<std::shared_ptr<NoteDatabase>> knownDatabases() const override;
    std::shared_ptr<NoteDatabase> inbox() const override;
    std::optional<Error> createDatabase(const QString &name) override;
    std::optional<Error> renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                        const QString &name) override;
    std::optional<Error> openDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    std::optional<Error> closeDatabase(const std::shared_ptr<NoteDatabase> &database) override;

private:
    std::shared_ptr<EngineDatabase> ours(const std::shared_ptr<NoteDatabase> &database) const;
    std::optional<Error> insert(const QString &UUID, const QString &name) const;
    /// Takes in, announces and posts the open database that was inserted.
    void add(const QString &UUID, const QString &name);
    void append(const std::shared_ptr<EngineDatabase> &database);

    const ProfileDatabase &m_profile;
    QList<std::shared_ptr<EngineDatabase>> m_databases;
    QHash<QString, std::shared_ptr<EngineDatabase>> m_databaseByUUID;
};
