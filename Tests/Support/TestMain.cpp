#include "Support/TestMain.h"

#include <langinfo.h>

#include <QtCore/QStandardPaths>
#include <clocale>
#include <cstdio>

#include "Platform/Foundation/Assertion.h"

void prepareTestProcess() {
    // In another encoding Qt writes a warning to standard error, which some tests compare.
    std::setlocale(LC_CTYPE, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
    installAssertionReporter();
    // The same font on every computer, because tests compare and click on what is shown.
    qputenv("FONTCONFIG_FILE", VELMORA_SOURCE_DIR "/Tests/Support/fonts.conf");
    static const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", settings.path().toUtf8());
    }
    // No bus has this address, so a test cannot reach the user's services and passwords.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + settings.path().toUtf8() + "/no-bus");
    QCoreApplication::setOrganizationName(QStringLiteral("velmora-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("velmora-tests"));
}

static QMap<QByteArray, TestProgram::Main> &programs() {
    static QMap<QByteArray, TestProgram::Main> byName;
    return byName;
}

TestProgram::TestProgram(const char *name, Main main) {
    programs().insert(name, main);
}

int TestProgram::run(int argumentCount, char **arguments) {
    const Main main = argumentCount > 1 ? programs().value(arguments[1]) : nullptr;
    if (main) {
        arguments[1] = arguments[0];
        return main(argumentCount - 1, arguments + 1);
    }
    std::fprintf(stderr, "Please name one of these tests first: %s\n",
                 programs().keys().join(' ').constData());
    return 2;
}
