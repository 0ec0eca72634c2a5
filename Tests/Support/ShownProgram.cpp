#include "Support/ShownProgram.h"

#include <sys/prctl.h>

#include <QtCore/QDir>
#include <QtTest/QtTest>
#include <csignal>
#include <stdexcept>
#include <utility>

#include "Support/DelayByOthers.h"
#include "Support/EventTimeout.h"
#include "Support/Verification.h"

ShownProgram::ShownProgram(const QString &program, const VirtualDisplay &display)
    : m_display(display),
      m_program(program),
      m_environment(QProcessEnvironment::systemEnvironment()) {
    const QString runtime = m_folder.filePath(QStringLiteral("run"));
    QDir().mkdir(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    setVariable(QStringLiteral("HOME"), m_folder.path());
    setVariable(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    setVariable(QStringLiteral("DISPLAY"), display.name());
    setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    setVariable(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    m_environment.remove(QStringLiteral("SESSION_MANAGER"));
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

ShownProgram::~ShownProgram() {
    kill();
    Verification::failForLastingProblems(profile());
}

void ShownProgram::setVariable(const QString &name, const QString &value) {
    m_environment.insert(name, value);
}

void ShownProgram::useSession(const QString &busAddress) {
    setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
    setVariable(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
}

void ShownProgram::start(const QStringList &options) {
    m_process.setProcessEnvironment(m_environment);
    m_process.start(m_program, QStringList{QStringLiteral("--profile"), profile()} + options);
    if (!m_process.waitForStarted()) {
        throw std::runtime_error("velmora cannot be started.");
    }
}

void ShownProgram::awaitWindows() {
    // The last window takes the keyboard when it is shown.
    const bool areShown = QTest::qWaitFor(
        [this] {
            m_mainWindow = m_display.window(QStringLiteral("^Velmora\\*?$"));
            m_preferencesWindow = m_display.window(QStringLiteral("^Sync Preferences$"));
            return !m_mainWindow.isEmpty() && m_display.hasFocus(m_preferencesWindow);
        },
        EventTimeout);
    if (!areShown) {
        throw std::runtime_error("The windows are not shown: " +
                                 m_process.readAllStandardError().toStdString());
    }
    m_display.focus(m_mainWindow);
    m_isModified = m_wasModified = false;
    m_display.watchTitle(m_titles, m_mainWindow);
}

bool ShownProgram::isShownAsModified() {
    readTitles();
    return m_isModified;
}

bool ShownProgram::takeWasShownAsModified() {
    readTitles();
    return std::exchange(m_wasModified, false);
}

void ShownProgram::readTitles() {
    while (m_titles.canReadLine()) {
        m_isModified = m_titles.readLine().contains("Velmora*");
        m_wasModified = m_wasModified || m_isModified;
    }
}

void ShownProgram::kill() {
    m_process.kill();
    m_process.waitForFinished();
    m_titles.kill();
    m_titles.waitForFinished();
}

std::chrono::nanoseconds ShownProgram::delayByOthers() {
    if (isRunning()) {
        m_delayByOthers =
            ::delayByOthers(QString::number(m_process.processId())).value_or(m_delayByOthers);
    }
    return m_delayByOthers;
}

bool ShownProgram::awaitEnd() {
    const bool hasEnded = m_process.state() == QProcess::NotRunning ||
                          QTest::qWaitFor(
                              [this] {
                                  delayByOthers();
                                  return m_process.state() == QProcess::NotRunning;
                              },
                              EventTimeout);
    return hasEnded && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}
