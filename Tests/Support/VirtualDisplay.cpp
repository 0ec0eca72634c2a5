#include "Support/VirtualDisplay.h"

#include <sys/prctl.h>

#include <QtCore/QStandardPaths>
#include <QtTest/QtTest>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "Support/EventTimeout.h"
#include "Support/Namespaces.h"

namespace {

const QString Server = QStringLiteral("Xvfb");
const QString Keyboard = QStringLiteral("xdotool");
const QString Watcher = QStringLiteral("xprop");

}  // namespace

void VirtualDisplay::require() {
    for (const QString &program : {Server, Keyboard, Watcher}) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            std::fprintf(stderr, "%s is not installed.\n", qPrintable(program));
            std::exit(CannotRunExitCode);
        }
    }
}

VirtualDisplay::VirtualDisplay() {
    m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_server.start(
        Server, {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                 QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                 QStringLiteral("tcp"), QStringLiteral("-noreset")});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(EventTimeout)) {
            throw std::runtime_error("Xvfb does not start: " +
                                     m_server.readAllStandardError().toStdString());
        }
    }
    m_name = u':' + QString::fromLatin1(m_server.readLine().trimmed());
}

VirtualDisplay::~VirtualDisplay() {
    m_server.terminate();
    m_server.waitForFinished();
}

QString VirtualDisplay::window(const QString &title) const {
    return run({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                title})
        .section(u'\n', 0, 0);
}

void VirtualDisplay::watchTitle(QProcess &watcher, const QString &window) const {
    start(watcher, Watcher,
          {QStringLiteral("-spy"), QStringLiteral("-id"), window, QStringLiteral("_NET_WM_NAME")});
    if (!watcher.waitForReadyRead(EventTimeout)) {
        throw std::runtime_error("xprop does not show the title of a window.");
    }
}

bool VirtualDisplay::hasFocus(const QString &window) const {
    return !window.isEmpty() &&
           run({QStringLiteral("getwindowfocus"), QStringLiteral("-f")}) == window;
}

void VirtualDisplay::focus(const QString &window) const {
    run({QStringLiteral("windowfocus"), window});
    if (!QTest::qWaitFor([&] { return hasFocus(window); }, EventTimeout)) {
        throw std::runtime_error("A window does not get the keyboard.");
    }
}

void VirtualDisplay::press(const QStringList &keys) const {
    run(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("4")} + keys);
}

void VirtualDisplay::type(const QString &text) const {
    run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), text});
}

void VirtualDisplay::beginToType(QProcess &typist, const QString &text) const {
    start(typist, Keyboard,
          {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

void VirtualDisplay::start(QProcess &process, const QString &program,
                           const QStringList &arguments) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_name);
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

QString VirtualDisplay::run(const QStringList &arguments) const {
    QProcess process;
    start(process, Keyboard, arguments);
    if (!process.waitForFinished(EventTimeout)) {
        throw std::runtime_error("xdotool does not end.");
    }
    return process.exitCode() == 0 ? QString::fromUtf8(process.readAllStandardOutput()).trimmed()
                                   : QString();
}
