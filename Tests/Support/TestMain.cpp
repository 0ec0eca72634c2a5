#include "Support/TestMain.h"

#include <QtCore/QStandardPaths>

#include "Platform/Foundation/Assertion.h"

void prepareTestProcess() {
    installAssertionReporter();
    static const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setOrganizationName(QStringLiteral("velmora-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("velmora-tests"));
}
