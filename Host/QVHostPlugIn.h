#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QtPlugin>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/Foundation/Expected.h"

class QVDatabase;

/// The root object of a host's plug-in, through which velmora-check-host loads the host. The pane
/// does not use it. Must be used on the main thread.
class HOST_EXPORT QVHostPlugIn {
public:
    virtual ~QVHostPlugIn();

    /// Sets NSApp() to an object of the host and registers the class objects. The application
    /// object of Qt exists already. Everything that the host saves belongs into `folder`, which is
    /// empty. The databases and locations with which a new host begins may be there. Blocks for the
    /// disk. Called once; if it fails, which it does with an error for the user, end() is not
    /// called.
    virtual Expected<void> begin(const QString &folder) = 0;
    /// Cancels all operations and waits for them, removes the class objects, and sets NSApp() to
    /// null. Nothing of the host may run when this has returned. Called once after a begin() that
    /// succeeded; must return within the time that the check gives each step.
    virtual void end() = 0;

    /// Creates a database with this name and opens it, as a user of the application does. Returns
    /// null, as the default implementation does, if the application cannot do that; the promises
    /// about notifications then count as not offered. Called between begin() and end().
    virtual Expected<std::shared_ptr<QVDatabase>> openNewDatabase(const QString &name);
    /// Renames `database`, which openNewDatabase() has returned and which is open.
    virtual Expected<void> renameDatabase(const std::shared_ptr<QVDatabase> &database,
                                          const QString &name);
    /// Closes `database`, which openNewDatabase() has returned and which is open.
    virtual Expected<void> closeDatabase(const std::shared_ptr<QVDatabase> &database);
    /// Does what the host does at `date`, a moment of the next days, if its clock shows that: the
    /// schedules that are due until then fire within this call. Returns false without an effect, as
    /// the default implementation does, if the application cannot do that; the promise about
    /// schedules that fire then counts as not offered. Called between begin() and end().
    virtual bool fireSchedules(const QDateTime &date);
};

/// Identifies the interface of such a plug-in, for Q_PLUGIN_METADATA.
#define QVHostPlugIn_iid "QVHostPlugIn/1"
Q_DECLARE_INTERFACE(QVHostPlugIn, QVHostPlugIn_iid)
