#pragma once

#include <QtCore/QObject>
#include <chrono>
#include <memory>

#include "Application/Interface/ProfileConstants.h"
#include "Host/QVSyncState.h"
#include "Platform/Foundation/Expected.h"

class QVSyncLocation;
class QVSyncLocationsController;

/// The locations that were removed a short time ago and can be restored with their states and
/// schedules. Must be used on the main thread.
class LocationRemovals : public QObject {
    Q_OBJECT
public:
    /// Observes `controller`, which is not owned and must outlive this object. Nothing can be
    /// undone if the host does not announce that the locations were saved.
    explicit LocationRemovals(QVSyncLocationsController *controller, QObject *parent = nullptr);
    ~LocationRemovals() override;

    /// Replaces RemovalUndoTime for later removals.
    void setUndoTime(std::chrono::milliseconds undoTime) { m_undoTime = undoTime; }
    bool isEmpty() const { return m_removals.isEmpty(); }
    /// Returns the title of the location that was removed last; empty if there is none.
    QString title() const;
    /// Returns the location that was removed last; null if there is none.
    std::shared_ptr<QVSyncLocation> location() const {
        return isEmpty() ? nullptr : m_removals.last().listed.location;
    }
    /// Inserts the location that was removed last where it was, and saves the list. Must not be
    /// called if there is none. If it fails, the location can be restored later. The panel must
    /// read the list again.
    Expected<void> undo();

Q_SIGNALS:
    /// Emitted after a location was removed, or can no longer be restored, and by undo().
    void changed();

private Q_SLOTS:
    /// Compares the list with the former one.
    void update();

private:
    struct Listed {
        std::shared_ptr<QVSyncLocation> location;
        /// The states that were enabled; the panel disables those of a location that it removes.
        QVSyncStates enabledStates;
    };
    struct Removal {
        Listed listed;
        qsizetype index = 0;
        /// Distinguishes several removals of one location.
        quint64 number = 0;
    };

    /// Returns what the list of locations contains now.
    QList<Listed> listed() const;
    bool isListed(const std::shared_ptr<QVSyncLocation> &location) const;
    /// Keeps the removal of `location`, which was at `index`, for the undo time.
    void remember(const Listed &location, qsizetype index);
    /// Forgets the removals for which `predicate` is true.
    template <class Predicate>
    void forgetIf(Predicate predicate);

    QVSyncLocationsController *const m_controller;
    std::chrono::milliseconds m_undoTime = RemovalUndoTime;
    /// The list when it was saved last.
    QList<Listed> m_listed;
    quint64 m_lastNumber = 0;
    /// The location removed last comes last.
    QList<Removal> m_removals;
};
