#include "Platform/Foundation/Log.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "Platform/Foundation/UserDefaults.h"
#include "Support/TestMain.h"

namespace {

const QString debugKey = QStringLiteral("QVSyncDebug");
const QString highKey = QStringLiteral("QVSyncDebugHigh");

/// What reached Qt's message handler.
struct Caught {
    QtMsgType type;
    QString category;
    QString text;
};
QList<Caught> caught;

void catchMessage(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    caught.append({type, QString::fromUtf8(context.category), text});
}

}  // namespace

class LogTest : public QObject {
    Q_OBJECT

    static void switchTo(bool debug, bool high) {
        UserDefaults::setValue(debugKey, debug);
        UserDefaults::setValue(highKey, high);
    }

    /// The texts that one normal and one verbose message leave.
    static QStringList written() {
        caught.clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        Log::message(QStringLiteral("normal"));
        Log::verbose(QStringLiteral("verbose"));
        qInstallMessageHandler(before);
        QStringList texts;
        for (const Caught &message : std::as_const(caught)) {
            texts.append(message.text);
        }
        return texts;
    }

private Q_SLOTS:
    void init() {
        UserDefaults::remove(debugKey);
        UserDefaults::remove(highKey);
    }

    void nothingIsWrittenUnlessAskedFor() {
        QVERIFY(!Log::isEnabled());
        QVERIFY(!Log::isVerbose());
        QCOMPARE(written(), QStringList());
    }

    void theTwoDefaultsDecideTogether() {
        const QString normal = QStringLiteral("normal");
        switchTo(false, false);
        QCOMPARE(written(), QStringList());
        switchTo(false, true);
        QCOMPARE(written(), QStringList());
        QVERIFY(!Log::isVerbose());
        switchTo(true, false);
        QCOMPARE(written(), QStringList(normal));
        QVERIFY(Log::isEnabled());
        QVERIFY(!Log::isVerbose());
        switchTo(true, true);
        QCOMPARE(written(), QStringList({normal, QStringLiteral("verbose")}));
        QVERIFY(Log::isVerbose());
    }

    void theDefaultsAreReadAfreshAtEachMessageAlsoWhenAnotherProgramSetsThem() {
        switchTo(true, true);
        QCOMPARE(written().size(), 2);
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[General]\nQVSyncDebug=false\n");
        file.close();
        QCOMPARE(written(), QStringList());
    }

    void messagesAreInformationOfOneCategoryAndKeptVerbatim() {
        switchTo(true, false);
        caught.clear();
        const QtMessageHandler before = qInstallMessageHandler(&catchMessage);
        const QString text = QStringLiteral("\"ü\" %s %1\nsecond line");
        Log::message(text);
        qInstallMessageHandler(before);
        QCOMPARE(caught.size(), 1);
        QCOMPARE(caught[0].type, QtInfoMsg);
        QCOMPARE(caught[0].category, QStringLiteral("sync"));
        QCOMPARE(caught[0].text, text);
    }

    void theSystemLogGetsTheMessagesAndNothingElse() {
        QProcess process;
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("LogTest"), QStringLiteral("--system-log")});
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

/// Leaves a /dev of this process's own, so that no system log but ours hears the messages.
bool hideDevices() {
    const QByteArray user = "0 " + QByteArray::number(geteuid()) + " 1";
    if (unshare(CLONE_NEWNS) != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        QFile map(QStringLiteral("/proc/self/uid_map"));
        if (!map.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || map.write(user) < 0) {
            return false;
        }
    }
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", "/dev", "tmpfs", 0, nullptr) == 0;
}

/// A socket where syslog(3) writes, or -1.
int listenToSystemLog() {
    const bool isHidden = hideDevices();
    if (!isHidden && QFile::exists(QStringLiteral("/dev/log"))) {
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
        std::fputs("There is no place for a system log of our own.\n", stderr);
        return 1;
    }
    UserDefaults::setValue(debugKey, true);
    UserDefaults::setValue(highKey, true);
    Log::sendToSystemLog();
    Log::message(QStringLiteral("normal ü %s"));
    Log::verbose(QStringLiteral("verbose"));
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
    unlink("/dev/log");
    return 0;
}

}  // namespace

VELMORA_TEST_PROGRAM(LogTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    // Before there are threads: a process with several cannot leave its user namespace.
    if (argumentCount > 1 && qstrcmp(arguments[1], "--system-log") == 0) {
        return writeToSystemLog();
    }
    QApplication application(argumentCount, arguments);
    LogTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "LogTest.moc"
