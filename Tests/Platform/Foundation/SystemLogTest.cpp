#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <QtCore/QProcess>
#include <QtWidgets/QApplication>
#include <array>
#include <cstdio>

#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Support/Namespaces.h"
#include "Support/SetDefault.h"
#include "Support/TestMain.h"

class SystemLogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSystemLogGetsTheMessagesAndNothingElse() {
        QProcess process;
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("SystemLogTest"), QStringLiteral("--system-log")});
        QVERIFY(process.waitForFinished());
        const QByteArray errors = process.readAllStandardError();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, errors);
        // Facility user is 1, severity informational 6: 8 * 1 + 6.
        const QByteArrayList lines = process.readAllStandardOutput().split('|');
        QCOMPARE(lines.size(), 3);
        QVERIFY2(lines[0].startsWith("<14>"), lines[0]);
        QVERIFY2(lines[0].contains("PlatformTests: normal ü %s"), lines[0]);
        QVERIFY2(lines[1].startsWith("<14>") && lines[1].contains("PlatformTests: verbose"),
                 lines[1]);
        QCOMPARE(lines[2], QByteArray());
        QCOMPARE(errors, QByteArray("elsewhere\n"));
    }
};

namespace {

/// Returns a socket where syslog(3) writes, or -1. A private /dev keeps the messages from the
/// system's log.
int listenToSystemLog() {
    enterNamespaces(CLONE_NEWNS, NamespaceUser::Same);
    if (mount("tmpfs", "/dev", "tmpfs", 0, nullptr) != 0) {
        return -1;
    }
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrcpy(address.sun_path, "/dev/log");
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
    return bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 ? socket
                                                                                           : -1;
}

int writeToSystemLog() {
    const int socket = listenToSystemLog();
    if (socket < 0) {
        std::fputs("A private system log could not be created.\n", stderr);
        return 1;
    }
    const QString enabledKey = QStringLiteral("LogTestEnabled");
    const QString verboseKey = QStringLiteral("LogTestVerbose");
    setDefault(enabledKey, true);
    setDefault(verboseKey, true);
    const Log log("test", enabledKey, verboseKey);
    Log::sendToSystemLog("test");
    log.message(QStringLiteral("normal ü %s"));
    log.verbose(QStringLiteral("verbose"));
    qInfo().noquote() << QStringLiteral("elsewhere");

    std::array<char, 1024> buffer{};
    for (;;) {
        const ssize_t size = recv(socket, buffer.data(), buffer.size(), 0);
        if (size < 0) {
            break;
        }
        std::fwrite(buffer.data(), 1, size_t(size), stdout);
        std::fputc('|', stdout);
    }
    return 0;
}

}  // namespace

VELMORA_TEST_PROGRAM(SystemLogTest)(int argumentCount, char **arguments) {
    // Before there are threads, with which a process cannot enter a user namespace.
    if (argumentCount > 1 && qstrcmp(arguments[1], "--system-log") == 0) {
        prepareTestProcess();
        return writeToSystemLog();
    }
    requireNamespaces(CLONE_NEWNS, NamespaceUser::Same);
    prepareTestProcess();
    const QApplication application(argumentCount, arguments);
    SystemLogTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "SystemLogTest.moc"
