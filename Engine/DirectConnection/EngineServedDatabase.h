#pragma once

#include "Host/QVServedDatabase.h"

class NoteDatabase;
class ServedDatabases;

/// A database of the profile, as the settings of the direct-connection server show it. Must be used
/// on the main thread.
class EngineServedDatabase : public QVServedDatabase {
    Q_OBJECT
public:
    /// Neither argument must be null; ownership is shared.
    EngineServedDatabase(std::shared_ptr<NoteDatabase> database,
                         std::shared_ptr<ServedDatabases> served);

    QString name() const override;
    bool isServed() const override;
    void setServed(bool isServed) override;

private:
    QString UUIDInStores() const;

    const std::shared_ptr<NoteDatabase> m_database;
    const std::shared_ptr<ServedDatabases> m_served;
};
