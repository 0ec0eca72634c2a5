#include "Support/PrivateBus.h"

#include <sys/prctl.h>

#include <QtCore/QFile>
#include <csignal>
#include <stdexcept>

PrivateBus::PrivateBus()
    : m_address(QStringLiteral("unix:path=%1").arg(m_folder.filePath(QStringLiteral("bus")))) {
    start();
}

PrivateBus::~PrivateBus() {
    stop();
}

void PrivateBus::start() {
    // Nothing is started by name, a desktop's password dialog for example.
    QFile configuration(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!configuration.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("the bus cannot be configured");
    }
    configuration.write(
        QStringLiteral("<busconfig><type>session</type><listen>%1</listen>"
                       "<auth>EXTERNAL</auth><policy context=\"default\">"
                       "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/>"
                       "<allow own=\"*\"/>"
                       "</policy></busconfig>")
            .arg(m_address)
            .toUtf8());
    configuration.close();
    // Whatever becomes of the test, nothing of it stays.
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--config-file=") + configuration.fileName(), QStringLiteral("--nofork"),
         QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    if (!m_process.waitForStarted()) {
        throw std::runtime_error("dbus-daemon cannot be started; is it installed?");
    }
    if (!m_process.waitForReadyRead()) {
        throw std::runtime_error("dbus-daemon does not begin to listen");
    }
    if (!QDBusConnection::connectToBus(m_address, m_address).isConnected()) {
        throw std::runtime_error("the bus cannot be reached");
    }
}

void PrivateBus::stop() {
    QDBusConnection::disconnectFromBus(m_address);
    m_process.kill();
    m_process.waitForFinished();
    QFile::remove(m_folder.filePath(QStringLiteral("bus")));
}
