#pragma once

#include <QtCore/QString>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

class QVDatabase;

/// The application object of the process. Main thread.
class HOST_EXPORT QVApplication {
public:
    virtual ~QVApplication();

    /// The inbox of the profile; nullptr only while no profile is open.
    virtual std::shared_ptr<QVDatabase> inbox() const = 0;
    /// Appends an entry to the log that the person can open.
    virtual void logItemCmd(const QString &title, const QString &info) = 0;
    /// Shows `error` to the person and returns at once or when it was dismissed.
    virtual void presentError(const Error &error) = 0;
};

/// The application object, which is there while anything of the plug-ins runs.
HOST_EXPORT QVApplication *NSApp();

/// Makes `application` the application object; nullptr when it goes. Called by the application
/// only.
HOST_EXPORT void setNSApp(QVApplication *application);
