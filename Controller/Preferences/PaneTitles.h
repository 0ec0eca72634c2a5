#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

/// The titles of what the pane shows of the selected database. An object of the pane's form. Must
/// be used on the main thread.
class PaneTitles : public QObject {
    Q_OBJECT
    /// The name of the selected database; empty if none is selected.
    Q_PROPERTY(QString database READ database WRITE setDatabase NOTIFY changed)
    /// The title of the list of locations.
    Q_PROPERTY(QString locations READ locations NOTIFY changed)
    /// The title of the schedule, in which "&&" stands for "&".
    Q_PROPERTY(QString schedule READ schedule NOTIFY changed)
public:
    using QObject::QObject;

    QString database() const { return m_database; }
    /// Sets the name of the selected database; empty if none is selected. Emits changed(), also if
    /// it is the same.
    void setDatabase(const QString &database);
    /// These are computed at each call. A long name is elided.
    QString locations() const;
    QString schedule() const;

Q_SIGNALS:
    /// Emitted for all keys when the name was set.
    void changed();

private:
    /// Returns the name, elided if it is long.
    QString shownName() const;

    QString m_database;
};
