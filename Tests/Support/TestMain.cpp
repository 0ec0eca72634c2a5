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
    QCoreApplication::setOrganizationName(QStringLiteral("velmora-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("velmora-tests"));
}
