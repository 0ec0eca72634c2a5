#pragma once

#include <QtCore/QString>
#include <functional>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

class QVDatabase;

/// What the person is asked. A value.
struct Question {
    /// The question, as a whole sentence.
    QString text;
    /// What helps to answer it; plain text, may have several lines.
    QString details;
    /// The titles of the two buttons.
    QString acceptTitle;
    QString refuseTitle;
};

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
    /// Asks the person and returns at once. `handler` is called once, later, with whether they
    /// accepted; closing the question refuses it.
    virtual void ask(const Question &question, std::function<void(bool accepted)> handler) = 0;
};

/// The application object, which is there while anything of the plug-ins runs.
HOST_EXPORT QVApplication *NSApp();

/// Makes `application` the application object; nullptr when it goes. Called by the application
/// only.
HOST_EXPORT void setNSApp(QVApplication *application);
