#pragma once

#include <QtCore/QObject>
#include <memory>
#include <optional>

#include "Host/NoteDatabase.h"

/// All databases of a profile, open or not, as the application manages them. Main thread. Whatever
/// answers an error has changed nothing; whatever answers none is on disk.
class HOST_EXPORT NoteLibrary : public QObject {
    Q_OBJECT
public:
    ~NoteLibrary() override;

    /// The inbox first, then by age.
    virtual QList<std::shared_ptr<NoteDatabase>> knownDatabases() const = 0;
    virtual std::shared_ptr<NoteDatabase> inbox() const = 0;
    /// Makes and opens a database. An empty name is an error.
    virtual std::optional<Error> createDatabase(const QString &name) = 0;
    virtual std::optional<Error> renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                                const QString &name) = 0;
    virtual std::optional<Error> openDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;
    virtual std::optional<Error> closeDatabase(const std::shared_ptr<NoteDatabase> &database) = 0;

Q_SIGNALS:
    /// One was created, or came by synchronization.
    void knownDatabasesChanged();
};
