#pragma once

#include <memory>
#include <optional>

#include "Controller/Preferences/QVStandInDatabase.h"
#include "Controller/Preferences/RowObservation.h"
#include "Platform/Foundation/Error.h"

/// What a row of the database list shows of the last synchronizations with the ticked locations. An
/// object of the row's form, which creates one for each row. Must be used on the main thread.
///
/// A host that offers no results (see QVSyncResult) has no errors here; the text then depends on
/// the dates only.
class DatabaseRowStatus : public QObject {
    Q_OBJECT
    /// The row. Not owned: null once it is destroyed.
    Q_PROPERTY(std::shared_ptr<QVStandInDatabase> database READ database WRITE setDatabase)
    /// With how many of the ticked locations the database is synchronized, and when it last was, in
    /// words relative to the current day. Empty without a row.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// The names of the buttons of the row, with that of the database.
    Q_PROPERTY(QString syncButtonName READ syncButtonName NOTIFY changed)
    Q_PROPERTY(QString errorButtonName READ errorButtonName NOTIFY changed)
    /// What failed at the ticked locations, for the user, with at most five descriptions; empty if
    /// nothing did. Failures at locations that are not ticked do not count.
    Q_PROPERTY(std::optional<Error> error READ error NOTIFY changed)
public:
    /// Without a row until the form sets it. `parent` may be null.
    explicit DatabaseRowStatus(QObject *parent = nullptr);

    /// Null if none was set or it is destroyed.
    std::shared_ptr<QVStandInDatabase> database() const { return m_database.lock(); }
    /// Observes the row instead of the former one and emits changed(). Null is allowed.
    void setDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    /// All are computed at each call. O(number of the row's states).
    QString text() const;
    QString syncButtonName() const;
    QString errorButtonName() const;
    std::optional<Error> error() const;

Q_SIGNALS:
    /// Emitted for all keys: when a state is added, removed or ticked, when a date or a result
    /// changes, when the row is set, and when a new day begins.
    void changed();

private:
    /// Observes the results of all states.
    void observeStates();
    /// Returns the enabled states.
    QVSyncStates tickedStates() const;

    std::weak_ptr<QVStandInDatabase> m_database;
    RowObservation m_observation;
};
