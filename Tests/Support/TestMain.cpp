#include "Support/TestMain.h"

#include <QtCore/QStandardPaths>

#include "Platform/Foundation/Assertion.h"

void prepareTestProcess() {
    installAssertionReporter();
    static const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", settings.path().toUtf8());
    }
    // Nobody listens there: nothing a test does reaches a person's own services, and passwords.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + settings.path().toUtf8() + "/no-bus");
    QCoreApplication::setOrganizationName(QStringLiteral("velmora-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("velmora-tests"));
}
