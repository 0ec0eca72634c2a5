#pragma once

#include <QtCore/QString>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

class QVDatabase;

/// The application object of the process. Must be used on the main thread.
class HOST_EXPORT QVApplication {
public:
    virtual ~QVApplication();

    /// Returns the inbox of the profile; nullptr only while no profile is open.
    virtual std::shared_ptr<QVDatabase> inbox() const = 0;
    /// Appends an entry to the application's log, which the user can open. `title` is its source,
    /// `info` says what happened.
    virtual void logItemCmd(const QString &title, const QString &info) = 0;
    /// Shows an error of the pane or of the host to the user. Returns at once, or runs a nested
    /// event loop until the user has dismissed the error. Callers must expect the latter: other
    /// functions of the caller may be called meanwhile, and its objects be destroyed.
    virtual void presentError(const Error &error) = 0;
};

/// Returns the application object, not owned; nullptr before the application has started and after
/// it has ended. It exists while any code of the plug-ins runs.
HOST_EXPORT QVApplication *NSApp();

/// Makes `application`, which is not owned, the application object; nullptr when it ends. Called by
/// the application only.
HOST_EXPORT void setNSApp(QVApplication *application);
