#pragma once

#include <QtGui/QPixmap>
#include <memory>
#include <optional>

#include "Controller/Preferences/QVSynchronizationSelection.h"
#include "Controller/Preferences/RowObservation.h"

/// What a row of the location list shows of its location, and of the last synchronization of the
/// selected database with it. An object of the row's form, which creates one for each row. Must be
/// used on the main thread. It only shows the row's error; see ErrorExpiry for when that ends.
class LocationRowStatus : public QObject {
    Q_OBJECT
    /// The row. Not owned: null once it is destroyed.
    Q_PROPERTY(
        std::shared_ptr<QVSynchronizationSelection> selection READ selection WRITE setSelection)
    /// The row's title and icon, announced when the location's URL changes and when the locations
    /// are saved, because the title of one depends on the others. Empty without a row.
    Q_PROPERTY(QString title READ title NOTIFY locationChanged)
    Q_PROPERTY(QPixmap icon READ icon NOTIFY locationChanged)
    /// The kind of the location and, if a database is selected, the result of the last job:
    /// "WebDAV · failed today at 20:28: wrong password".
    Q_PROPERTY(QString summary READ summary NOTIFY statusChanged)
    /// What the check box of the row does: "Synchronizes “Projects” with “Home”". Empty if no
    /// database is selected.
    Q_PROPERTY(QString tickDescription READ tickDescription NOTIFY statusChanged)
    /// The name of the button that shows the error, with that of the location.
    Q_PROPERTY(QString errorButtonName READ errorButtonName NOTIFY locationChanged)
    /// The row's error or, if the database is ticked, that of the last job, also if it only left
    /// some items out, with the next steps; empty if there is none.
    Q_PROPERTY(std::optional<Error> error READ error NOTIFY statusChanged)
public:
    /// Without a row until the form sets it. `parent` may be null.
    explicit LocationRowStatus(QObject *parent = nullptr);

    /// Null if none was set or it is destroyed.
    std::shared_ptr<QVSynchronizationSelection> selection() const { return m_selection.lock(); }
    /// Observes the row instead of the former one, and emits both signals. Null is allowed.
    void setSelection(const std::shared_ptr<QVSynchronizationSelection> &selection);
    /// These are computed at each call. The title and the icon check whether a folder is mounted,
    /// see QVSynchronizationSelection::isMounted().
    QString title() const;
    QPixmap icon() const;
    QString summary() const;
    QString tickDescription() const;
    QString errorButtonName() const;
    std::optional<Error> error() const;

Q_SIGNALS:
    /// Emitted when the row is set, the URL of its location was set, also to an equal one, or the
    /// locations were saved. Whether a volume is mounted is not observed.
    void locationChanged();
    /// Emitted when the row, the selected database, its state at the location, the row's error or a
    /// result changes, and when a new day begins.
    void statusChanged();

private:
    /// Observes the state of the row's database at its location, which may be another one now.
    void observeState();
    /// Returns that state; null if there is none.
    std::shared_ptr<QVSyncState> state() const;

    std::weak_ptr<QVSynchronizationSelection> m_selection;
    RowObservation m_observation;
    bool m_followsSavings = false;
};
