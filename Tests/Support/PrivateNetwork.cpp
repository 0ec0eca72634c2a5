#include "Support/PrivateNetwork.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "Support/Namespaces.h"

namespace {

const QString BusConfiguration = QStringLiteral(
    "<busconfig><type>system</type><listen>unix:path=%1/bus</listen><auth>EXTERNAL</auth>"
    "<policy context=\"default\"><allow user=\"*\"/><allow own=\"*\"/>"
    "<allow send_type=\"method_call\"/><allow send_destination=\"*\"/>"
    "<allow receive_sender=\"*\"/></policy></busconfig>");

const QString DaemonConfiguration = QStringLiteral(
    "[server]\nhost-name=%1\nuse-ipv4=yes\nuse-ipv6=no\nallow-interfaces=%2\n"
    "[wide-area]\nenable-wide-area=no\n");

constexpr const char *ResolverConfiguration = "/etc/resolv.conf";

void write(const QString &path, const QString &text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// The path of a program that only administrators have in theirs.
QString systemProgram(const QString &name) {
    const QString path = QStandardPaths::findExecutable(
        name, {QStringLiteral("/usr/bin"), QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
    if (path.isEmpty()) {
        throw std::runtime_error("This test needs the program " + name.toStdString() + '.');
    }
    return path;
}

/// Gives root the names under which the discovery daemon looks for itself: in the user namespace of
/// an unprivileged process there is no other user.
bool renameUsers() {
    write(QStringLiteral("/run/passwd"),
          QStringLiteral("root:x:0:0::/:/bin/sh\navahi:x:0:0::/:/bin/sh\n"));
    write(QStringLiteral("/run/group"), QStringLiteral("root:x:0:\navahi:x:0:\n"));
    return mount("/run/passwd", "/etc/passwd", nullptr, MS_BIND, nullptr) == 0 &&
           mount("/run/group", "/etc/group", nullptr, MS_BIND, nullptr) == 0;
}

/// Starts `process` and waits until it has written `sign`.
void startAndAwait(QProcess &process, const QString &program, const QStringList &arguments,
                   const QByteArray &sign) {
    // Whatever becomes of the test, nothing of it stays.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(systemProgram(program), arguments);
    QByteArray output;
    while (!output.contains(sign)) {
        if (!process.waitForReadyRead(30000)) {
            throw std::runtime_error(program.toStdString() + " does not start: " +
                                     process.errorString().toStdString() + output.toStdString());
        }
        output += process.readAll();
    }
}

void end(QProcess &process) {
    process.terminate();
    if (!process.waitForFinished(30000)) {
        process.kill();
        process.waitForFinished();
    }
}

}  // namespace

void runOrThrow(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(systemProgram(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        throw std::runtime_error(program.toStdString() + ": " + process.readAll().toStdString());
    }
}

void enterPrivateNetwork() {
    const bool isUnprivileged = geteuid() != 0;
    enterNamespaces(CLONE_NEWNET | CLONE_NEWNS, NamespaceUser::Root);
    if (mount("tmpfs", "/run", "tmpfs", 0, nullptr) != 0 || (isUnprivileged && !renameUsers())) {
        std::fprintf(stderr, "Skipped: this system does not allow mounts for tests: %s.\n",
                     std::strerror(errno));
        std::exit(CannotRunExitCode);
    }
    runOrThrow(QStringLiteral("ip"), {QStringLiteral("link"), QStringLiteral("set"),
                                      QStringLiteral("lo"), QStringLiteral("up")});
}

DiscoveryDaemon::DiscoveryDaemon(const QString &hostName, const QString &interface) {
    write(m_folder.filePath(QStringLiteral("bus.conf")), BusConfiguration.arg(m_folder.path()));
    write(m_folder.filePath(QStringLiteral("avahi.conf")),
          DaemonConfiguration.arg(hostName, interface));
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + m_folder.path().toUtf8() + "/bus");
    // Where it was not removed since the last daemon of this process was killed.
    QFile::remove(QStringLiteral("/run/avahi-daemon/pid"));
}

DiscoveryDaemon::~DiscoveryDaemon() {
    stopDaemon();
    stopBus();
}

void DiscoveryDaemon::startBus() {
    startAndAwait(
        m_bus, QStringLiteral("dbus-daemon"),
        {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
         QStringLiteral("--config-file=") + m_folder.filePath(QStringLiteral("bus.conf"))},
        "unix:path=");
}

void DiscoveryDaemon::stopBus() {
    end(m_bus);
}

void DiscoveryDaemon::startDaemon() {
    startAndAwait(m_daemon, QStringLiteral("avahi-daemon"),
                  {QStringLiteral("--no-drop-root"), QStringLiteral("--no-chroot"),
                   QStringLiteral("--no-rlimits"), QStringLiteral("-f"),
                   m_folder.filePath(QStringLiteral("avahi.conf"))},
                  "Server startup complete");
}

void DiscoveryDaemon::stopDaemon() {
    end(m_daemon);
}

void DiscoveryDaemon::killDaemon() {
    m_daemon.kill();
    m_daemon.waitForFinished();
}

SilentNameServer::SilentNameServer() {
    constexpr quint16 port = 53;
    if (!m_socket.bind(QHostAddress::LocalHost, port)) {
        throw std::runtime_error("cannot use the port of a name server");
    }
    const QString configuration = m_folder.filePath(QStringLiteral("resolv.conf"));
    write(configuration, QStringLiteral("nameserver 127.0.0.1\n"));
    if (mount(configuration.toUtf8().constData(), ResolverConfiguration, nullptr, MS_BIND,
              nullptr) != 0) {
        throw std::runtime_error("cannot mount the configuration of the resolver");
    }
}

SilentNameServer::~SilentNameServer() {
    umount2(ResolverConfiguration, MNT_DETACH);
}
