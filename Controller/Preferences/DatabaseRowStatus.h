#pragma once

#include <memory>
#include <optional>

#include "Controller/Preferences/QVStandInDatabase.h"
#include "Platform/Foundation/DayChange.h"
#include "Platform/Foundation/Error.h"

/// What a row of the database list shows of the last synchronizations with the ticked locations. An
/// object of the row's form. Must be used on the main thread.
class DatabaseRowStatus : public QObject {
    Q_OBJECT
    /// The row. Not owned: null once it is destroyed.
    Q_PROPERTY(std::shared_ptr<QVStandInDatabase> database READ database WRITE setDatabase)
    /// With how many of the ticked locations the database is synchronized, and when it last was.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// What failed at the ticked locations, for the user; empty if nothing did.
    Q_PROPERTY(std::optional<Error> error READ error NOTIFY changed)
public:
    explicit DatabaseRowStatus(QObject *parent = nullptr);

    std::shared_ptr<QVStandInDatabase> database() const { return m_database.lock(); }
    void setDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    QString text() const;
    std::optional<Error> error() const;

Q_SIGNALS:
    void changed();

private:
    /// Observes the results of all states.
    void observeStates();
    /// Returns the enabled states.
    QVSyncStates tickedStates() const;

    std::weak_ptr<QVStandInDatabase> m_database;
    const std::shared_ptr<DayChange> m_dayChange = DayChange::shared();
    std::vector<KeyValue::Observation> m_rowObservations;
    std::vector<KeyValue::Observation> m_stateObservations;
};
