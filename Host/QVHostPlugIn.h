#pragma once

#include <QtCore/QString>
#include <QtCore/QtPlugin>

#include "Host/HostExport.h"
#include "Platform/Foundation/Expected.h"

/// The root object of a host's plug-in, through which velmora-check-host loads the host. Velmora
/// itself does not use it. Must be used on the main thread.
class HOST_EXPORT QVHostPlugIn {
public:
    virtual ~QVHostPlugIn();

    /// Sets NSApp() to an object of the host and registers the class objects. The application
    /// object of Qt exists already. Everything that the host saves belongs into `folder`, which is
    /// empty. The databases and locations with which a new host begins may be there. Called once;
    /// if it fails, end() is not called.
    virtual Expected<void> begin(const QString &folder) = 0;
    /// Cancels all operations and waits for them, removes the class objects, and sets NSApp() to
    /// null.
    virtual void end() = 0;
};

/// Identifies the interface of such a plug-in, for Q_PLUGIN_METADATA.
#define QVHostPlugIn_iid "QVHostPlugIn/1"
Q_DECLARE_INTERFACE(QVHostPlugIn, QVHostPlugIn_iid)
