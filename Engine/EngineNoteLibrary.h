#pragma once

#include "Engine/EngineNoteDatabase.h"
#include "Host/NoteLibrary.h"

class ProfileDatabase;

/// The databases of a profile. Opening, closing and renaming are posted as notifications, after the
/// profile has them.
class EngineNoteLibrary : public NoteLibrary {
    Q_OBJECT
public:
    /// `profile` outlives the library.
    explicit EngineNoteLibrary(ProfileDatabase *profile) : m_profile(profile) {}

    std::optional<Error> load();
    /// The open databases, in the order of all.
    QList<std::shared_ptr<QVDatabase>> openDatabases() const;
    /// nullptr where there is none.
    std::shared_ptr<EngineNoteDatabase> databaseForUUID(const QString &UUID) const;

    QList<std::shared_ptr<NoteDatabase>> knownDatabases() const override;
    std::shared_ptr<NoteDatabase> inbox() const override;
    std::optional<Error> createDatabase(const QString &name) override;
    std::optional<Error> renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                        const QString &name) override;
    std::optional<Error> openDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    std::optional<Error> closeDatabase(const std::shared_ptr<NoteDatabase> &database) override;

private:
    std::optional<Error> setOpen(const std::shared_ptr<NoteDatabase> &database, bool open);

    ProfileDatabase *const m_profile;
    QList<std::shared_ptr<EngineNoteDatabase>> m_databases;
};
